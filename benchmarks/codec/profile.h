#pragma once

#include "platform/plist/value.h"

// A profile as the bundle saves it: its trigger and the 50 settings, nearly all at their defaults.
plist::Dictionary typicalProfile();
