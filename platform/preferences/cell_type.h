#pragma once

#include <optional>
#include <string_view>

namespace preferences {

// The kinds of rows that a specifier list can name.
enum class CellType {
  PSGroupCell,
  PSLinkCell,
  PSLinkListCell,
  PSListItemCell,
  PSTitleValueCell,
  PSSliderCell,
  PSSwitchCell,
  PSStaticTextCell,
  PSEditTextCell,
  PSSegmentCell,
  PSGiantIconCell,
  PSGiantCell,
  PSSecureEditTextCell,
  PSButtonCell,
  PSEditTextViewCell,
  PSSpinnerCell,
};

std::optional<CellType> cellTypeNamed(std::string_view name);
std::string_view nameOf(CellType type);

// Whether a row of this kind picks one of a list of values.
inline bool hasChoices(CellType type) {
  return type == CellType::PSLinkListCell || type == CellType::PSSegmentCell;
}

}  // namespace preferences
