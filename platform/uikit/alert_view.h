#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/uikit/alert.h"

namespace uikit {

class AlertView;

class AlertViewDelegate {
 public:
  virtual ~AlertViewDelegate() = default;
  virtual void alertViewClickedButtonAtIndex(AlertView* alert, int index) = 0;
};

// An alert whose delegate is called with the button that was pressed. The cancel button is index 0,
// the other buttons follow.
class AlertView : public Alert {
 public:
  // initWithTitle:message:delegate:cancelButtonTitle:otherButtonTitles:
  AlertView(std::string title, std::string message, std::weak_ptr<AlertViewDelegate> delegate,
            std::string cancelButtonTitle, std::vector<std::string> otherButtonTitles = {});
  std::string_view className() const override { return "UIAlertView"; }

  // What stands below the message: setValue:forKey: with "accessoryView".
  void setAccessoryView(std::shared_ptr<PickerView> picker) { picker_ = std::move(picker); }

  AlertStyle style() const override { return AlertStyle::Alert; }
  std::vector<AlertButton> buttons() const override { return buttons_; }
  PickerView* picker() const override { return picker_.get(); }
  void runButton(int index) override;

 private:
  std::weak_ptr<AlertViewDelegate> delegate_;
  std::vector<AlertButton> buttons_;
  std::shared_ptr<PickerView> picker_;
};

}  // namespace uikit
