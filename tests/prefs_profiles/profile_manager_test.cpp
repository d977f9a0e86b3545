#include <sys/stat.h>

#include "tests/prefs_profiles/profile_page.h"

namespace {

using namespace prefs;
using plist::Value;
using uikit::ButtonRole;

using ProfileManager = profiles_test::ProfilePage;

const uikit::AlertController& sheet(const uikit::Alert& alert) {
  return dynamic_cast<const uikit::AlertController&>(alert);
}

TEST_F(ProfileManager, IsASheetOfFourActions) {
  page->showProfileManagerBar();
  ASSERT_EQ(onScreen(), 1u);
  EXPECT_EQ(topmost().style(), uikit::AlertStyle::ActionSheet);
  EXPECT_EQ(topmost().title, "Profile manager");
  EXPECT_EQ(topmost().message,
            "Loading a profile will overwrite all current settings. Deleting a profile will remove "
            "the profile permanently.");
  const auto buttons = topmost().buttons();
  const std::pair<std::string, ButtonRole> expected[] = {{"Load", ButtonRole::Default},
                                                         {"Save", ButtonRole::Default},
                                                         {"Delete", ButtonRole::Destructive},
                                                         {"Cancel", ButtonRole::Cancel}};
  ASSERT_EQ(buttons.size(), 4u);
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(buttons[i].title, expected[i].first);
    EXPECT_EQ(buttons[i].role, expected[i].second) << buttons[i].title;
  }
}

TEST_F(ProfileManager, IsOpenedByTheBarButton) {
  const auto item = page->navigationItem.rightBarButtonItem;
  ASSERT_NE(item, nullptr);
  EXPECT_EQ(static_cast<int>(item->systemItem), 7);
  EXPECT_EQ(item->target.lock(), page);
  EXPECT_EQ(item->action, "showProfileManagerBar");
  page->operations().find(item->action)->run(*page, {});
  ASSERT_EQ(onScreen(), 1u);
  EXPECT_EQ(sheet(topmost()).popover.barButtonItem, item);
  EXPECT_EQ(sheet(topmost()).popover.sourceView.lock(), nullptr);
}

TEST_F(ProfileManager, HasNoBarButtonBeforeThePageIsLoaded) {
  auto fresh = std::make_shared<ProfilesListController>(device.environment);
  EXPECT_EQ(fresh->navigationItem.rightBarButtonItem, nullptr);
}

TEST_F(ProfileManager, PointsToTheButtonRowThatOpenedIt) {
  auto* row = page->specifierForID("profilemanager");
  page->buildRow(*row);
  row->cellObject()->frame = {10, 20, 300, 44};
  page->showProfileManagerBtn(row);
  const auto& popover = sheet(topmost()).popover;
  EXPECT_EQ(popover.barButtonItem, nullptr);
  EXPECT_EQ(popover.sourceView.lock().get(), row->cellObject());
  EXPECT_EQ(popover.sourceRect, (uikit::Rect{0, 0, 300, 44})) << "its bounds, not its frame";
}

TEST_F(ProfileManager, PointsNowhereForARowThatIsNotBuilt) {
  page->showProfileManagerBtn(page->specifierForID("profilemanager"));
  page->showProfileManagerBtn(nullptr);
  EXPECT_EQ(onScreen(), 2u);
  EXPECT_EQ(sheet(topmost()).popover.sourceView.lock(), nullptr);
}

TEST_F(ProfileManager, DoesNothingOnCancel) {
  seed::profile(device, "5");
  page->saveProfileBtn();
  pick("Battery 7%");
  press("Cancel");
  page->showProfileManagerBar();
  press("Cancel");
  EXPECT_EQ(onScreen(), 0u);
  waitForRelease();
  EXPECT_EQ(page->pickerViewNumberOfRowsInComponent(nullptr, 0), 108) << "nothing was released";
  EXPECT_EQ(device.root.contentsOfDirectory(kDocuments)->size(), 1u);
  EXPECT_TRUE(device.domain().empty());
  EXPECT_TRUE(device.events.empty());
  EXPECT_TRUE(device.problems.empty());
}

// A page that counts what its alerts report to it.
struct Delegate : ProfilesListController {
  using ProfilesListController::ProfilesListController;
  void alertViewClickedButtonAtIndex(uikit::AlertView* alert, int index) override {
    clicks.emplace_back(alert->title, index);
  }
  std::vector<std::pair<std::string, int>> clicks;
};

