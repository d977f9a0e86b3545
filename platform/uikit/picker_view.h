#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/uikit/view.h"

namespace uikit {

class PickerView;

// What a picker offers. Asked afresh each time; a picker without a source, or whose source is
// destroyed, has no rows.
class PickerViewDataSource {
 public:
  virtual ~PickerViewDataSource() = default;
  virtual int numberOfComponentsInPickerView(PickerView* picker) = 0;
  virtual int pickerViewNumberOfRowsInComponent(PickerView* picker, int component) = 0;
};

class PickerViewDelegate {
 public:
  virtual ~PickerViewDelegate() = default;
  virtual std::string pickerViewTitleForRowForComponent(PickerView* picker, int row,
                                                        int component) = 0;
  // The user turned a wheel.
  virtual void pickerViewDidSelectRowInComponent(PickerView* picker, int row, int component) = 0;
};

// Wheels (components) of rows, one row of each selected.
class PickerView : public View {
 public:
  std::string_view className() const override { return "UIPickerView"; }

  std::weak_ptr<PickerViewDataSource> dataSource;
  std::weak_ptr<PickerViewDelegate> delegate;
  bool showsSelectionIndicator = false;

  int numberOfComponents();
  int numberOfRowsInComponent(int component);  // 0 for a component that isn't there
  std::string titleForRowForComponent(int row, int component);
  std::vector<std::string> titlesInComponent(int component);

  // A row that isn't there is not selected.
  void selectRowInComponent(int row, int component, bool animated);
  // At first row 0; -1 when the component has no rows.
  int selectedRowInComponent(int component);

  // What the user does: selects, and calls the delegate. False where there is no such row.
  bool turn(int row, int component);

 private:
  bool hasRow(int row, int component);

  std::vector<int> selected_;
};

}  // namespace uikit
