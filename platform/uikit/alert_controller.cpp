#include "platform/uikit/alert_controller.h"

namespace uikit {

AlertController::AlertController(std::string title, std::string message, AlertStyle style)
    : style_(style) {
  this->title = std::move(title);
  this->message = std::move(message);
}

std::vector<AlertButton> AlertController::buttons() const {
  std::vector<AlertButton> buttons;
  for (const AlertAction& action : actions_) buttons.push_back({action.title, action.role});
  return buttons;
}

void AlertController::runButton(int index) {
  const auto& handler = actions_[static_cast<std::size_t>(index)].handler;
  if (handler) handler();
}

}  // namespace uikit
