#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "apps/cli/outcome.h"
#include "host/settings_application.h"
#include "prefs/colorpicker/palettes.h"

namespace cli {

// Whether a row that leads to this page is a colour.
bool leadsToColorPicker(std::string_view detail);

// What to show people of a stored colour text: "System Blue, #007AFF"; the text itself where no
// palette has it, and for a word.
std::string shownColor(const std::string& text);

// The picker's named colours, in its order.
std::vector<prefs::ColorEntry> presetColors();

// Chooses a colour as the user does: opens the row's picker and taps a named colour, or mixes it
// with the sliders and takes the mixed one. The text is a name, "none", or "#" and six hexadecimal
// digits; WrongUse for any other, and for a row that is dimmed.
Outcome<Done> chooseColor(host::SettingsApplication& application,
                          const preferences::PSSpecifier& row, const std::string& text);

}  // namespace cli