TEST_F(ProfileManager, IsTheDelegateOfEveryAlert) {
  seed::profile(device, "5");
  const auto delegate = std::make_shared<Delegate>(device.environment);
  delegate->showInfoAlertWithTitleMessage("Info", "");
  press("Ok");
  delegate->showActionAlertWithTitleMessageButtonTag("Action", "", "Go", 1);
  press("Go");
  delegate->saveProfileBtn();
  press("Cancel");
  delegate->loadProfileBtn();
  press("Load");
  const std::vector<std::pair<std::string, int>> expected = {
      {"Info", 0}, {"Action", 1}, {"Save profile", 0}, {"Load profile", 1}};
  EXPECT_EQ(delegate->clicks, expected);
}

TEST_F(ProfileManager, OpensThePickerOfEachAction) {
  seed::profile(device, "5");
  struct {
    const char *action, *title, *message;
    int tag;
  } expected[] = {{"Load", "Load profile", "Select the profile to load", 223},
                  {"Save", "Save profile", "Select the trigger for the profile", 224},
                  {"Delete", "Delete profile", "Select the profile to delete", 225}};
  for (const auto& each : expected) {
    page->showProfileManagerBar();
    press(each.action);
    ASSERT_EQ(onScreen(), 1u);
    EXPECT_EQ(topmost().style(), uikit::AlertStyle::Alert);
    EXPECT_EQ(topmost().title, each.title);
    EXPECT_EQ(topmost().message, each.message);
    EXPECT_EQ(topmost().tag, each.tag);
    const auto buttons = topmost().buttons();
    ASSERT_EQ(buttons.size(), 2u);
    EXPECT_EQ(buttons[0].title, "Cancel");
    EXPECT_EQ(buttons[0].role, ButtonRole::Cancel);
    EXPECT_EQ(buttons[1].title, each.action);
    ASSERT_NE(topmost().picker(), nullptr);
    press("Cancel");
    EXPECT_EQ(onScreen(), 0u);
  }
}

TEST_F(ProfileManager, SaysThatThereAreNoProfilesWithoutTheFolder) {
  for (auto action : {"Load", "Delete"}) {
    page->showProfileManagerBar();
    press(action);
    expectInfo("Error", "No profiles found");
    press("Ok");
  }
  EXPECT_EQ(onScreen(), 0u);
  EXPECT_FALSE(device.root.exists(kDocuments));
}

TEST_F(ProfileManager, ReportsWhyTheFolderCannotBeListed) {
  seed::noFolder(device);
  page->loadProfileBtn();
  expectInfo("Error", "No profiles found");
  EXPECT_EQ(device.problems,
            std::vector<std::string>{"/var/mobile/Documents/Quorvantis/: Not a directory"});
}

TEST_F(ProfileManager, SaysThatThereAreNoProfilesInAnEmptyFolder) {
  ASSERT_TRUE(device.root.createDirectory(kDocuments));
  page->loadProfileBtn();
  expectInfo("Error", "No profiles found");
}

TEST_F(ProfileManager, CountsEveryEntryOfTheFolderNotOnlyProfiles) {
  seed::archive(device, "quorvantis.log", plist::Array{"A"});
  for (auto action : {"Load", "Delete"}) {
    page->showProfileManagerBar();
    press(action);
    ASSERT_NE(topmost().picker(), nullptr);
    EXPECT_EQ(picker().numberOfRowsInComponent(0), 0);
    EXPECT_EQ(picker().selectedRowInComponent(0), -1);
    press(action);
    EXPECT_EQ(onScreen(), 0u) << "a confirmation without a row closes it";
    ASSERT_EQ(device.problems.size(), 1u);
    EXPECT_EQ(device.problems[0], action == std::string("Load")
                                      ? "nothing was loaded: the picker has no rows"
                                      : "nothing was deleted: the picker has no rows");
    device.problems.clear();
  }
  EXPECT_TRUE(device.domain().empty());
  EXPECT_TRUE(device.events.empty());
}

TEST_F(ProfileManager, SavesForABatteryLevel) {
  choose("Save", "Battery 7%");
  expectInfo("Success",
             "The current settings were successfully saved as a profile for trigger: Battery 7%");
  EXPECT_EQ(*device.profile("7").find("profilepercentage"), Value("7"));
  EXPECT_EQ(device.stored("profilepercentage"), Value("7"));
}

