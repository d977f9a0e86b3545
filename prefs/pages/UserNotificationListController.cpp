#include "prefs/pages/UserNotificationListController.h"

#include "platform/foundation/url.h"
#include "prefs/core/preference_store.h"
#include "prefs/keys.h"
#include "prefs/pages/choice_lists.h"

namespace prefs {
namespace {

constexpr DependencyRule kRules[] = {
    {key::vibrate, key::vibrateduration, By::Interaction},
    {key::flashled, key::flashledduration, By::Interaction},
    {key::sendmessage, key::adressbook, By::CellEnabled},
    {key::sendmessage, key::msgrecipient, By::CellEnabled},
    {key::sendmessage, key::msgtext, By::CellEnabled},
};

}  // namespace

const preferences::Operations UserNotificationListController::ownOperations{
    []() -> preferences::OperationTable {
      return {
          {"valueDataFromTarget:", &UserNotificationListController::valueDataFromTarget},
          {"titlesDataFromTarget:", &UserNotificationListController::titlesDataFromTarget},
          {"contactsValueDataFromTarget:",
           &UserNotificationListController::contactsValueDataFromTarget},
          {"contactsTitlesDataFromTarget:",
           &UserNotificationListController::contactsTitlesDataFromTarget},
          {"testSound", &UserNotificationListController::testSound},
      };
    },
    &DependentListController::ownOperations};

const std::span<const DependencyRule> UserNotificationListController::ownRules = kRules;

plist::Array UserNotificationListController::valueDataFromTarget(foundation::Object*) {
  return soundValues(environment());
}

plist::Array UserNotificationListController::titlesDataFromTarget(foundation::Object*) {
  return soundTitles(environment());
}

plist::Array UserNotificationListController::contactsValueDataFromTarget(foundation::Object*) {
  return contactValues(environment().addressBook);
}

plist::Array UserNotificationListController::contactsTitlesDataFromTarget(foundation::Object*) {
  return contactTitles(environment().addressBook);
}

void UserNotificationListController::testSound() {
  const preferences::PSSpecifier* row = specifierForID(key::playsound);
  const std::string* sound = row ? row->propertyForKey("value").text() : nullptr;
  if (sound && *sound == kNoSound) return;
  environment().sounds.play(sound ? foundation::urlWithString(*sound) : std::nullopt);
}

void UserNotificationListController::setValueForSpecifier(const plist::Value& value,
                                                          preferences::PSSpecifier* specifier) {
  const std::string_view row = specifier ? std::string_view(specifier->identifier()) : "";
  pageWrite(*this, environment().preferences, value,
            row == key::adressbook ? specifierForID(key::msgrecipient) : specifier);
  if (row == key::sendmessage) setSliderEnableDisable();
}

}  // namespace prefs
