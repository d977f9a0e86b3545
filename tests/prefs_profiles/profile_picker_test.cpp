#include <sys/stat.h>

#include "tests/prefs_profiles/profile_page.h"

namespace {

using namespace prefs;
using plist::Value;

using ProfilePicker = profiles_test::ProfilePage;

TEST_F(ProfilePicker, HasItsFrameItsOwnerAndItsIndicator) {
  page->saveProfileBtn();
  EXPECT_EQ(picker().frame, (uikit::Rect{25, 30, 230, 60}));
  EXPECT_TRUE(picker().showsSelectionIndicator);
  EXPECT_EQ(picker().dataSource.lock(), std::shared_ptr<uikit::PickerViewDataSource>(page));
  EXPECT_EQ(picker().delegate.lock(), std::shared_ptr<uikit::PickerViewDelegate>(page));
  EXPECT_EQ(picker().numberOfComponents(), 1);
}

// A page that notes how an alert is when it is shown.
struct Showing : ProfilesListController {
  using ProfilesListController::ProfilesListController;
  void show(std::shared_ptr<uikit::Alert> alert) override {
    tags.push_back(alert->tag);
    selections.push_back(alert->picker() ? alert->picker()->selectedRowInComponent(0) : -1);
    ProfilesListController::show(std::move(alert));
  }
  std::vector<int> tags, selections;
};

TEST_F(ProfilePicker, IsAttachedAndTaggedBeforeItIsShownAndTurnedAfterwards) {
  device.store("profilepercentage", "20");
  const auto showing = std::make_shared<Showing>(device.environment);
  showing->saveProfileBtn();
  EXPECT_EQ(showing->tags, std::vector<int>{224});
  EXPECT_EQ(showing->selections, std::vector<int>{0});
  EXPECT_EQ(picker().selectedRowInComponent(0), 19);
}

TEST_F(ProfilePicker, OffersAll108TriggersForASaveEvenWithoutAFolder) {
  page->saveProfileBtn();
  const auto titles = picker().titlesInComponent(0);
  ASSERT_EQ(titles.size(), 108u);
  for (int level = 1; level <= 100; ++level)
    EXPECT_EQ(titles[level - 1], "Battery " + std::to_string(level) + "%");
  EXPECT_EQ(
      (std::vector<std::string>(titles.begin() + 100, titles.end())),
      (std::vector<std::string>{"Charging started", "Charging stopped", "Device locked",
                                "Device unlocked", "Do Not Disturb disabled",
                                "Do Not Disturb enabled", "WiFi connected", "WiFi disconnected"}));
}

TEST_F(ProfilePicker, StandsOnBattery55WithoutATrigger) {
  page->saveProfileBtn();
  EXPECT_EQ(picker().selectedRowInComponent(0), 54);
  EXPECT_EQ(picker().titlesInComponent(0)[54], "Battery 55%");
}

TEST_F(ProfilePicker, StandsOnTheTriggerSavedLast) {
  device.store("profilepercentage", "101");
  page->saveProfileBtn();
  EXPECT_EQ(picker().titlesInComponent(0)[picker().selectedRowInComponent(0)], "Charging started");
}

TEST_F(ProfilePicker, StandsOnEachTriggerThatCanBeStored) {
  const auto values = page->percentageValueDataFromTarget(nullptr);
  ASSERT_EQ(values.size(), 108u);
  for (std::size_t row = 0; row < values.size(); ++row) {
    device.store("profilepercentage", values[row]);
    page->saveProfileBtn();
    EXPECT_EQ(picker().selectedRowInComponent(0), static_cast<int>(row));
  }
}

TEST_F(ProfilePicker, TakesANumberByItsDecimalText) {
  device.store("profilepercentage", 20);
  page->saveProfileBtn();
  EXPECT_EQ(picker().selectedRowInComponent(0), 19);
}

TEST_F(ProfilePicker, StandsOnBattery55ForWhatNamesNoRow) {
  for (const Value& stored : {Value("0"), Value("abc"), Value("055"), Value(""), Value(500),
                              Value(plist::Array{"5"}), Value(0.5)}) {
    device.store("profilepercentage", stored);
    page->saveProfileBtn();
    EXPECT_EQ(picker().selectedRowInComponent(0), 54);
  }
}

TEST_F(ProfilePicker, OffersSavedProfilesWithoutTheirDescriptionsForALoad) {
  seed::profile(device, "101");
  seed::profile(device, "10", "Night");
  seed::profile(device, "9");
  for (auto open :
       {&ProfilesListController::loadProfileBtn, &ProfilesListController::deleteProfileBtn}) {
    (page.get()->*open)();
    EXPECT_EQ(picker().titlesInComponent(0),
              (std::vector<std::string>{"Battery 9%", "Battery 10%", "Charging started"}));
    EXPECT_EQ(picker().selectedRowInComponent(0), 0);
  }
}

TEST_F(ProfilePicker, IsNotPreselectedForALoad) {
  seed::profile(device, "9");
  seed::profile(device, "10");
  device.store("profilepercentage", "10");
  page->loadProfileBtn();
  EXPECT_EQ(picker().selectedRowInComponent(0), 0);
}

TEST_F(ProfilePicker, ShowsANumberByItsDecimalText) {
  seed::archive(device, "profile_20.qvx", plist::Dictionary{{"profilepercentage", 20}});
  page->loadProfileBtn();
  EXPECT_EQ(picker().titlesInComponent(0), (std::vector<std::string>{"Battery 20%"}));
}

TEST_F(ProfilePicker, ShowsAProfileWithoutATriggerAsNull) {
  seed::archive(device, "profile_20.qvx", plist::Dictionary{});
  page->loadProfileBtn();
  EXPECT_EQ(picker().titlesInComponent(0), (std::vector<std::string>{"Battery (null)%"}));
}

TEST_F(ProfilePicker, LeavesOutWhatIsNotAProfileAndReportsThat) {
  seed::profile(device, "5");
  seed::write(device, "profile_1.qvx", {'j', 'u', 'n', 'k'});
  std::filesystem::create_directory(device.at(profilePath(2)));
  ASSERT_EQ(mkfifo(device.at(profilePath(3)).c_str(), 0600), 0);
  std::filesystem::create_symlink("/etc/passwd", device.at(profilePath(4)));
  seed::write(device, "profile_6.QVX", *device.root.read(profilePath(5)));
  page->loadProfileBtn();
  EXPECT_EQ(picker().titlesInComponent(0), (std::vector<std::string>{"Battery 5%"}));
  ASSERT_EQ(device.problems.size(), 1u);
  EXPECT_TRUE(device.problems[0].starts_with(
      "/var/mobile/Documents/Quorvantis/: no profile can be read from profile_1.qvx, "
      "profile_2.qvx, profile_3.qvx and 1 more: " +
      profilePath(1) + ": not a keyed archive: "))
      << device.problems[0];
}

TEST_F(ProfilePicker, BuildsItsListsAnewEachTime) {
  seed::profile(device, "5");
  page->loadProfileBtn();
  press("Cancel");
  seed::profile(device, "6");
  page->loadProfileBtn();
  EXPECT_EQ(picker().numberOfRowsInComponent(0), 2);
}

TEST_F(ProfilePicker, SortsPathsAndTitlesEachOnItsOwn) {
  seed::archive(device, "profile_1.qvx", plist::Dictionary{{"profilepercentage", "90"}});
  seed::archive(device, "profile_2.qvx", plist::Dictionary{{"profilepercentage", "50"}});
  choose("Delete", "Battery 50%");
  EXPECT_FALSE(device.root.exists(profilePath(1))) << "no pairing is kept";
  EXPECT_TRUE(device.root.exists(profilePath(2)));
}

TEST_F(ProfilePicker, DoesNothingWhenItIsTurned) {
  page->saveProfileBtn();
  EXPECT_TRUE(picker().turn(3, 0));
  EXPECT_TRUE(device.domain().empty());
  EXPECT_TRUE(device.events.empty());
  EXPECT_EQ(onScreen(), 1u);
}

}  // namespace
