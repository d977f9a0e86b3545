#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foundation/object.h"
#include "platform/uikit/picker_view.h"

namespace uikit {

enum class AlertStyle { Alert, ActionSheet };
enum class ButtonRole { Default, Cancel, Destructive };

struct AlertButton {
  std::string title;
  ButtonRole role = ButtonRole::Default;
};

// What stands over the page until one of its buttons is pressed. Made as an AlertView or an
// AlertController; shown by a Screen.
class Alert : public foundation::Object {
 public:
  std::string title, message;
  int tag = 0;

  virtual AlertStyle style() const = 0;
  virtual std::vector<AlertButton> buttons() const = 0;
  virtual PickerView* picker() const { return nullptr; }

  // The first button of that title; empty when there is none.
  std::optional<int> buttonTitled(std::string_view title) const;

  // What the button of that index is there for. Only a Screen calls it, once the alert is off.
  virtual void runButton(int index) = 0;
};

}  // namespace uikit
