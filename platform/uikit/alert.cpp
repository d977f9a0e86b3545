#include "platform/uikit/alert_controller.h"
#include "platform/uikit/alert_view.h"

namespace uikit {

std::optional<int> Alert::buttonTitled(std::string_view title) const {
  const auto all = buttons();
  for (std::size_t i = 0; i < all.size(); ++i)
    if (all[i].title == title) return static_cast<int>(i);
  return std::nullopt;
}

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

AlertView::AlertView(std::string title, std::string message,
                     std::weak_ptr<AlertViewDelegate> delegate, std::string cancelButtonTitle,
                     std::vector<std::string> otherButtonTitles)
    : delegate_(std::move(delegate)) {
  this->title = std::move(title);
  this->message = std::move(message);
  buttons_.push_back({std::move(cancelButtonTitle), ButtonRole::Cancel});
  for (std::string& other : otherButtonTitles) buttons_.push_back({std::move(other)});
}

void AlertView::runButton(int index) {
  if (const auto delegate = delegate_.lock()) delegate->alertViewClickedButtonAtIndex(this, index);
}

}  // namespace uikit
