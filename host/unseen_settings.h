#pragma once

#include <memory>

#include "host/settings.h"
#include "platform/foundation/notification_center.h"

namespace host {

// The settings of an environment in which a face shows pages. They are read and changed on other
// pages, which nobody sees, in a time of their own; the shown ones don't notice.
class UnseenSettings : public Settings {
 public:
  // `notifications`: what that environment posts to.
  UnseenSettings(preferences::Environment& shown, DeferredNotifications& notifications);

 private:
  struct Surroundings {
    explicit Surroundings(preferences::Environment& shown);
    foundation::ManualQueue clock;
    foundation::NotificationCenter center;
    preferences::Environment environment;
  };
  UnseenSettings(DeferredNotifications& notifications, std::unique_ptr<Surroundings> surroundings);

  std::unique_ptr<Surroundings> surroundings_;
};

}  // namespace host
