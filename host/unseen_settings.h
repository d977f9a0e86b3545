#pragma once

#include <memory>

#include "host/settings.h"
#include "platform/foundation/notification_center.h"

namespace host {

// A source of choices for pages that nobody sees: of contacts it has none for the row that leads to
// them, so that an address book that doesn't answer stops nobody who hasn't asked for contacts.
preferences::ChoicesAnswer contactsWhenOpened(std::string_view pageClass,
                                              const preferences::PSSpecifier& row,
                                              preferences::ChoicesFor what);

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
