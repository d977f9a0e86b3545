#include "prefs/profiles/ProfilesListController.h"

#include "prefs/core/names.h"
#include "prefs/keys.h"
#include "prefs/profiles/profile_settings.h"
#include "prefs/profiles/triggers.h"

namespace prefs {
namespace {

constexpr foundation::Nanoseconds kPickerRelease{500'000'000};

// "…%@…" with the text in place of the mark.
std::string filled(std::string format, const std::string& text) {
  constexpr std::string_view kMark = "%@";
  return format.replace(format.find(kMark), kMark.size(), text);
}

}  // namespace

const preferences::Operations ProfilesListController::ownOperations{
    []() -> preferences::OperationTable {
      return {
          {"specifiers", &ProfilesListController::loadRows},
          {"showProfileManagerBar", &ProfilesListController::showProfileManagerBar},
          {"showProfileManagerBtn:", &ProfilesListController::showProfileManagerBtn},
          {"showProfileManagerAtView:", &ProfilesListController::showProfileManagerAtView},
          {"resetSpecifier:withValue:", &ProfilesListController::resetSpecifierWithValue},
          {"setProfileActive:", &ProfilesListController::setProfileActive},
          {"showInfoAlertWithTitle:message:",
           &ProfilesListController::showInfoAlertWithTitleMessage},
          {"showActionAlertWithTitle:message:button:tag:",
           &ProfilesListController::showActionAlertWithTitleMessageButtonTag},
          {"showPickerAlertWithTile:message:btnName:tag:",
           &ProfilesListController::showPickerAlertWithTileMessageBtnNameTag},
          {"getFileNameForProfileID:", &ProfilesListController::getFileNameForProfileID},
          {"loadProfileBtn", &ProfilesListController::loadProfileBtn},
          {"saveProfileBtn", &ProfilesListController::saveProfileBtn},
          {"deleteProfileBtn", &ProfilesListController::deleteProfileBtn},
          {"saveProfile:overwriteIfExists:", &ProfilesListController::saveProfileOverwriteIfExists},
          {"loadProfile:", &ProfilesListController::loadProfile},
          {"deleteProfile:", &ProfilesListController::deleteProfile},
          {"cleanUpPickerAndRelodSpecifers",
           &ProfilesListController::cleanUpPickerAndRelodSpecifers},
          {"numberOfComponentsInPickerView:",
           &ProfilesListController::numberOfComponentsInPickerView},
          {"pickerView:numberOfRowsInComponent:",
           &ProfilesListController::pickerViewNumberOfRowsInComponent},
          {"pickerView:titleForRow:forComponent:",
           &ProfilesListController::pickerViewTitleForRowForComponent},
          {"pickerView:didSelectRow:inComponent:",
           &ProfilesListController::pickerViewDidSelectRowInComponent},
          {"alertView:clickedButtonAtIndex:",
           &ProfilesListController::alertViewClickedButtonAtIndex},
          {"percentageValueDataFromTarget:",
           &ProfilesListController::percentageValueDataFromTarget},
          {"percentagetitlesDataFromTarget:",
           &ProfilesListController::percentagetitlesDataFromTarget},
          {"viewDidLoad", &ProfilesListController::viewDidLoad},
      };
    },
    &PSListController::ownOperations};

void ProfilesListController::resetSpecifierWithValue(const std::string& identifier, float value) {
  preferences::PSSpecifier* specifier = specifierForID(identifier);
  setPreferenceValueSpecifier(value, specifier);
  reloadSpecifier(specifier);
}

void ProfilesListController::setProfileActive(bool active) {
  resetSpecifierWithValue(std::string(key::profileactive), active ? 1.0f : 0.0f);
  (void)environment().preferences.synchronize();
}

std::string ProfilesListController::getFileNameForProfileID(std::int32_t profileID) {
  return profilePath(profileID);
}

void ProfilesListController::saveProfileOverwriteIfExists(std::int32_t row, bool overwrite) {
  if (!lists_.hasRow(row) || lists_.profileIDArray.size() != lists_.fileNameArray.size())
    return reportNothingDone("saved", row);
  const std::string& profileID = lists_.profileIDArray[row];
  const SaveResult saved =
      saveProfile(environment(), profileID, lists_.fileNameArray[row],
                  overwrite ? Existing::Overwrite : Existing::Keep, AfterFailure::GoOn);
  if (saved.outcome == SaveOutcome::Exists) return confirmOverwrite(row);
  if (saved.failure && saved.outcome != SaveOutcome::NotRemembered)
    report(kNotSaved, *saved.failure);
  const std::string trigger =
      row < kBatteryLevels ? filled("Battery %@%", profileID) : lists_.profileNameArray[row];
  showInfoAlertWithTitleMessage(
      "Success",
      filled(overwrite
                 ? "The settings for the battery profile trigger - %@ - were successfully "
                   "overwritten!"
                 : "The current settings were successfully saved as a profile for trigger: %@",
             trigger));
  cleanUpPickerAndRelodSpecifers();
}

void ProfilesListController::loadProfile(std::int32_t row) {
  if (!lists_.hasRow(row)) return reportNothingDone("loaded", row);
  const auto loaded = loadProfileAtPath(lists_.fileNameArray[row]);
  if (!loaded) report(loaded.error());
}

platform::Result<LoadedProfile> ProfilesListController::loadProfileAtPath(
    const std::string& path, AfterFailure afterFailure) {
  const auto guarded = environment().guard({preferences::ProfileStep::Load, path});
  auto loaded = prefs::loadProfile(environment(), path);
  if (!loaded) return loaded.error();
  if (!loaded->missing.empty()) report(loaded->missing);
  if (loaded->unstored && afterFailure == AfterFailure::Stop) return loaded;
  setProfileActive(loaded->active);
  environment().darwinCenter.post(kPrefsNotification);
  cleanUpPickerAndRelodSpecifers();
  return loaded;
}

void ProfilesListController::deleteProfile(std::int32_t row) {
  if (!lists_.hasRow(row)) return reportNothingDone("deleted", row);
  const auto deleted = prefs::deleteProfile(environment(), lists_.fileNameArray[row]);
  if (!deleted) report(kNotDeleted, deleted.error());
  showInfoAlertWithTitleMessage(
      "Done", filled("The profile %@ was successfully deleted!", lists_.profileNameArray[row]));
  cleanUpPickerAndRelodSpecifers();
}

void ProfilesListController::cleanUpPickerAndRelodSpecifers() {
  reloadSpecifiers();
  environment().defaultCenter.postNotificationName(kReloadSpecifiersNotification, this);
  environment().mainQueue.after(kPickerRelease, [page = self()] {
    page->lists_.profileNameArray.clear();
    page->lists_.fileNameArray.clear();
    page->picker_.reset();
  });
}

plist::Array ProfilesListController::percentageValueDataFromTarget(foundation::Object*) {
  return triggerValues();
}

plist::Array ProfilesListController::percentagetitlesDataFromTarget(foundation::Object*) {
  return triggerTitles();
}

void ProfilesListController::viewDidLoad() {
  PSListController::viewDidLoad();
  navigationItem.rightBarButtonItem = std::make_shared<uikit::BarButtonItem>(
      uikit::BarButtonSystemItem::Compose, weak_from_this(), "showProfileManagerBar");
}

void ProfilesListController::report(const platform::Error& error) const {
  if (environment().problemHandler) environment().problemHandler(error);
}

void ProfilesListController::report(const std::string& problem) const {
  report(platform::Error{.what = problem});
}

void ProfilesListController::report(std::string_view notDone, const platform::Error& error) const {
  if (error.kind == platform::ErrorKind::Unconfirmed) return report(error);
  report(platform::Error{.what = std::string(notDone)}.because(error).as(error.kind));
}

void ProfilesListController::reportNothingDone(std::string_view done, std::int32_t row) const {
  std::string why = "the picker has no row " + std::to_string(row);
  if (lists_.profileNameArray.empty())
    why = picker_ ? "the picker has no rows"
                  : "the picker's rows were dropped after the last change; open it again";
  report("nothing was " + std::string(done) + ": " + why);
}

std::shared_ptr<ProfilesListController> ProfilesListController::self() {
  return std::static_pointer_cast<ProfilesListController>(shared_from_this());
}

}  // namespace prefs
