#include "prefs/core/quorvantisprefsListController.h"
#include "tests/prefs_profiles/profile_page.h"

namespace {

using namespace prefs;
using plist::Value;
using Events = std::vector<std::string>;

const std::string kPrefs = "darwin com.zorvek.quorvantis.prefs";
const std::string kProfile = "darwin com.zorvek.quorvantis.profile";
const std::string kReload = "local com.zorvek.quorvantis.reloadSpecifiers ProfilesListController";

class ProfilePageEvents : public profiles_test::ProfilePage {
 protected:
  // Whether the page's rows were rebuilt since the last call.
  bool rebuilt() {
    const bool changed = page->specifierForID("profileactive")->propertyForKey("seen").isNothing();
    page->specifierForID("profileactive")->setPropertyForKey(true, "seen");
    return changed;
  }
};

TEST_F(ProfilePageEvents, ASavePostsOnlyTheReload) {
  rebuilt();
  choose("Save", "Battery 5%");
  EXPECT_EQ(device.events, Events{kReload});
  EXPECT_TRUE(rebuilt());
}

TEST_F(ProfilePageEvents, AnOverwritePostsOneReload) {
  seed::profile(device, "5");
  choose("Save", "Battery 5%");
  EXPECT_TRUE(device.events.empty());
  press("Overwrite");
  EXPECT_EQ(device.events, Events{kReload});
  EXPECT_TRUE(rebuilt());
}

TEST_F(ProfilePageEvents, ALoadSetsTheSwitchThenPostsThePrefsOnceAndThenTheReload) {
  seed::profile(device, "5");
  rebuilt();
  choose("Load", "Battery 5%");
  EXPECT_EQ(device.events, (Events{kProfile, kPrefs, kReload}));
  EXPECT_TRUE(rebuilt());
}

TEST_F(ProfilePageEvents, ADeletePostsOnlyTheReload) {
  seed::profile(device, "5");
  choose("Delete", "Battery 5%");
  EXPECT_EQ(device.events, Events{kReload});
  EXPECT_TRUE(rebuilt());
}

TEST_F(ProfilePageEvents, AtThePrefsPostTheStoreHasAllNewValuesAndTheRowsAreOld) {
  seed::archive(device, "profile_20.qvx",
                plist::Dictionary{{"profilepercentage", "20"}, {"wifi", 2}, {"profileactive", 0}});
  page->specifierForID("profileactive")->setPropertyForKey(true, "seen");
  int posts = 0;
  device.darwinCenter.hook = [&](const std::string& name) {
    if (name != "com.zorvek.quorvantis.prefs") return;
    ++posts;
    EXPECT_EQ(device.stored("wifi"), Value(2));
    EXPECT_EQ(device.stored("profilepercentage"), Value("20"));
    EXPECT_EQ(device.stored("profileactive"), Value(0.0f)) << "the switch was set before";
    EXPECT_FALSE(rebuilt()) << "the pages are reloaded after the post";
  };
  choose("Load", "Battery 20%");
  EXPECT_EQ(posts, 1);
}

TEST_F(ProfilePageEvents, AtTheReloadOfASaveTheFileTheStoreTheAlertAndTheRowsAreNew) {
  rebuilt();
  int posts = 0;
  device.center.setWitness([&](const foundation::Notification& posted) {
    ++posts;
    EXPECT_EQ(posted.object, page.get());
    EXPECT_TRUE(device.root.exists(profilePath(5)));
    EXPECT_EQ(device.stored("profilepercentage"), Value("5"));
    ASSERT_EQ(onScreen(), 1u);
    EXPECT_EQ(topmost().title, "Success");
    EXPECT_TRUE(rebuilt());
  });
  choose("Save", "Battery 5%");
  EXPECT_EQ(posts, 1);
}

TEST_F(ProfilePageEvents, AtTheReloadOfADeleteTheFileIsGoneAndTheAlertShown) {
  seed::profile(device, "5");
  int posts = 0;
  device.center.setWitness([&](const foundation::Notification&) {
    ++posts;
    EXPECT_FALSE(device.root.exists(profilePath(5)));
    EXPECT_EQ(topmost().title, "Done");
  });
  choose("Delete", "Battery 5%");
  EXPECT_EQ(posts, 1);
}

TEST_F(ProfilePageEvents, TheListsAndThePickerAreReleasedHalfASecondLater) {
  choose("Save", "Battery 5%");
  EXPECT_EQ(page->pickerViewNumberOfRowsInComponent(nullptr, 0), 108);
  device.queue.advance(foundation::Nanoseconds(499'999'999));
  EXPECT_EQ(page->pickerViewNumberOfRowsInComponent(nullptr, 0), 108);
  device.queue.advance(foundation::Nanoseconds(1));
  EXPECT_EQ(page->pickerViewNumberOfRowsInComponent(nullptr, 0), 0);
}

struct Lists : ProfilesListController {
  using ProfilesListController::lists_;
  using ProfilesListController::ProfilesListController;
};

TEST_F(ProfilePageEvents, TheReleaseDropsTitlesAndPathsNotIDs) {
  const auto lists = std::make_shared<Lists>(device.environment);
  lists->saveProfileBtn();
  lists->cleanUpPickerAndRelodSpecifers();
  waitForRelease();
  EXPECT_TRUE(lists->lists_.profileNameArray.empty());
  EXPECT_TRUE(lists->lists_.fileNameArray.empty());
  EXPECT_EQ(lists->lists_.profileIDArray.size(), 108u);
}

TEST_F(ProfilePageEvents, ThePickerIsKeptByThePageAloneAndGoesAtTheRelease) {
  page->saveProfileBtn();
  const std::weak_ptr<uikit::PickerView> watch =
      std::static_pointer_cast<uikit::PickerView>(picker().shared_from_this());
  press("Save");
  press("Ok");
  EXPECT_FALSE(watch.expired());
  waitForRelease();
  EXPECT_TRUE(watch.expired());
}

TEST_F(ProfilePageEvents, TheReleaseTakesWhatIsCurrentThen) {
  choose("Save", "Battery 5%");
  press("Ok");
  page->saveProfileBtn();
  EXPECT_EQ(picker().numberOfRowsInComponent(0), 108);
  waitForRelease();
  EXPECT_EQ(picker().numberOfRowsInComponent(0), 0);
  press("Save");
  EXPECT_EQ(onScreen(), 0u) << "closed, and nothing done";
  EXPECT_EQ(device.problems,
            std::vector<std::string>{"nothing was saved: the picker's rows were dropped after the "
                                     "last change; open it again"});
  EXPECT_EQ(device.root.contentsOfDirectory(kDocuments)->size(), 1u);
}

TEST_F(ProfilePageEvents, AConfirmationAfterTheReleaseDoesNothingOnAnyPicker) {
  seed::profile(device, "5");
  for (auto action : {"Load", "Delete"}) {
    page->cleanUpPickerAndRelodSpecifers();
    page->showProfileManagerBar();
    press(action);
    waitForRelease();
    device.events.clear();
    press(action);
    EXPECT_EQ(onScreen(), 0u);
    EXPECT_TRUE(device.events.empty());
    ASSERT_EQ(device.problems.size(), 1u);
    EXPECT_TRUE(device.problems[0].starts_with(
        action == std::string("Load") ? "nothing was loaded: " : "nothing was deleted: "));
    device.problems.clear();
  }
  EXPECT_TRUE(device.domain().empty());
  EXPECT_TRUE(device.root.exists(profilePath(5)));
}

TEST_F(ProfilePageEvents, APickerOpenedAfterTheReleaseIsUnharmed) {
  choose("Save", "Battery 5%");
  press("Ok");
  waitForRelease();
  page->saveProfileBtn();
  waitForRelease();
  EXPECT_EQ(picker().numberOfRowsInComponent(0), 108);
}

TEST_F(ProfilePageEvents, TheReleaseKeepsThePageUntilItHasRun) {
  choose("Save", "Battery 5%");
  press("Ok");
  const std::weak_ptr<ProfilesListController> watch = page;
  page.reset();
  EXPECT_FALSE(watch.expired());
  waitForRelease();
  EXPECT_TRUE(watch.expired());
}

TEST_F(ProfilePageEvents, AnAlertOnScreenKeepsNoPage) {
  page->saveProfileBtn();
  const std::weak_ptr<ProfilesListController> watch = page;
  page.reset();
  EXPECT_TRUE(watch.expired());
  EXPECT_EQ(picker().numberOfRowsInComponent(0), 0);
  press("Save");
  EXPECT_EQ(onScreen(), 0u);
}

TEST_F(ProfilePageEvents, ALoadByPathSaysWhyItWasRefused) {
  seed::write(device, "profile_5.qvx", {'j', 'u', 'n', 'k'});
  auto refused = page->loadProfileAtPath(profilePath(5));
  ASSERT_FALSE(refused);
  EXPECT_FALSE(refused.error().message().empty());
  EXPECT_TRUE(device.events.empty());
  seed::profile(device, "6");
  EXPECT_TRUE(page->loadProfileAtPath(profilePath(6)));
  EXPECT_EQ(device.events, (Events{kProfile, kPrefs, kReload}));
}

// Another page that keeps in step.
struct Observer : foundation::Object {
  std::string_view className() const override { return "Observer"; }
  void performForNotification(std::string_view, const foundation::Notification&) override {
    ++called;
  }
  int called = 0;
};

template <class Page>
struct Counting : Page {
  using Page::Page;
  void reloadSpecifiers() override {
    ++rebuilds;
    Page::reloadSpecifiers();
  }
  int rebuilds = 0;
};

TEST_F(ProfilePageEvents, TheFirstPageIsRebuiltOnceForEachChangeAndThisOneTwiceForAnOverwrite) {
  const auto first = std::make_shared<Counting<quorvantisprefsListController>>(device.environment);
  const auto counting = std::make_shared<Counting<ProfilesListController>>(device.environment);
  page = counting;
  first->viewDidLoad();
  page->viewDidLoad();
  int changes = 0;
  const auto expectRebuilds = [&](int own) {
    EXPECT_EQ(first->rebuilds, ++changes);
    EXPECT_EQ(std::exchange(counting->rebuilds, 0), own);
  };
  choose("Save", "Battery 5%");
  press("Ok");
  expectRebuilds(1);
  choose("Save", "Battery 5%");
  EXPECT_EQ(counting->rebuilds, 0);
  press("Overwrite");
  press("Ok");
  expectRebuilds(2);
  choose("Load", "Battery 5%");
  expectRebuilds(1);
  choose("Delete", "Battery 5%");
  expectRebuilds(1);
}

TEST_F(ProfilePageEvents, EachChangeReloadsTheOtherPagesOnce) {
  auto observer = std::make_shared<Observer>();
  device.center.addObserver(*observer, "reloadSpecifiers", kReloadSpecifiersNotification, nullptr);
  choose("Save", "Battery 5%");
  press("Ok");
  EXPECT_EQ(observer->called, 1);
  choose("Save", "Battery 5%");
  press("Overwrite");
  press("Ok");
  EXPECT_EQ(observer->called, 2);
  choose("Load", "Battery 5%");
  EXPECT_EQ(observer->called, 3);
  choose("Delete", "Battery 5%");
  EXPECT_EQ(observer->called, 4);
}

}  // namespace
