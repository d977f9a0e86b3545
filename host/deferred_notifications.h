#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/services.h"

namespace host {

// Cross-process notifications that can be held back until what they announce has been stored.
class DeferredNotifications : public platform::DarwinNotificationCenter {
 public:
  explicit DeferredNotifications(platform::DarwinNotificationCenter& center) : center_(center) {}

  void post(std::string_view name) override {
    if (!held_) return center_.post(name);
    names_.emplace_back(name);
  }

  void hold() { held_ = true; }
  // Posts what was held, in order.
  void release() {
    held_ = false;
    for (const std::string& name : std::exchange(names_, {})) center_.post(name);
  }
  void drop() {
    held_ = false;
    names_.clear();
  }

 private:
  platform::DarwinNotificationCenter& center_;
  bool held_ = false;
  std::vector<std::string> names_;
};

}  // namespace host