TEST_F(ProfileManager, SavesForTheLastBatteryLevelAndTheFirstEvent) {
  choose("Save", "Battery 100%");
  expectInfo("Success",
             "The current settings were successfully saved as a profile for trigger: Battery 100%");
  press("Ok");
  choose("Save", "Charging started");
  expectInfo(
      "Success",
      "The current settings were successfully saved as a profile for trigger: Charging started");
  EXPECT_EQ(*device.profile("101").find("profilepercentage"), Value("101"));
}

TEST_F(ProfileManager, SavesForAnEvent) {
  choose("Save", "WiFi connected");
  expectInfo(
      "Success",
      "The current settings were successfully saved as a profile for trigger: WiFi connected");
  EXPECT_EQ(*device.profile("131").find("profilepercentage"), Value("131"));
}

TEST_F(ProfileManager, SavesEveryTriggerUnderItsOwnID) {
  for (int row = 0; row < 108; ++row) {
    page->saveProfileBtn();
    ASSERT_TRUE(picker().turn(row, 0));
    press("Save");
    press("Ok");
  }
  const plist::Array values = page->percentageValueDataFromTarget(nullptr);
  ASSERT_EQ(values.size(), 108u);
  for (const Value& code : values)
    EXPECT_EQ(*device.profile(*code.text()).find("profilepercentage"), code);
}

TEST_F(ProfileManager, WarnsBeforeItOverwrites) {
  seed::write(device, "profile_7.qvx", {'o', 'l', 'd'});
  choose("Save", "Battery 7%");
  ASSERT_EQ(onScreen(), 1u);
  EXPECT_EQ(topmost().title, "Warning");
  EXPECT_EQ(topmost().message,
            "A profile for the specified trigger already exists. Do you want to overwrite it?");
  EXPECT_EQ(topmost().tag, 226);
  EXPECT_EQ(topmost().buttons()[0].title, "Cancel");
  EXPECT_EQ(topmost().buttons()[1].title, "Overwrite");
  EXPECT_EQ(topmost().picker(), nullptr);
  EXPECT_TRUE(device.domain().empty());
  EXPECT_TRUE(device.events.empty());
}

TEST_F(ProfileManager, KeepsTheFileWhenTheWarningIsCancelled) {
  seed::write(device, "profile_7.qvx", {'o', 'l', 'd'});
  choose("Save", "Battery 7%");
  press("Cancel");
  EXPECT_EQ(onScreen(), 0u);
  EXPECT_EQ(device.root.read(profilePath(7))->size(), 3u);
  EXPECT_TRUE(device.domain().empty());
}

TEST_F(ProfileManager, OverwritesOnceConfirmed) {
  seed::write(device, "profile_7.qvx", {'o', 'l', 'd'});
  choose("Save", "Battery 7%");
  press("Overwrite");
  expectInfo(
      "Success",
      "The settings for the battery profile trigger - Battery 7% - were successfully overwritten!");
  EXPECT_EQ(*device.profile("7").find("profilepercentage"), Value("7"));
}

TEST_F(ProfileManager, OverwritesAnEventsProfile) {
  seed::profile(device, "132");
  choose("Save", "WiFi disconnected");
  press("Overwrite");
  expectInfo("Success",
             "The settings for the battery profile trigger - WiFi disconnected - were successfully "
             "overwritten!");
}

TEST_F(ProfileManager, ReportsThatNothingWasSavedWhenTheListsWereReleasedBeforeTheConfirmation) {
  seed::profile(device, "7");
  choose("Save", "Battery 5%");
  press("Ok");
  choose("Save", "Battery 7%");
  ASSERT_EQ(topmost().tag, 226);
  const Value before = device.domain();
  const auto file = *device.root.read(profilePath(7));
  waitForRelease();
  device.events.clear();
  press("Overwrite");
  EXPECT_EQ(onScreen(), 0u);
  ASSERT_EQ(device.problems.size(), 1u);
  EXPECT_TRUE(device.problems[0].starts_with("nothing was saved: ")) << device.problems[0];
  EXPECT_EQ(Value(device.domain()), before);
  EXPECT_EQ(*device.root.read(profilePath(7)), file);
  EXPECT_TRUE(device.events.empty());
}

TEST_F(ProfileManager, LoadsWithoutAMessage) {
  seed::archive(device, "profile_20.qvx",
                plist::Dictionary{{"profilepercentage", "20"}, {"wifi", 2}, {"profileactive", 0}});
  choose("Load", "Battery 20%");
  EXPECT_EQ(onScreen(), 0u);
  EXPECT_EQ(device.stored("wifi"), Value(2));
  EXPECT_EQ(device.stored("profilepercentage"), Value("20"));
}

