#include "host/unseen_settings.h"

namespace host {
namespace {

// Alerts are dropped.
preferences::Environment beside(const preferences::Environment& shown,
                                foundation::NotificationCenter& center,
                                foundation::MainQueue& clock) {
  return {shown.root,
          shown.preferences,
          center,
          clock,
          shown.darwinCenter,
          shown.collator,
          shown.urls,
          shown.addressBook,
          shown.sounds,
          shown.xml,
          shown.bundle,
          shown.idiom,
          shown.soundFallback,
          nullptr,
          shown.problemHandler,
          {},
          shown.choicesSource};
}

}  // namespace

UnseenSettings::Surroundings::Surroundings(preferences::Environment& shown)
    : environment(beside(shown, center, clock)) {}

UnseenSettings::UnseenSettings(preferences::Environment& shown,
                               DeferredNotifications& notifications)
    : UnseenSettings(notifications, std::make_unique<Surroundings>(shown)) {}

// What fails is reported at once, as what the shown pages do.
UnseenSettings::UnseenSettings(DeferredNotifications& notifications,
                               std::unique_ptr<Surroundings> surroundings)
    : Settings(surroundings->environment, surroundings->clock, notifications,
               [] { return Problems(); }),
      surroundings_(std::move(surroundings)) {}

}  // namespace host
