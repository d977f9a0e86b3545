#pragma once

#include "host/device.h"
#include "host/settings.h"

namespace host {

// The settings of a device on which a face shows pages. They are read and changed on other pages,
// which nobody sees, in a time of their own; the shown ones don't notice.
class UnseenSettings : public Settings {
 public:
  explicit UnseenSettings(Device& device);

 private:
  struct Surroundings {
    explicit Surroundings(Device& device);
    foundation::ManualQueue clock;
    foundation::NotificationCenter center;
    preferences::Environment environment;
  };
  UnseenSettings(Device& device, std::unique_ptr<Surroundings> surroundings);

  std::unique_ptr<Surroundings> surroundings_;
};

}  // namespace host
