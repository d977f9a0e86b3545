#include "platform/preferences/control_cells.h"
#include "platform/preferences/specifier_list.h"
#include "prefs/profiles/triggers.h"
#include "tests/prefs_profiles/profile_page.h"

namespace {

using namespace prefs;
using plist::Value;

using ProfileList = profiles_test::ProfilePage;

TEST_F(ProfileList, IsLoadedOnceUnderTheClassName) {
  EXPECT_EQ(page->loadError(), "");
  EXPECT_EQ(page->title, "Profiles");
  const auto* before = page->specifierForID("profileactive");
  EXPECT_EQ(&page->specifiers(), &page->specifiers());
  EXPECT_EQ(page->specifierForID("profileactive"), before);
}

TEST_F(ProfileList, NamesOnlyClassesAndOperationsThatExist) {
  auto root = plist::readBinary(prefs::bundle().list("ProfilesListController")->bytes);
  auto list = preferences::readSpecifierList(*root);
  ASSERT_TRUE(list);
  for (auto& error :
       preferences::validate(*list, ProfilesListController::ownOperations, prefs::bundle()))
    ADD_FAILURE() << "row " << error.row << ": " << error.what;
}

TEST_F(ProfileList, HasTheProfileSwitchInItsOwnCell) {
  auto* row = page->specifierForID("profileactive");
  ASSERT_NE(row, nullptr);
  EXPECT_EQ(row->cellType(), preferences::CellType::PSSwitchCell);
  EXPECT_EQ(row->textForKey("cellClass"), "QuorvantisProfileActiveSwitchTableCell");
  page->buildRow(*row);
  EXPECT_EQ(row->cellObject()->className(), "QuorvantisProfileActiveSwitchTableCell");
}

TEST_F(ProfileList, GivesItsSettingsTheDefaultsOfTheTable) {
  for (auto key : {"profileactive", "profiledescription"})
    EXPECT_EQ(page->specifierForID(key)->propertyForKey("default"), *profileDefault(key)) << key;
}

TEST_F(ProfileList, AnnouncesEachChange) {
  page->userChanged(*page->specifierForID("profiledescription"), "Night");
  page->userChanged(*page->specifierForID("profilepercentage"), "20");
  EXPECT_EQ(device.events, (std::vector<std::string>(2, "darwin com.zorvek.quorvantis.prefs")));
  EXPECT_EQ(device.stored("profiledescription"), Value("Night"));
}

TEST_F(ProfileList, AnnouncesAFlipOfTheProfileSwitchByANameOfItsOwn) {
  page->userChanged(*page->specifierForID("profileactive"), false);
  EXPECT_EQ(device.events, std::vector<std::string>{"darwin com.zorvek.quorvantis.profile"});
  EXPECT_EQ(device.stored("profileactive"), Value(false));
  EXPECT_EQ(page->specifierForID("profileactive")->textForKey("PostNotification"),
            kProfileNotification);
}

TEST_F(ProfileList, ShowsTheDefaultsOfAnEmptyDomain) {
  EXPECT_EQ(page->valueOf(*page->specifierForID("profileactive")), Value(1));
  EXPECT_EQ(page->valueOf(*page->specifierForID("profiledescription")), Value(""));
  auto* trigger = page->specifierForID("profilepercentage");
  EXPECT_EQ(*trigger->titleForValue(page->valueOf(*trigger)), "Battery 55%");
}

TEST_F(ProfileList, OffersThe108TriggersInItsTriggerRow) {
  auto* row = page->specifierForID("profilepercentage");
  EXPECT_EQ(row->values(), triggerValues());
  ASSERT_EQ(row->titles().size(), 108u);
  EXPECT_EQ(row->titles()[0], "Battery 1%");
  EXPECT_EQ(row->titles()[99], "Battery 100%");
  EXPECT_EQ(row->titles()[100], "Charging started");
  EXPECT_EQ(row->titles()[107], "WiFi disconnected");
}

TEST_F(ProfileList, ChoosesTheTriggerThatIsSavedNext) {
  page->userChanged(*page->specifierForID("profilepercentage"), "121");
  page->saveProfileBtn();
  EXPECT_EQ(picker().selectedRowInComponent(0), 104);
}

TEST_F(ProfileList, OpensTheProfileManagerByAButton) {
  auto* row = page->specifierForID("profilemanager");
  ASSERT_NE(row, nullptr);
  EXPECT_EQ(row->cellType(), preferences::CellType::PSButtonCell);
  EXPECT_EQ(row->textForKey("action"), "showProfileManagerBtn:");
}

TEST_F(ProfileList, DeclaresItsOperationsInOrder) {
  std::vector<std::string_view> selectors;
  for (const auto& operation : ProfilesListController::ownOperations.own())
    selectors.push_back(operation.selector());
  EXPECT_EQ(selectors,
            (std::vector<std::string_view>{"specifiers",
                                           "showProfileManagerBar",
                                           "showProfileManagerBtn:",
                                           "showProfileManagerAtView:",
                                           "resetSpecifier:withValue:",
                                           "setProfileActive:",
                                           "showInfoAlertWithTitle:message:",
                                           "showActionAlertWithTitle:message:button:tag:",
                                           "showPickerAlertWithTile:message:btnName:tag:",
                                           "getFileNameForProfileID:",
                                           "loadProfileBtn",
                                           "saveProfileBtn",
                                           "deleteProfileBtn",
                                           "saveProfile:overwriteIfExists:",
                                           "loadProfile:",
                                           "deleteProfile:",
                                           "cleanUpPickerAndRelodSpecifers",
                                           "numberOfComponentsInPickerView:",
                                           "pickerView:numberOfRowsInComponent:",
                                           "pickerView:titleForRow:forComponent:",
                                           "pickerView:didSelectRow:inComponent:",
                                           "alertView:clickedButtonAtIndex:",
                                           "percentageValueDataFromTarget:",
                                           "percentagetitlesDataFromTarget:",
                                           "viewDidLoad"}));
  for (const auto& operation : ProfilesListController::ownOperations.own())
    EXPECT_EQ(std::ranges::count(operation.selector(), ':'), operation.arity())
        << operation.selector();
}

TEST_F(ProfileList, GivesEachCallFreshTriggerListsByName) {
  const preferences::Argument nil[] = {nullptr};
  for (auto selector : {"percentageValueDataFromTarget:", "percentagetitlesDataFromTarget:"}) {
    auto result = page->operations().find(selector)->run(*page, nil);
    ASSERT_TRUE(result);
    EXPECT_EQ(preferences::valueIn(*result)->array()->size(), 108u) << selector;
  }
}

TEST_F(ProfileList, NamesProfileFilesByName) {
  const preferences::Argument id[] = {Value(55)};
  auto result = page->operations().find("getFileNameForProfileID:")->run(*page, id);
  EXPECT_EQ(preferences::valueIn(*result),
            Value("/var/mobile/Documents/Quorvantis/profile_55.qvx"));
}

TEST_F(ProfileList, ResetsARowToAFourByteRealAndRedrawsIt) {
  auto* row = page->specifierForID("profileactive");
  page->buildRow(*row);
  row->cellObject()->tag = 77;
  page->resetSpecifierWithValue("profileactive", 0.0f);
  EXPECT_EQ(device.stored("profileactive"), Value(0.0f));
  EXPECT_TRUE(device.stored("profileactive")->isSinglePrecision());
  EXPECT_EQ(row->cellObject()->tag, 0) << "the cell was made anew";
  EXPECT_FALSE(static_cast<uikit::Switch*>(row->control())->isOn());
  EXPECT_EQ(device.events, std::vector<std::string>{"darwin com.zorvek.quorvantis.profile"});
}

TEST_F(ProfileList, ResetsNothingForAnUnknownRow) {
  page->resetSpecifierWithValue("nothing", 1.0f);
  EXPECT_TRUE(device.domain().empty());
}

TEST_F(ProfileList, SetsTheProfileSwitchToOneOrZero) {
  page->setProfileActive(true);
  EXPECT_EQ(device.stored("profileactive"), Value(1.0f));
  page->setProfileActive(false);
  EXPECT_EQ(device.stored("profileactive"), Value(0.0f));
  EXPECT_EQ(device.events, std::vector<std::string>(2, "darwin com.zorvek.quorvantis.profile"));
}

}  // namespace