TEST_F(ProfileManager, StoresTheLoadedSwitchAsAReal) {
  seed::archive(device, "profile_20.qvx", plist::Dictionary{{"profilepercentage", "20"}});
  auto* row = page->specifierForID("profileactive");
  page->buildRow(*row);
  choose("Load", "Battery 20%");
  EXPECT_EQ(device.stored("profileactive"), Value(1.0f));
  seed::archive(device, "profile_21.qvx",
                plist::Dictionary{{"profilepercentage", "21"}, {"profileactive", 0}});
  choose("Load", "Battery 21%");
  EXPECT_EQ(device.stored("profileactive"), Value(0.0f));
  EXPECT_TRUE(device.stored("profileactive")->isSinglePrecision());
}

TEST_F(ProfileManager, ShowsTheLoadedSwitch) {
  seed::archive(device, "profile_20.qvx",
                plist::Dictionary{{"profilepercentage", "20"}, {"profileactive", 0}});
  choose("Load", "Battery 20%");
  auto* row = page->specifierForID("profileactive");
  page->buildRow(*row);
  EXPECT_FALSE(static_cast<uikit::Switch*>(row->control())->isOn());
}

TEST_F(ProfileManager, LoadsNothingFromAFileThatWasDamagedMeanwhile) {
  seed::profile(device, "20");
  page->loadProfileBtn();
  seed::write(device, "profile_20.qvx", {'j', 'u', 'n', 'k'});
  press("Load");
  EXPECT_EQ(onScreen(), 0u);
  EXPECT_TRUE(device.domain().empty());
  EXPECT_TRUE(device.events.empty());
  ASSERT_EQ(device.problems.size(), 1u);
  EXPECT_NE(device.problems[0].find("profile_20.qvx"), std::string::npos) << device.problems[0];
}

TEST_F(ProfileManager, LoadsAFileThatWentMeanwhileAsAnEmptyProfileAndReportsThat) {
  seed::profile(device, "5");
  device.store("wifi", 2);
  page->showProfileManagerBar();
  press("Load");
  std::filesystem::remove(device.at(profilePath(5)));
  press("Load");
  EXPECT_EQ(device.stored("wifi"), Value(0));
  EXPECT_EQ(onScreen(), 0u);
  EXPECT_EQ(device.problems,
            std::vector<std::string>{profilePath(5) + ": No such file or directory"});
}

TEST_F(ProfileManager, LoadsNothingThroughALinkThatLeadsNowhere) {
  seed::profile(device, "5");
  device.store("wifi", 2);
  page->showProfileManagerBar();
  press("Load");
  std::filesystem::remove(device.at(profilePath(5)));
  std::filesystem::create_symlink("nowhere", device.at(profilePath(5)));
  press("Load");
  EXPECT_EQ(device.stored("wifi"), Value(2));
  EXPECT_TRUE(device.events.empty());
  EXPECT_EQ(device.problems.size(), 1u);
}

TEST_F(ProfileManager, GoesOnWhereTheStoreCannotBeWritten) {
  seed::profile(device, "5");
  std::filesystem::create_directories(
      device.at("/var/mobile/Library/Preferences/.com.zorvek.quorvantis.plist.lock"));
  choose("Save", "Battery 7%");
  expectInfo("Success",
             "The current settings were successfully saved as a profile for trigger: Battery 7%");
  press("Ok");
  choose("Load", "Battery 5%");
  EXPECT_EQ(onScreen(), 0u);
  EXPECT_TRUE(device.domain().empty());
}

TEST_F(ProfileManager, KeepsItsListsAfterCancel) {
  page->saveProfileBtn();
  press("Cancel");
  waitForRelease();
  EXPECT_EQ(page->pickerViewNumberOfRowsInComponent(nullptr, 0), 108);
}

TEST_F(ProfileManager, DeletesAndSaysSo) {
  seed::profile(device, "111", "at home");
  seed::profile(device, "5");
  choose("Delete", "Device locked");
  expectInfo("Done", "The profile Device locked was successfully deleted!");
  EXPECT_FALSE(device.root.exists(profilePath(111)));
  EXPECT_TRUE(device.root.exists(profilePath(5)));
  EXPECT_TRUE(device.domain().empty());
}

