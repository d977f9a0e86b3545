#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/foundation/notification_center.h"
#include "platform/services.h"

namespace host {

enum class Centre { Darwin, Local };

struct PostedNotification {
  Centre centre;
  std::string name;
  std::optional<std::string> object;  // the poster's class name
};

// A cross-process centre that hands every post on to another one and keeps a record of it, in one
// order with the posts of the in-process centres that it watches.
class NotificationRecord : public platform::DarwinNotificationCenter {
 public:
  explicit NotificationRecord(platform::DarwinNotificationCenter& next) : next_(next) {}

  void post(std::string_view name) override;
  void watch(foundation::NotificationCenter& local);  // for as long as both live

  std::vector<PostedNotification> take();  // all since the last take

 private:
  platform::DarwinNotificationCenter& next_;
  std::vector<PostedNotification> posted_;
};

}  // namespace host
