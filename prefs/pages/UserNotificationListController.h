#pragma once

#include "prefs/pages/DependentListController.h"

namespace prefs {

// How a profile notifies its user: alert, message, vibration, flash, sound.
class UserNotificationListController : public DependentListController {
 public:
  using DependentListController::DependentListController;
  std::string_view className() const override { return "UserNotificationListController"; }
  std::span<const DependencyRule> rules() const override { return ownRules; }
  static const std::span<const DependencyRule> ownRules;

  plist::Array valueDataFromTarget(foundation::Object* target);
  plist::Array titlesDataFromTarget(foundation::Object* target);
  plist::Array contactsValueDataFromTarget(foundation::Object* target);
  plist::Array contactsTitlesDataFromTarget(foundation::Object* target);

  // Plays what the row "playsound" shows now.
  void testSound();

  // A contact is stored under "msgrecipient". Only "sendmessage" is followed by an evaluation: the
  // duration rows lag behind their switches.
  void setValueForSpecifier(const plist::Value& value,
                            preferences::PSSpecifier* specifier) override;

  const preferences::Operations& operations() const override { return ownOperations; }
  static const preferences::Operations ownOperations;
};

}  // namespace prefs
