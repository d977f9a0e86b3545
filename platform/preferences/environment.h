#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/foundation/device_root.h"
#include "platform/foundation/fallback_folder.h"
#include "platform/foundation/main_queue.h"
#include "platform/foundation/notification_center.h"
#include "platform/foundation/preferences.h"
#include "platform/preferences/bundle.h"
#include "platform/preferences/choices.h"
#include "platform/services.h"
#include "platform/uikit/geometry.h"
#include "platform/uikit/screen.h"

namespace preferences {

// What is about to be done with a profile.
struct ProfileStep {
  enum What { Load, Save, Import, Delete };
  What what;
  const std::string& path;
  plist::Bytes written{};  // the new file, of a save and an import
};
// Is called just before it is done; what it gives is destroyed once it has been done or has failed.
using ProfileGuard = std::function<std::shared_ptr<void>(const ProfileStep& step)>;

// What a page asks for a row's choices before it asks the row's own data sources; these are asked
// where there is no answer. Null: not yet, and the row keeps those that it has.
using ChoicesAnswer = std::optional<std::shared_ptr<const Choices>>;
enum class ChoicesFor { Opening, Showing };  // the list itself, or the row that leads to it
using ChoicesSource = std::function<ChoicesAnswer(std::string_view pageClass,
                                                  const PSSpecifier& row, ChoicesFor what)>;

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
  ProfileGuard profileGuard{};        // may be empty
  ChoicesSource choicesSource{};      // may be empty

  std::shared_ptr<void> guard(const ProfileStep& step) const {
    return profileGuard ? profileGuard(step) : nullptr;
  }
};

}  // namespace preferences
