#pragma once

#include "platform/preferences/PSListController.h"

namespace prefs {

struct SavedProfiles;

// The page that the Settings application opens first.
class quorvantisprefsListController : public preferences::PSListController {
 public:
  using PSListController::PSListController;
  ~quorvantisprefsListController() override;
  std::string_view className() const override { return "quorvantisprefsListController"; }

  const Specifiers& specifiers() override;

  void followMe(foundation::Object* sender);
  void donate(foundation::Object* sender);
  void test() {}

  // Saved profiles, paths and titles with descriptions.
  plist::Array valueDataFromTarget(foundation::Object* target);
  plist::Array titlesDataFromTarget(foundation::Object* target);

  // The battery log, the last stored entry first; values and titles are the same list. Empty where
  // the log can't be read or isn't an array.
  plist::Array batteryLogValueDataFromTarget(foundation::Object* target);
  plist::Array batteryLogTitlesDataFromTarget(foundation::Object* target);

  void relodSpecifers();
  void viewDidLoad() override;

  const preferences::Operations& operations() const override { return ownOperations; }
  static const preferences::Operations ownOperations;

 private:
  SavedProfiles profiles();
};

}  // namespace prefs
