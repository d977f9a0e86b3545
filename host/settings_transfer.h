#pragma once

#include <cstdint>
#include <vector>

#include "host/settings.h"
#include "platform/plist/binary.h"

// All settings of all pages as a property list, and back.
namespace host {

// As XML: each key with what is stored, else with its row's default.
Attempt<std::vector<std::uint8_t>> exportSettings(Settings& settings,
                                                  preferences::Environment& environment);

// From a property list, XML or binary. Refused, with the key's name, unless each key is one of a
// row and each value one that the row can take: a number for a switch, one within the range for a
// slider, a choice, a color, a text; or else its default, or what it shows now. With one change of
// the file and one notification; keys that the list lacks stay as they are. Whether a row is dimmed
// doesn't matter.
Attempt<platform::Done> importSettings(Settings& settings, preferences::Environment& environment,
                                       plist::Bytes bytes);
// What the import would change.
Attempt<std::vector<Settings::Difference>> changesOfImport(Settings& settings,
                                                           preferences::Environment& environment,
                                                           plist::Bytes bytes);

}  // namespace host