TEST_F(ProfileManager, SaysThatItDeletedEvenWhatWasGone) {
  seed::profile(device, "5");
  page->deleteProfileBtn();
  std::filesystem::remove(device.at(profilePath(5)));
  press("Delete");
  expectInfo("Done", "The profile Battery 5% was successfully deleted!");
  EXPECT_EQ(device.problems, std::vector<std::string>{"not deleted: " + profilePath(5) +
                                                      ": No such file or directory"});
}

TEST_F(ProfileManager, DeletesNothingWhileTheSettingsCannotBeReadAndReportsThat) {
  seed::profile(device, "5");
  device.store("wifi", 1);
  device.damageDomain();
  choose("Delete", "Battery 5%");
  expectInfo("Done", "The profile Battery 5% was successfully deleted!");
  EXPECT_TRUE(device.root.exists(profilePath(5)));
  ASSERT_FALSE(device.problems.empty());
  EXPECT_TRUE(device.problems.back().starts_with("not deleted: the settings can't be read: "))
      << device.problems.back();
}

TEST_F(ProfileManager, DeletesNoFolderAndReportsThat) {
  seed::profile(device, "5");
  page->deleteProfileBtn();
  std::filesystem::remove(device.at(profilePath(5)));
  std::filesystem::create_directories(device.at(profilePath(5)) / "inner");
  press("Delete");
  expectInfo("Done", "The profile Battery 5% was successfully deleted!");
  EXPECT_EQ(device.problems,
            std::vector<std::string>{"not deleted: " + profilePath(5) + ": Is a directory"});
  EXPECT_TRUE(std::filesystem::is_directory(device.at(profilePath(5)) / "inner"));
}

TEST_F(ProfileManager, OverwritesNoFolderAndReportsThat) {
  std::filesystem::create_directories(device.at(profilePath(7)) / "inner");
  choose("Save", "Battery 7%");
  press("Overwrite");
  expectInfo(
      "Success",
      "The settings for the battery profile trigger - Battery 7% - were successfully overwritten!");
  ASSERT_EQ(device.problems.size(), 1u);
  EXPECT_TRUE(device.problems[0].starts_with("not saved: " + profilePath(7)));
  EXPECT_TRUE(std::filesystem::is_directory(device.at(profilePath(7)) / "inner"));
}

TEST_F(ProfileManager, SavesNothingWhileTheSettingsCannotBeReadAndReportsThat) {
  seed::archive(device, "profile_7.qvx",
                plist::Dictionary{{"profilepercentage", "7"}, {"wifi", 2}});
  const auto good = *device.root.read(profilePath(7));
  device.damageDomain();
  const auto damaged = *device.root.read(device.kDomainFile);
  const auto expectNotSaved = [&] {
    ASSERT_FALSE(device.problems.empty());
    EXPECT_TRUE(device.problems.back().starts_with("not saved: the settings can't be read: "))
        << device.problems.back();
    device.problems.clear();
    press("Ok");
  };
  choose("Save", "Battery 7%");
  press("Overwrite");
  expectInfo(
      "Success",
      "The settings for the battery profile trigger - Battery 7% - were successfully overwritten!");
  expectNotSaved();
  choose("Save", "Battery 8%");
  expectInfo("Success",
             "The current settings were successfully saved as a profile for trigger: Battery 8%");
  expectNotSaved();
  EXPECT_EQ(*device.root.read(profilePath(7)), good);
  EXPECT_FALSE(device.root.hasEntry(profilePath(8)));
  EXPECT_EQ(*device.root.read(device.kDomainFile), damaged);
}

TEST_F(ProfileManager, SaysThatItSavedEvenIfItCouldNot) {
  seed::noFolder(device);
  choose("Save", "Battery 7%");
  expectInfo("Success",
             "The current settings were successfully saved as a profile for trigger: Battery 7%");
  ASSERT_EQ(device.problems.size(), 1u);
  EXPECT_TRUE(device.problems[0].starts_with("not saved: /var/mobile/Documents"));
}

TEST_F(ProfileManager, SaysSuccessAsTheFlagHasIt) {
  page->saveProfileBtn();
  press("Cancel");
  page->saveProfileOverwriteIfExists(6, true);
  expectInfo("Success",
             "The settings for the battery profile trigger - Battery 7% - were successfully "
             "overwritten!");
}

