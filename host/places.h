#pragma once

#include <string>

#include "platform/preferences/environment.h"

namespace host {

// Where everything is on this machine, whether it is there yet or not: absolute paths. Empty where
// there is no such place.
struct Places {
  std::string root, settings, profiles, log, contacts, sounds, state;
};

// `contacts`: the folder of vCards; `state`: what the host itself remembers.
Places placesOf(const preferences::Environment& environment, const std::string& contacts,
                const std::string& state);

// The platform path of what that path on this machine names below the root; any other text as it
// is.
std::string platformPath(const preferences::Environment& environment, const std::string& path);

}  // namespace host
