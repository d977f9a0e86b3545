#include "prefs/colorpicker/hue_order.h"

#include <algorithm>
#include <array>

#include "platform/uikit/hsb.h"
#include "prefs/colorpicker/color_values.h"

namespace prefs {
namespace {

std::array<double, 3> orderOf(const plist::Value& entry) {
  const plist::Dictionary* fields = entry.dictionary();
  const plist::Value* hex = fields ? fields->find("hex") : nullptr;
  const std::string* text = hex ? hex->text() : nullptr;
  const auto [hue, saturation, brightness] =
      uikit::hsbOf(colorFromHexString(text ? std::string_view(*text) : std::string_view()));
  return {hue, saturation, brightness};
}

}  // namespace

plist::Array sortedByHue(plist::Array entries) {
  std::ranges::stable_sort(entries, [](const plist::Value& a, const plist::Value& b) {
    return orderOf(a) < orderOf(b);
  });
  return entries;
}

}  // namespace prefs
