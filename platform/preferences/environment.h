#pragma once

#include <functional>
#include <string>

#include "platform/foundation/device_root.h"
#include "platform/foundation/fallback_folder.h"
#include "platform/foundation/main_queue.h"
#include "platform/foundation/notification_center.h"
#include "platform/foundation/preferences.h"
#include "platform/preferences/bundle.h"
#include "platform/services.h"
#include "platform/uikit/geometry.h"
#include "platform/uikit/screen.h"

namespace preferences {

// The device and the application that a page runs in, handed to every page.
struct Environment {
  foundation::DeviceRoot& root;
  foundation::Preferences& preferences;
  foundation::NotificationCenter& defaultCenter;
  foundation::MainQueue& mainQueue;
  platform::DarwinNotificationCenter& darwinCenter;
  platform::Collator& collator;
  platform::Urls& urls;
  platform::AddressBook& addressBook;
  platform::SystemSounds& sounds;
  platform::XmlPropertyLists& xml;
  const Bundle& bundle;
  uikit::Idiom idiom = uikit::Idiom::Phone;
  // The desktop's own sounds, in place of a sound folder that the root lacks.
  foundation::FallbackFolder soundFallback{};
  uikit::Screen* screen = nullptr;    // where alerts are shown; without one they are dropped
  platform::Report problemHandler{};  // for what the pages themselves pass over; may be empty
};

}  // namespace preferences