TEST_F(ProfileManager, OverwritesTheRowThatWasConfirmedWhereverThePickerStands) {
  seed::profile(device, "7");
  page->saveProfileBtn();
  uikit::PickerView& own = picker();
  pick("Battery 7%");
  press("Save");
  ASSERT_TRUE(own.turn(20, 0));
  press("Overwrite");
  expectInfo(
      "Success",
      "The settings for the battery profile trigger - Battery 7% - were successfully overwritten!");
  EXPECT_EQ(device.root.contentsOfDirectory(kDocuments)->size(), 1u);
}

TEST_F(ProfileManager, StopsBeforeItsListsChangeWhenThereAreNoProfiles) {
  page->saveProfileBtn();
  press("Cancel");
  page->loadProfileBtn();
  expectInfo("Error", "No profiles found");
  EXPECT_EQ(page->pickerViewNumberOfRowsInComponent(nullptr, 0), 108);
}

TEST_F(ProfileManager, TakesATagOfItsOwnForALoadsNotASaves) {
  page->showPickerAlertWithTileMessageBtnNameTag("Title", "Message", "Go", 7);
  expectInfo("Error", "No profiles found");
  press("Ok");
  seed::profile(device, "9");
  device.store("profilepercentage", "20");
  page->showPickerAlertWithTileMessageBtnNameTag("Title", "Message", "Go", 7);
  EXPECT_EQ(topmost().tag, 7);
  EXPECT_EQ(picker().titlesInComponent(0), std::vector<std::string>{"Battery 9%"});
  EXPECT_EQ(picker().selectedRowInComponent(0), 0);
  press("Go");
  EXPECT_EQ(onScreen(), 0u);
  EXPECT_TRUE(device.events.empty());
}

TEST_F(ProfileManager, DoesNothingOnCancelOfAPicker) {
  seed::profile(device, "5");
  for (auto action : {"Load", "Save", "Delete"}) {
    page->showProfileManagerBar();
    press(action);
    press("Cancel");
  }
  EXPECT_TRUE(device.domain().empty());
  EXPECT_TRUE(device.events.empty());
  EXPECT_TRUE(device.root.exists(profilePath(5)));
}

TEST_F(ProfileManager, IgnoresOtherTagsAndOtherButtons) {
  page->saveProfileBtn();
  uikit::AlertView other("", "", {}, "Cancel", {"Go"});
  page->alertViewClickedButtonAtIndex(&other, 1);
  other.tag = 222;
  page->alertViewClickedButtonAtIndex(&other, 1);
  other.tag = 224;
  page->alertViewClickedButtonAtIndex(&other, 0);
  page->alertViewClickedButtonAtIndex(&other, 2);
  page->alertViewClickedButtonAtIndex(nullptr, 1);
  EXPECT_FALSE(device.root.exists(kDocuments));
}

TEST_F(ProfileManager, RefusesRowsThatAreNotThere) {
  seed::profile(device, "5");
  for (auto open :
       {&ProfilesListController::loadProfileBtn, &ProfilesListController::saveProfileBtn,
        &ProfilesListController::deleteProfileBtn}) {
    (page.get()->*open)();
    for (int row : {-1, 108, 2147483647, -2147483647 - 1}) {
      page->loadProfile(row);
      page->saveProfileOverwriteIfExists(row, true);
      page->deleteProfile(row);
      EXPECT_EQ(page->pickerViewTitleForRowForComponent(nullptr, row, 0), "");
    }
  }
  EXPECT_EQ(onScreen(), 3u);
  EXPECT_TRUE(device.domain().empty());
  EXPECT_TRUE(device.events.empty());
}

TEST_F(ProfileManager, RefusesToSaveFromTheListsOfALoad) {
  seed::profile(device, "5");
  page->loadProfileBtn();
  page->saveProfileOverwriteIfExists(0, true);
  EXPECT_TRUE(device.domain().empty());
}

TEST_F(ProfileManager, RefusesRowsBeforeAnyPickerWasOpened) {
  page->loadProfile(0);
  page->saveProfileOverwriteIfExists(0, false);
  page->deleteProfile(0);
  EXPECT_EQ(onScreen(), 0u);
  EXPECT_TRUE(device.events.empty());
}

TEST_F(ProfileManager, WorksWithoutAScreen) {
  device.environment.screen = nullptr;
  page->showProfileManagerBar();
  page->saveProfileBtn();
  page->saveProfileOverwriteIfExists(4, false);
  EXPECT_TRUE(device.root.exists(profilePath(5)));
}

}  // namespace
