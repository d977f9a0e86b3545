#pragma once

#include "platform/preferences/bundle.h"

namespace prefs {

// The whole settings bundle: its classes, and its specifier lists as the build compiled them.
const preferences::Bundle& bundle();

}  // namespace prefs
