#include "prefs/profiles/ProfilesListController.h"

#include <algorithm>
#include <cerrno>

#include "platform/foundation/text.h"
#include "platform/uikit/alert_controller.h"
#include "prefs/core/names.h"
#include "prefs/core/preference_store.h"
#include "prefs/profiles/profile_settings.h"
#include "prefs/profiles/saved_profiles.h"
#include "prefs/profiles/triggers.h"

namespace prefs {
namespace {

enum Tag : std::int32_t { kLoadTag = 223, kSaveTag = 224, kDeleteTag = 225, kOverwriteTag = 226 };

constexpr int kConfirmButton = 1;
constexpr uikit::Rect kPickerFrame{25, 30, 230, 60};
constexpr foundation::Nanoseconds kPickerRelease{500'000'000};

// "…%@…" with the text in place of the mark.
std::string filled(std::string format, const std::string& text) {
  constexpr std::string_view kMark = "%@";
  return format.replace(format.find(kMark), kMark.size(), text);
}

uikit::PopoverAnchor popoverAt(foundation::Object* anchor) {
  uikit::PopoverAnchor popover;
  if (!anchor) return popover;
  const auto held = anchor->weak_from_this().lock();
  popover.barButtonItem = std::dynamic_pointer_cast<uikit::BarButtonItem>(held);
  if (const auto view = std::dynamic_pointer_cast<uikit::View>(held)) {
    popover.sourceView = view;
    popover.sourceRect = {0, 0, view->frame.width, view->frame.height};
  }
  return popover;
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

const preferences::PSListController::Specifiers& ProfilesListController::specifiers() {
  if (!specifiers_)
    specifiers_ = loadSpecifiersFromPlistNameTarget("ProfilesListController", *this);
  return *specifiers_;
}

void ProfilesListController::showProfileManagerBar() {
  showProfileManagerAtView(navigationItem.rightBarButtonItem.get());
}

void ProfilesListController::showProfileManagerBtn(preferences::PSSpecifier* specifier) {
  showProfileManagerAtView(specifier ? specifier->cellObject() : nullptr);
}

void ProfilesListController::showProfileManagerAtView(foundation::Object* anchor) {
  auto sheet = std::make_shared<uikit::AlertController>(
      "Profile manager",
      "Loading a profile will overwrite all current settings. Deleting a profile will remove the "
      "profile permanently.",
      uikit::AlertStyle::ActionSheet);
  using uikit::ButtonRole;
  sheet->addAction({"Load", ButtonRole::Default, [page = self()] { page->loadProfileBtn(); }});
  sheet->addAction({"Save", ButtonRole::Default, [page = self()] { page->saveProfileBtn(); }});
  sheet->addAction(
      {"Delete", ButtonRole::Destructive, [page = self()] { page->deleteProfileBtn(); }});
  sheet->addAction({"Cancel", ButtonRole::Cancel, {}});
  sheet->popover = popoverAt(anchor);
  show(std::move(sheet));
}

void ProfilesListController::resetSpecifierWithValue(const std::string& identifier, float value) {
  preferences::PSSpecifier* specifier = specifierForID(identifier);
  setPreferenceValueSpecifier(value, specifier);
  reloadSpecifier(specifier);
}

void ProfilesListController::setProfileActive(bool active) {
  resetSpecifierWithValue(std::string(kProfileActive), active ? 1.0f : 0.0f);
  (void)environment().preferences.synchronize();
}

void ProfilesListController::showInfoAlertWithTitleMessage(const std::string& title,
                                                           const std::string& message) {
  show(std::make_shared<uikit::AlertView>(title, message, self(), "Ok"));
}

void ProfilesListController::showActionAlertWithTitleMessageButtonTag(const std::string& title,
                                                                      const std::string& message,
                                                                      const std::string& button,
                                                                      std::int32_t tag) {
  auto alert = std::make_shared<uikit::AlertView>(title, message, self(), "Cancel",
                                                  std::vector<std::string>{button});
  alert->tag = tag;
  show(std::move(alert));
}

void ProfilesListController::showPickerAlertWithTileMessageBtnNameTag(const std::string& title,
                                                                      const std::string& message,
                                                                      const std::string& btnName,
                                                                      std::int32_t tag) {
  const auto entries = environment().root.contentsOfDirectory(kDocuments);
  if (tag != kSaveTag && (!entries || entries->empty())) {
    if (!entries && entries.error().code != ENOENT) report(entries.error().message());
    return showInfoAlertWithTitleMessage("Error", "No profiles found");
  }

  lists_ = makeLists(tag);
  auto alert = std::make_shared<uikit::AlertView>(title, message, self(), "Cancel",
                                                  std::vector<std::string>{btnName});
  picker_ = makePicker();
  alert->setAccessoryView(picker_);
  alert->tag = tag;
  show(std::move(alert));
  if (tag == kSaveTag) selectTriggerSavedLast();
}

std::string ProfilesListController::getFileNameForProfileID(std::int32_t profileID) {
  return profilePath(profileID);
}

void ProfilesListController::loadProfileBtn() {
  showPickerAlertWithTileMessageBtnNameTag("Load profile", "Select the profile to load", "Load",
                                           kLoadTag);
}

void ProfilesListController::saveProfileBtn() {
  showPickerAlertWithTileMessageBtnNameTag("Save profile", "Select the trigger for the profile",
                                           "Save", kSaveTag);
}

void ProfilesListController::deleteProfileBtn() {
  showPickerAlertWithTileMessageBtnNameTag("Delete profile", "Select the profile to delete",
                                           "Delete", kDeleteTag);
}

void ProfilesListController::saveProfileOverwriteIfExists(std::int32_t row, bool overwrite) {
  if (!lists_.hasRow(row) || lists_.profileIDArray.size() != lists_.fileNameArray.size()) return;
  const std::string& profileID = lists_.profileIDArray[row];
  const SaveResult saved =
      saveProfile(environment(), profileID, lists_.fileNameArray[row],
                  overwrite ? Existing::Overwrite : Existing::Keep, AfterFailure::GoOn);
  if (saved.outcome == SaveOutcome::Exists) {
    showActionAlertWithTitleMessageButtonTag(
        "Warning",
        "A profile for the specified trigger already exists. Do you want to overwrite it?",
        "Overwrite", kOverwriteTag);
    overwriteSelectedProfile_ = row;
    return;
  }
  if (!saved.failure.empty()) report(saved.failure);
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
  if (!lists_.hasRow(row)) return;
  const auto loaded = loadProfileAtPath(lists_.fileNameArray[row]);
  if (!loaded) report(loaded.error().message);
}

platform::Result<platform::Done, ProfileError> ProfilesListController::loadProfileAtPath(
    const std::string& path) {
  const auto loaded = prefs::loadProfile(environment(), path);
  if (!loaded) return loaded.error();
  if (!loaded->missing.empty()) report(loaded->missing);
  setProfileActive(loaded->active);
  environment().darwinCenter.post(kPrefsNotification);
  cleanUpPickerAndRelodSpecifers();
  return platform::Done{};
}

void ProfilesListController::deleteProfile(std::int32_t row) {
  if (!lists_.hasRow(row)) return;
  const auto deleted = prefs::deleteProfile(environment(), lists_.fileNameArray[row]);
  if (!deleted) report(deleted.error().message());
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

int ProfilesListController::numberOfComponentsInPickerView(uikit::PickerView*) {
  return 1;
}

int ProfilesListController::pickerViewNumberOfRowsInComponent(uikit::PickerView*, int) {
  return static_cast<int>(lists_.profileNameArray.size());
}

std::string ProfilesListController::pickerViewTitleForRowForComponent(uikit::PickerView*, int row,
                                                                      int) {
  return lists_.hasRow(row) ? lists_.profileNameArray[row] : std::string();
}

void ProfilesListController::alertViewClickedButtonAtIndex(uikit::AlertView* alert, int index) {
  if (!alert || index != kConfirmButton) return;
  const std::int32_t row = picker_ ? picker_->selectedRowInComponent(0) : -1;
  switch (alert->tag) {
    case kLoadTag:
      return loadProfile(row);
    case kSaveTag:
      return saveProfileOverwriteIfExists(row, false);
    case kDeleteTag:
      return deleteProfile(row);
    case kOverwriteTag:
      if (!lists_.hasRow(overwriteSelectedProfile_)) return;
      saveProfileOverwriteIfExists(overwriteSelectedProfile_, true);
      return reloadSpecifiers();
  }
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

TriggerPickerLists ProfilesListController::makeLists(std::int32_t tag) const {
  if (tag == kSaveTag) return listsOfTriggers(environment().collator);
  SavedProfiles saved = savedProfiles(environment(), TitleForm::Trigger);
  for (const SkippedFile& file : saved.skipped) report(file.path + ": " + file.reason);
  return listsOfProfiles(std::move(saved));
}

std::shared_ptr<uikit::PickerView> ProfilesListController::makePicker() {
  auto picker = std::make_shared<uikit::PickerView>();
  picker->frame = kPickerFrame;
  picker->dataSource = self();
  picker->delegate = self();
  picker->showsSelectionIndicator = true;
  return picker;
}

void ProfilesListController::selectTriggerSavedLast() {
  int row = static_cast<int>(lists_.profileNameArray.size()) / 2;
  const plist::Dictionary domain = wholeDomainRead(environment().preferences);
  if (const plist::Value* saved = domain.find(kProfilePercentage)) {
    const auto found = std::ranges::find(lists_.profileIDArray, foundation::descriptionOf(*saved));
    if (found != lists_.profileIDArray.end())
      row = static_cast<int>(found - lists_.profileIDArray.begin());
  }
  picker_->selectRowInComponent(row, 0, false);
}

void ProfilesListController::show(std::shared_ptr<uikit::Alert> alert) {
  if (environment().screen) environment().screen->present(std::move(alert));
}

void ProfilesListController::report(const std::string& problem) const {
  if (environment().problemHandler) environment().problemHandler(problem);
}

std::shared_ptr<ProfilesListController> ProfilesListController::self() {
  return std::static_pointer_cast<ProfilesListController>(shared_from_this());
}

}  // namespace prefs
