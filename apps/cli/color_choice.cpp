#include "apps/cli/color_choice.h"

#include <algorithm>
#include <charconv>

#include "apps/cli/page_on_show.h"
#include "prefs/colorpicker/ZorvekColorPickerQuorvantis.h"
#include "prefs/colorpicker/view_tags.h"

namespace cli {
namespace {

constexpr std::string_view kPicker = "ZorvekColorPickerQuorvantis";

char upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// "#0A7FFF"; nothing for what is no such text, of letters of either case.
std::optional<std::string> hexIn(std::string text) {
  const auto isDigit = [](char c) { return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F'); };
  std::ranges::transform(text, text.begin(), upper);
  if (text.size() != 7 || text[0] != '#' || !std::all_of(text.begin() + 1, text.end(), isDigit))
    return std::nullopt;
  return text;
}

// Where the picker has the colour of that name or text.
std::optional<uikit::IndexPath> presetPath(const std::string& text) {
  const std::string hex = hexIn(text).value_or(text);
  const auto palettes = prefs::colorPalettes();
  for (int section = 0; section < prefs::kCustomSection; ++section) {
    const auto colors = palettes[section].colors;
    const auto found = std::ranges::find_if(colors, [&](const prefs::ColorEntry& each) {
      return each.name == text || each.hex == hex;
    });
    if (found != colors.end())
      return uikit::IndexPath{section, static_cast<int>(found - colors.begin())};
  }
  return std::nullopt;
}

double component(const std::string& hex, std::size_t first) {
  int value = 0;
  std::from_chars(hex.data() + first, hex.data() + first + 2, value, 16);
  return value;
}

// Letting go of a slider takes the mixed colour where it is the chosen one already; else tapping it
// does.
host::Outcome<Done> mix(host::SettingsApplication& application, const std::string& hex) {
  constexpr int kTags[] = {prefs::kRedSliderTag, prefs::kGreenSliderTag, prefs::kBlueSliderTag};
  for (std::size_t i = 0; i < std::size(kTags); ++i) {
    const bool last = i + 1 == std::size(kTags);
    const auto dragged = application.drag(kTags[i], component(hex, 1 + 2 * i), last);
    if (!dragged) return dragged;
  }
  return application.select(prefs::kCustomSection, 0);
}

}  // namespace

bool leadsToColorPicker(std::string_view detail) {
  return detail == kPicker;
}

std::string shownColor(const std::string& text) {
  const prefs::ColorEntry* preset = text.starts_with('#') ? prefs::presetColor(text) : nullptr;
  return preset ? std::string(preset->name) + ", " + text : text;
}

std::vector<prefs::ColorEntry> presetColors() {
  std::vector<prefs::ColorEntry> colors;
  for (int section = 0; section < prefs::kCustomSection; ++section)
    for (const prefs::ColorEntry& each : prefs::colorPalettes()[section].colors)
      colors.push_back(each);
  return colors;
}

Outcome<Done> chooseColor(host::SettingsApplication& application,
                          const preferences::PSSpecifier& row, const std::string& text) {
  const auto preset = presetPath(text);
  const auto hex = hexIn(text);
  if (!preset && !hex)
    return Failure{ExitCode::WrongUse,
                   "\"" + row.identifier() +
                       "\" takes the name of a color (choices lists them), none, or #RRGGBB"};
  const auto opened = application.tap(row.identifier());
  if (!opened) return failureOf(opened.error());
  const auto* picker = dynamic_cast<prefs::ZorvekColorPickerQuorvantis*>(application.shownPage());
  if (hex && picker && picker->selectedColor == plist::Value(*hex))
    return Done{};  // its row is ticked already
  const auto chosen =
      preset ? application.select(preset->section, preset->row) : mix(application, *hex);
  if (!chosen) return failureOf(chosen.error());
  return Done{};
}

}  // namespace cli
