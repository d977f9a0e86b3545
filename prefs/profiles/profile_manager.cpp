#include <algorithm>
#include <cerrno>

#include "platform/foundation/text.h"
#include "platform/uikit/alert_controller.h"
#include "prefs/core/names.h"
#include "prefs/core/preference_store.h"
#include "prefs/profiles/ProfilesListController.h"
#include "prefs/profiles/saved_profiles.h"

// What the page shows over itself: the profile manager's sheet, and alerts with and without a
// picker.
namespace prefs {
namespace {

enum Tag : std::int32_t { kLoadTag = 223, kSaveTag = 224, kDeleteTag = 225, kOverwriteTag = 226 };

constexpr int kConfirmButton = 1;
constexpr uikit::Rect kPickerFrame{25, 30, 230, 60};
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
      if (!lists_.hasRow(overwriteSelectedProfile_))
        return reportNothingDone("saved", overwriteSelectedProfile_);
      saveProfileOverwriteIfExists(overwriteSelectedProfile_, true);
      return reloadSpecifiers();
  }
}

TriggerPickerLists ProfilesListController::makeLists(std::int32_t tag) const {
  if (tag == kSaveTag) return listsOfTriggers(environment().collator);
  SavedProfiles saved = savedProfiles(environment(), TitleForm::Trigger);
  if (!saved.skipped.empty()) report(errorOfSkipped(saved.skipped));
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

void ProfilesListController::confirmOverwrite(std::int32_t row) {
  showActionAlertWithTitleMessageButtonTag(
      "Warning", "A profile for the specified trigger already exists. Do you want to overwrite it?",
      "Overwrite", kOverwriteTag);
  overwriteSelectedProfile_ = row;
}

void ProfilesListController::show(std::shared_ptr<uikit::Alert> alert) {
  if (environment().screen) environment().screen->present(std::move(alert));
}

}  // namespace prefs
