#pragma once

#include <span>
#include <string_view>

#include "platform/plist/value.h"

namespace prefs {

// The colors that the picker offers. `hex` is the color text that is stored, or a word: "none",
// or "custom" for the row whose color the user mixes, which is never stored.
struct ColorEntry {
  std::string_view name, hex;
};

struct Palette {
  std::string_view title;
  std::span<const ColorEntry> colors;
};

// Section by section.
enum PaletteSection { kSpecialSection, kIOSSection, kCrayonsSection, kCustomSection };
std::span<const Palette> colorPalettes();

// The entry whose hex is the text, letter by letter: "#ffffff" is none's. Null where there is none.
const ColorEntry* presetColor(std::string_view text);

// A dictionary of "name" and "hex" for each entry, and of "title" and "colors" for each palette.
plist::Array asArray(std::span<const ColorEntry> colors);
plist::Array asArray(std::span<const Palette> palettes);

// Color entries (dictionaries with a "hex") by ascending hue, then saturation, then brightness:
// the grays first, from black to white. Entries that are equal in all three stay in their order.
plist::Array sortedByHue(plist::Array entries);

}  // namespace prefs
