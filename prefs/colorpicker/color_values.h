#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/uikit/color.h"
#include "platform/uikit/swatch.h"

// Colors as the store keeps them: text of "#" and six hexadecimal digits, red, green and blue; or
// a special word, "none", which leaves the choice to the extension. The first two are operations of
// the category Velmorra on UIColor.
namespace prefs {

// Always opaque, never fails. The first character is passed over whatever it is, a hexadecimal
// number is scanned from there, and its low 24 bits are the color: text without a number is black,
// and so is empty text; "#FFF" is 000FFF, "FF0000" is 0F0000; more than 32 bits are white.
uikit::Color colorFromHexString(std::string_view text);

uikit::Swatch thumbnailWithSize(const uikit::Color& color, uikit::Size size);

// The color text of components from 0 to 255, which lose their fractions; upper case.
std::string colorStringOf(float red, float green, float blue);

// The swatch that the picker shows beside a color text, 48 by 24.
uikit::Swatch rowThumbnail(std::string_view text);

// The gray around a white swatch.
inline constexpr uikit::Color kBorderColor{0.8, 0.8, 0.8, 1};
// The one text whose swatch has a border; "#ffffff" has none.
inline constexpr std::string_view kWhite = "#FFFFFF";

}  // namespace prefs
