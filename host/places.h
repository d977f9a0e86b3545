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

}  // namespace host
