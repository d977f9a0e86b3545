#include "prefs/pages/GeneralSettingsController.h"

#include "prefs/profiles/saved_profiles.h"

namespace prefs {
namespace {

struct Action {
  int code;  // what is stored, and what the extension acts on
  std::string_view title;
};
constexpr Action kActions[] = {{200, "Toggle Quorvantis"}, {201, "Toggle Low Power Mode"}};

plist::Array actionCodes() {
  plist::Array codes;
  for (const Action& action : kActions) codes.emplace_back(action.code);
  return codes;
}

plist::Array actionTitles() {
  plist::Array titles;
  for (const Action& action : kActions) titles.emplace_back(action.title);
  return titles;
}

}  // namespace

const preferences::Operations GeneralSettingsController::ownOperations{
    []() -> preferences::OperationTable {
      return {
          {"specifiers", &GeneralSettingsController::loadRows},
          {"tapValueDataFromTarget:", &GeneralSettingsController::tapValueDataFromTarget},
          {"tapDataFromTarget:", &GeneralSettingsController::tapDataFromTarget},
          {"holdValueDataFromTarget:", &GeneralSettingsController::holdValueDataFromTarget},
          {"holdDataFromTarget:", &GeneralSettingsController::holdDataFromTarget},
          {"valueDataFromTarget:", &GeneralSettingsController::valueDataFromTarget},
          {"titlesDataFromTarget:", &GeneralSettingsController::titlesDataFromTarget},
      };
    },
    &PSListController::ownOperations};

plist::Array GeneralSettingsController::tapValueDataFromTarget(foundation::Object*) {
  return actionCodes();
}

plist::Array GeneralSettingsController::tapDataFromTarget(foundation::Object*) {
  return actionTitles();
}

plist::Array GeneralSettingsController::holdValueDataFromTarget(foundation::Object*) {
  return actionCodes();
}

plist::Array GeneralSettingsController::holdDataFromTarget(foundation::Object*) {
  return actionTitles();
}

SavedProfiles GeneralSettingsController::profiles() {
  return readForBoth([this] { return savedProfiles(environment(), TitleForm::WithDescription); });
}

plist::Array GeneralSettingsController::valueDataFromTarget(foundation::Object*) {
  return asArray(profiles().paths);
}

plist::Array GeneralSettingsController::titlesDataFromTarget(foundation::Object*) {
  return asArray(profiles().titles);
}

}  // namespace prefs
