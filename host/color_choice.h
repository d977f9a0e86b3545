#pragma once

#include <string>
#include <string_view>

#include "host/application.h"
#include "platform/preferences/choices.h"

namespace host {

// What a user calls the picker's page, which has no title.
inline constexpr char kColorPickerName[] = "color picker";

// Whether a row that leads to this page is a color.
bool leadsToColorPicker(std::string_view page);

// Whether it is a color as the picker stores it: "none", or "#" and six hexadecimal digits.
bool isColorText(const std::string& text);

// The picker's named colors, in its order; a value is what is stored.
preferences::Choices colorChoices();

// Chooses a color as the user does: opens the row's picker and taps a named color, or mixes it
// with the sliders and takes the mixed one. The text is a name in any case, "none", six
// hexadecimal digits with or without "#" before them, or a name and its digits as they are shown
// ("Snow, #FFFFFF"); BadValue for any other.
Outcome<Done> chooseColor(Application& application, const std::string& row,
                          const std::string& text);

}  // namespace host
