#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/uikit/alert.h"
#include "platform/uikit/navigation_item.h"

namespace uikit {

struct AlertAction {
  std::string title;
  ButtonRole role = ButtonRole::Default;
  std::function<void()> handler;  // may be empty
};

// Where a sheet points to on a tablet: a bar button item, or a rectangle of a view; both null:
// nowhere.
struct PopoverAnchor {
  std::shared_ptr<BarButtonItem> barButtonItem;
  std::weak_ptr<View> sourceView;
  Rect sourceRect;
};

// An alert or a sheet of actions, each of which is a button and runs its own handler.
class AlertController : public Alert {
 public:
  // alertControllerWithTitle:message:preferredStyle:
  AlertController(std::string title, std::string message, AlertStyle style);
  std::string_view className() const override { return "UIAlertController"; }

  PopoverAnchor popover;

  void addAction(AlertAction action) { actions_.push_back(std::move(action)); }

  AlertStyle style() const override { return style_; }
  std::vector<AlertButton> buttons() const override;
  void runButton(int index) override;

 private:
  AlertStyle style_;
  std::vector<AlertAction> actions_;
};

}  // namespace uikit
