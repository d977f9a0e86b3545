#include "prefs/colorpicker/palettes.h"

#include <algorithm>
#include <array>

#include "platform/uikit/color.h"
#include "prefs/colorpicker/color_values.h"

namespace prefs {
namespace {

constexpr ColorEntry kSpecialColors[] = {
    {"None", "none"},
    {"Quorvantis", "#34495F"},
};
constexpr ColorEntry kIOSColors[] = {
    {"Purple", "#5856D6"},     {"System Blue", "#007AFF"}, {"Marine Blue", "#34AADC"},
    {"Light Blue", "#5AC8FA"}, {"Pink", "#FF2D55"},        {"System Red", "#FF3B30"},
    {"Orange", "#FF9500"},     {"Yellow", "#FFCC00"},      {"System Green", "#4CD964"},
    {"Gray", "#8E8E93"},
};
constexpr ColorEntry kCrayonColors[] = {
    {"Snow", "#FFFFFF"},       {"Mercury", "#E6E6E6"},    {"Silver", "#CCCCCC"},
    {"Magnesium", "#B3B3B3"},  {"Aluminum", "#999999"},   {"Nickel", "#808080"},
    {"Tin", "#7F7F7F"},        {"Steel", "#666666"},      {"Iron", "#4C4C4C"},
    {"Tungsten", "#333333"},   {"Lead", "#191919"},       {"Licorice", "#000000"},
    {"Marascino", "#FF0000"},  {"Cayenne", "#800000"},    {"Salmon", "#FF6666"},
    {"Maroon", "#800040"},     {"Strawberry", "#FF0080"}, {"Carnation", "#FF6FCF"},
    {"Magenta", "#FF00FF"},    {"Plum", "#800080"},       {"BubbleGum", "#FF66FF"},
    {"Lavender", "#CC66FF"},   {"Grape", "#8000FF"},      {"Eggplant", "#400080"},
    {"Blueberry", "#0000FF"},  {"Midnight", "#000080"},   {"Orchid", "#6666FF"},
    {"Ocean", "#004080"},      {"Aqua", "#0080FF"},       {"Sky", "#66CCFF"},
    {"Turquoise", "#00FFFF"},  {"Teal", "#008080"},       {"Ice", "#66FFFF"},
    {"Spindrift", "#66FFCC"},  {"Sea Foam", "#00FF80"},   {"Moss", "#008040"},
    {"Spring", "#00FF00"},     {"Clover", "#008000"},     {"Flora", "#66FF66"},
    {"Fern", "#408000"},       {"Lime", "#80FF00"},       {"Honeydew", "#CCFF66"},
    {"Lemon", "#FFFF00"},      {"Asperagus", "#808000"},  {"Banana", "#FFFF66"},
    {"Cantaloupe", "#FFCC66"}, {"Tangerine", "#FF8000"},  {"Mocha", "#804000"},
};
constexpr ColorEntry kCustomColor[] = {
    {"Custom", "custom"},
};

constexpr Palette kPalettes[] = {
    {"Special", kSpecialColors},
    {"iOS Palette", kIOSColors},
    {"Crayons", kCrayonColors},
    {"Custom", kCustomColor},
};

std::array<double, 3> orderOf(const plist::Value& entry) {
  const plist::Dictionary* fields = entry.dictionary();
  const plist::Value* hex = fields ? fields->find("hex") : nullptr;
  const std::string* text = hex ? hex->text() : nullptr;
  const auto [hue, saturation, brightness] =
      uikit::hsbOf(colorFromHexString(text ? std::string_view(*text) : std::string_view()));
  return {hue, saturation, brightness};
}

}  // namespace

std::span<const Palette> colorPalettes() {
  return kPalettes;
}

const ColorEntry* presetColor(std::string_view text) {
  for (const Palette& palette : kPalettes)
    for (const ColorEntry& entry : palette.colors)
      if (entry.hex == text) return &entry;
  return nullptr;
}

plist::Array asArray(std::span<const ColorEntry> colors) {
  plist::Array entries;
  for (const auto& [name, hex] : colors)
    entries.push_back(plist::Dictionary{{"name", name}, {"hex", hex}});
  return entries;
}

plist::Array asArray(std::span<const Palette> palettes) {
  plist::Array entries;
  for (const auto& [title, colors] : palettes)
    entries.push_back(plist::Dictionary{{"title", title}, {"colors", asArray(colors)}});
  return entries;
}

plist::Array sortedByHue(plist::Array entries) {
  std::ranges::stable_sort(entries, [](const plist::Value& a, const plist::Value& b) {
    return orderOf(a) < orderOf(b);
  });
  return entries;
}

}  // namespace prefs
