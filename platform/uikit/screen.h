#pragma once

#include <memory>
#include <vector>

#include "platform/uikit/alert.h"

namespace uikit {

// The alerts and sheets that stand over the page. A new one covers those that are there; once it
// is removed, they are on top again.
class Screen {
 public:
  void present(std::shared_ptr<Alert> alert);

  const std::vector<std::shared_ptr<Alert>>& alerts() const { return alerts_; }  // topmost last
  Alert* topmost() const;  // null when there is none

  // Presses a button of the topmost alert, which is removed from the screen before its action runs.
  // False when there is no such button, or no alert.
  bool press(int button);

  // Takes all away without pressing anything, as when the application ends.
  void dismissAll();

 private:
  std::vector<std::shared_ptr<Alert>> alerts_;
};

}  // namespace uikit
