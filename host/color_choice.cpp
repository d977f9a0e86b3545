#include "host/color_choice.h"

#include <algorithm>
#include <charconv>

#include "host/closest.h"
#include "host/describe.h"
#include "prefs/colorpicker/palettes.h"
#include "prefs/colorpicker/view_tags.h"

namespace host {
namespace {

constexpr std::string_view kPicker = "ZorvekColorPickerQuorvantis";

// "#0A7FFF", from such a text with or without "#", in letters of either case; nothing for any
// other.
std::optional<std::string> hexIn(const std::string& text) {
  std::string hex = lowerCase(text);
  if (!hex.starts_with('#')) hex.insert(0, "#");
  const auto isDigit = [](char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f'); };
  if (hex.size() != 7 || !std::all_of(hex.begin() + 1, hex.end(), isDigit)) return std::nullopt;
  for (char& c : hex)
    if (c >= 'a') c = static_cast<char>(c - 'a' + 'A');
  return hex;
}

// Where the picker has the color of that name or text.
std::optional<Select> presetNamed(const std::string& text) {
  const std::string hex = hexIn(text).value_or(text);
  const auto palettes = prefs::colorPalettes();
  for (int section = 0; section < prefs::kCustomSection; ++section) {
    const auto colors = palettes[section].colors;
    const auto found = std::ranges::find_if(colors, [&](const prefs::ColorEntry& each) {
      return equalInAnyCase(each.name, text) || each.hex == hex ||
             equalInAnyCase(std::string(each.name) + ", " + std::string(each.hex), text);
    });
    if (found != colors.end()) return Select{section, static_cast<int>(found - colors.begin())};
  }
  return std::nullopt;
}

double component(const std::string& hex, std::size_t first) {
  int value = 0;
  std::from_chars(hex.data() + first, hex.data() + first + 2, value, 16);
  return value;
}

// Letting go of a slider takes the mixed color where it is the chosen one already; else tapping it
// does.
Outcome<plist::Value> mix(Application& application, const std::string& hex) {
  constexpr int kTags[] = {prefs::kRedSliderTag, prefs::kGreenSliderTag, prefs::kBlueSliderTag};
  for (std::size_t i = 0; i < std::size(kTags); ++i) {
    const bool last = i + 1 == std::size(kTags);
    const auto dragged = application.perform(Drag{kTags[i], component(hex, 1 + 2 * i), last});
    if (!dragged) return dragged;
  }
  return application.perform(Select{prefs::kCustomSection, 0});
}

// Its row is ticked already.
bool isChosen(const Application& application, const std::string& hex) {
  const Scene scene = describe(application);
  const auto& opener = scene.shown()->opener;
  return opener && opener->value == plist::Value(hex);
}

}  // namespace

bool leadsToColorPicker(std::string_view page) {
  return page == kPicker;
}

bool isColorText(const std::string& text) {
  return prefs::colorPalettes()[prefs::kSpecialSection].colors[0].hex == text ||
         (text.starts_with('#') && hexIn(text));
}

preferences::Choices colorChoices() {
  preferences::Choices choices;
  for (int section = 0; section < prefs::kCustomSection; ++section)
    for (const auto& [name, hex] : prefs::colorPalettes()[section].colors) {
      choices.values.emplace_back(hex);
      choices.titles.emplace_back(name);
    }
  return choices;
}

Outcome<Done> chooseColor(Application& application, const std::string& row,
                          const std::string& text) {
  const auto preset = presetNamed(text);
  const auto hex = hexIn(text);
  if (!preset && !hex)
    return Refusal{RefusalCode::BadValue, "\"" + row +
                                              "\" takes the name of a color, none, or #RRGGBB" +
                                              "; quorvantis choices " + row + " lists them" +
                                              didYouMean(text, colorChoices().titles)};
  const auto opened = application.perform(Tap{row});
  if (!opened) return opened.error();
  if (hex && isChosen(application, *hex)) return Done{};
  const auto chosen = preset ? application.perform(*preset) : mix(application, *hex);
  if (!chosen) return chosen.error();
  return Done{};
}

}  // namespace host
