#include "platform/uikit/screen.h"

namespace uikit {

void Screen::present(std::shared_ptr<Alert> alert) {
  alerts_.push_back(std::move(alert));
}

Alert* Screen::topmost() const {
  return alerts_.empty() ? nullptr : alerts_.back().get();
}

bool Screen::press(int button) {
  if (alerts_.empty()) return false;
  if (button < 0 || button >= static_cast<int>(alerts_.back()->buttons().size())) return false;
  const std::shared_ptr<Alert> pressed = std::move(alerts_.back());
  alerts_.pop_back();
  pressed->runButton(button);
  return true;
}

void Screen::dismissAll() {
  alerts_.clear();
}

}  // namespace uikit
