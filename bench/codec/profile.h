#pragma once

#include "platform/plist/value.h"

// A profile as the bundle saves it: 51 keys, most of them switches.
plist::Dictionary typicalProfile();
