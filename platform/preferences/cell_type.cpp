#include "platform/preferences/cell_type.h"

#include <iterator>

namespace preferences {
namespace {

// In the order of the enumeration.
constexpr std::string_view kNames[] = {
    "PSGroupCell",          "PSLinkCell",    "PSLinkListCell",     "PSListItemCell",
    "PSTitleValueCell",     "PSSliderCell",  "PSSwitchCell",       "PSStaticTextCell",
    "PSEditTextCell",       "PSSegmentCell", "PSGiantIconCell",    "PSGiantCell",
    "PSSecureEditTextCell", "PSButtonCell",  "PSEditTextViewCell", "PSSpinnerCell",
};

}  // namespace

std::optional<CellType> cellTypeNamed(std::string_view name) {
  for (std::size_t i = 0; i < std::size(kNames); ++i)
    if (kNames[i] == name) return static_cast<CellType>(i);
  return std::nullopt;
}

std::string_view nameOf(CellType type) {
  return kNames[static_cast<std::size_t>(type)];
}

}  // namespace preferences
