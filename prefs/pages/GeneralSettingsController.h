#pragma once

#include "platform/preferences/PSListController.h"

namespace prefs {

struct SavedProfiles;

// The page of general options. Its lists are built afresh each time that a row asks for them.
class GeneralSettingsController : public preferences::PSListController {
 public:
  using PSListController::PSListController;
  std::string_view className() const override { return "GeneralSettingsController"; }

  // The action that a tap runs and the one that a hold runs: the same choices, as two pairs, so
  // that each row names its own.
  plist::Array tapValueDataFromTarget(foundation::Object* target);
  plist::Array tapDataFromTarget(foundation::Object* target);
  plist::Array holdValueDataFromTarget(foundation::Object* target);
  plist::Array holdDataFromTarget(foundation::Object* target);

  // Saved profiles, paths and titles with descriptions.
  plist::Array valueDataFromTarget(foundation::Object* target);
  plist::Array titlesDataFromTarget(foundation::Object* target);

  const preferences::Operations& operations() const override { return ownOperations; }
  static const preferences::Operations ownOperations;

 private:
  SavedProfiles profiles();
};

}  // namespace prefs
