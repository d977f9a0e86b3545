#include "platform/uikit/picker_view.h"

#include <algorithm>

namespace uikit {

int PickerView::numberOfComponents() {
  const auto source = dataSource.lock();
  return source ? source->numberOfComponentsInPickerView(this) : 0;
}

int PickerView::numberOfRowsInComponent(int component) {
  if (component < 0 || component >= numberOfComponents()) return 0;
  return dataSource.lock()->pickerViewNumberOfRowsInComponent(this, component);
}

std::string PickerView::titleForRowForComponent(int row, int component) {
  const auto owner = delegate.lock();
  return owner ? owner->pickerViewTitleForRowForComponent(this, row, component) : std::string();
}

std::vector<std::string> PickerView::titlesInComponent(int component) {
  std::vector<std::string> titles;
  const int rows = numberOfRowsInComponent(component);
  for (int row = 0; row < rows; ++row) titles.push_back(titleForRowForComponent(row, component));
  return titles;
}

void PickerView::selectRowInComponent(int row, int component, bool) {
  if (!hasRow(row, component)) return;
  const std::size_t index = static_cast<std::size_t>(component);
  if (selected_.size() <= index) selected_.resize(index + 1);
  selected_[index] = row;
}

int PickerView::selectedRowInComponent(int component) {
  const int rows = numberOfRowsInComponent(component);
  const std::size_t index = static_cast<std::size_t>(component);
  const int selected = index < selected_.size() ? selected_[index] : 0;
  return std::min(selected, rows - 1);
}

bool PickerView::turn(int row, int component) {
  if (!hasRow(row, component)) return false;
  selectRowInComponent(row, component, true);
  if (const auto owner = delegate.lock())
    owner->pickerViewDidSelectRowInComponent(this, row, component);
  return true;
}

bool PickerView::hasRow(int row, int component) {
  return row >= 0 && row < numberOfRowsInComponent(component);
}

}  // namespace uikit
