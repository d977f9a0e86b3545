#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/settings.h"
#include "platform/plist/binary.h"

// All settings of all pages as a property list, and back.
namespace host {

// As XML: each key with what is stored, else with its row's default.
struct Export {
  std::vector<std::uint8_t> xml{};
  std::vector<std::string> refused{};  // keys whose values no import takes where they aren't stored
};
Attempt<Export> exportSettings(Settings& settings, preferences::Environment& environment);

// From a property list, XML or binary. Refused, with the names of all keys at fault, unless each
// key is one of a row and each value one that the row can take: a number for a switch, one within
// the range for a slider, a choice, a color, a text; or else its default, or what it shows now. A
// choice's number in another form (2.0) is stored as the choice's own value. With one change of
// the file and one notification; keys that the list lacks stay as they are. Whether a row is dimmed
// doesn't matter.
Attempt<platform::Done> importSettings(Settings& settings, preferences::Environment& environment,
                                       plist::Bytes bytes);
// What the import would change.
Attempt<std::vector<Settings::Difference>> changesOfImport(Settings& settings,
                                                           preferences::Environment& environment,
                                                           plist::Bytes bytes);

}  // namespace host
