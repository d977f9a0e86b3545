#include "host/notification_record.h"

#include <utility>

namespace host {

void NotificationRecord::post(std::string_view name) {
  posted_.push_back({Centre::Darwin, std::string(name), std::nullopt});
  next_.post(name);
}

void NotificationRecord::watch(foundation::NotificationCenter& local) {
  local.setWitness([this](const foundation::Notification& notification) {
    std::optional<std::string> object;
    if (notification.object) object = notification.object->className();
    posted_.push_back({Centre::Local, notification.name, std::move(object)});
  });
}

std::vector<PostedNotification> NotificationRecord::take() {
  return std::exchange(posted_, {});
}

}  // namespace host
