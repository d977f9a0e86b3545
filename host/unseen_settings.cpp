#include "host/unseen_settings.h"

#include "platform/preferences/PSSpecifier.h"
#include "prefs/keys.h"

namespace host {
namespace {

// Alerts are dropped.
preferences::Environment beside(const preferences::Environment& shown,
                                foundation::NotificationCenter& center,
                                foundation::MainQueue& clock) {
  return {.root = shown.root,
          .preferences = shown.preferences,
          .defaultCenter = center,
          .mainQueue = clock,
          .darwinCenter = shown.darwinCenter,
          .collator = shown.collator,
          .urls = shown.urls,
          .addressBook = shown.addressBook,
          .sounds = shown.sounds,
          .xml = shown.xml,
          .bundle = shown.bundle,
          .idiom = shown.idiom,
          .soundFallback = shown.soundFallback,
          .problemHandler = shown.problemHandler,
          .choicesSource = shown.choicesSource};
}

}  // namespace

preferences::ChoicesAnswer contactsWhenOpened(std::string_view, const preferences::PSSpecifier& row,
                                              preferences::ChoicesFor what) {
  const bool leadsToContacts = row.identifier() == std::string_view(prefs::key::adressbook);
  if (what == preferences::ChoicesFor::Opening || !leadsToContacts) return std::nullopt;
  return nullptr;
}

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
