#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/preferences/PSListController.h"
#include "platform/uikit/alert_view.h"
#include "prefs/profiles/profile_snapshot.h"
#include "prefs/profiles/trigger_picker_lists.h"

namespace prefs {

// What the page reports that it has passed over: each stands before the reason.
inline constexpr std::string_view kNotSaved = "not saved", kNotDeleted = "not deleted";

// The page of profiles, with the profile manager: an action sheet from which profiles are loaded,
// saved and deleted. Rows are picker rows, counted from 0; an operation that is given a row that
// isn't there does nothing and reports that. Alerts say "Success" and "Done" whatever became of the
// files; what truly happened is reported to the host.
class ProfilesListController : public preferences::PSListController,
                               public uikit::PickerViewDataSource,
                               public uikit::PickerViewDelegate,
                               public uikit::AlertViewDelegate {
 public:
  using PSListController::PSListController;
  std::string_view className() const override { return "ProfilesListController"; }

  // Anchored at the bar's right button; at a button row's cell; at either.
  void showProfileManagerBar();
  void showProfileManagerBtn(preferences::PSSpecifier* specifier);
  void showProfileManagerAtView(foundation::Object* anchor);

  // Stores a 4-byte real and redraws the row; flushes nothing.
  void resetSpecifierWithValue(const std::string& identifier, float value);
  void setProfileActive(bool active);

  void showInfoAlertWithTitleMessage(const std::string& title, const std::string& message);
  void showActionAlertWithTitleMessageButtonTag(const std::string& title,
                                                const std::string& message,
                                                const std::string& button, std::int32_t tag);
  // Fills the trigger picker lists and shows them, or an alert that there are no profiles.
  void showPickerAlertWithTileMessageBtnNameTag(const std::string& title,
                                                const std::string& message,
                                                const std::string& btnName, std::int32_t tag);
  std::string getFileNameForProfileID(std::int32_t profileID);

  void loadProfileBtn();
  void saveProfileBtn();
  void deleteProfileBtn();

  void saveProfileOverwriteIfExists(std::int32_t row, bool overwrite);
  void loadProfile(std::int32_t row);
  void deleteProfile(std::int32_t row);

  // Rebuilds the page's rows, notifies the other pages, and 0.5 s later drops the titles, the paths
  // and the picker that are current by then.
  void cleanUpPickerAndRelodSpecifers();

  int numberOfComponentsInPickerView(uikit::PickerView* picker) override;
  int pickerViewNumberOfRowsInComponent(uikit::PickerView* picker, int component) override;
  std::string pickerViewTitleForRowForComponent(uikit::PickerView* picker, int row,
                                                int component) override;
  void pickerViewDidSelectRowInComponent(uikit::PickerView*, int, int) override {}

  void alertViewClickedButtonAtIndex(uikit::AlertView* alert, int index) override;

  // The 108 triggers.
  plist::Array percentageValueDataFromTarget(foundation::Object* target);
  plist::Array percentagetitlesDataFromTarget(foundation::Object* target);

  void viewDidLoad() override;

  // Loads a profile and announces it, as the page does for a picked one. The error is why it was
  // refused; nothing has changed then.
  platform::Result<LoadedProfile> loadProfileAtPath(const std::string& path,
                                                    AfterFailure afterFailure = AfterFailure::GoOn);

  const preferences::Operations& operations() const override { return ownOperations; }
  static const preferences::Operations ownOperations;

 private:
  TriggerPickerLists makeLists(std::int32_t tag) const;
  std::shared_ptr<uikit::PickerView> makePicker();
  void selectTriggerSavedLast();
  void confirmOverwrite(std::int32_t row);
  void report(const platform::Error& error) const;
  void report(const std::string& problem) const;
  void report(std::string_view notDone, const platform::Error& error) const;
  void reportNothingDone(std::string_view done, std::int32_t row) const;
  std::shared_ptr<ProfilesListController> self();

 protected:
  virtual void show(std::shared_ptr<uikit::Alert> alert);

  TriggerPickerLists lists_;  // made anew for each picker

 private:
  std::shared_ptr<uikit::PickerView> picker_;
  std::int32_t overwriteSelectedProfile_ = 0;  // the row that waits for the confirmation
};

}  // namespace prefs
