#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>

#include "prefs/core/quorvantisprefsListController.h"
#include "prefs/resources/bundle.h"
#include "tests/prefs/seed.h"

namespace {

using namespace prefs;
using plist::Array;

class RootPage : public testing::Test {
 protected:
  Array paths() { return page->valueDataFromTarget(nullptr); }
  Array titles() { return page->titlesDataFromTarget(nullptr); }
  Array log() { return page->batteryLogValueDataFromTarget(nullptr); }
  static plist::Value path(const std::string& name) { return std::string(kDocuments) + name; }

  testing_support::TestDevice device{bundle()};
  std::shared_ptr<quorvantisprefsListController> page =
      std::make_shared<quorvantisprefsListController>(device.environment);
};

TEST_F(RootPage, IsTheFirstPageAndLoadsItsList) {
  EXPECT_EQ(bundle().principalClass, "quorvantisprefsListController");
  page->viewDidLoad();
  EXPECT_EQ(page->loadError(), "");
  EXPECT_EQ(page->title, "Quorvantis");
  EXPECT_FALSE(page->specifiers().empty());
}

TEST_F(RootPage, DeclaresItsOperationsInOrder) {
  std::vector<std::string_view> selectors;
  for (const auto& operation : quorvantisprefsListController::ownOperations.own())
    selectors.push_back(operation.selector());
  EXPECT_EQ(selectors, (std::vector<std::string_view>{
                           "specifiers", "followMe:", "donate:", "test", "valueDataFromTarget:",
                           "titlesDataFromTarget:", "batteryLogValueDataFromTarget:",
                           "batteryLogTitlesDataFromTarget:", "relodSpecifers", "viewDidLoad"}));
}

TEST_F(RootPage, ListsProfilesInNumericOrderUnderTheirTitles) {
  seed::profile(device, "101");
  seed::profile(device, "10");
  seed::profile(device, "5", "Night");
  EXPECT_EQ(paths(),
            (Array{path("profile_5.qvx"), path("profile_10.qvx"), path("profile_101.qvx")}));
  EXPECT_EQ(titles(), (Array{"Battery 5% - Night", "Battery 10%", "Charging started"}));
}

TEST_F(RootPage, AddsNothingForAnEmptyDescription) {
  seed::profile(device, "7", "");
  EXPECT_EQ(titles(), (Array{"Battery 7%"}));
}

TEST_F(RootPage, AddsADescriptionOfBlanksOnly) {
  seed::profile(device, "7", "  ");
  EXPECT_EQ(titles(), (Array{"Battery 7% -   "}));
}

TEST_F(RootPage, AddsNothingForADescriptionThatIsNotText) {
  seed::profile(device, "7", 5);
  EXPECT_EQ(titles(), (Array{"Battery 7%"}));
}

TEST_F(RootPage, ListsOnlyTheExactExtension) {
  auto bytes = *archive::archive(plist::Dictionary{{"profilepercentage", "7"}},
                                 archive::Mutability::Mutable);
  for (auto name : {"profile_7.QVX", "profile_7.qvx.bak", "qvx", ".qvx", "quorvantis.log"})
    seed::write(device, name, bytes);
  EXPECT_TRUE(paths().empty());
  EXPECT_TRUE(titles().empty());
  seed::write(device, "any name.qvx", bytes);
  EXPECT_EQ(paths(), (Array{path("any name.qvx")}));
}

TEST_F(RootPage, DoesNotRepairAFileThatIsNamedAfterAnotherTrigger) {
  seed::archive(device, "profile_1.qvx", plist::Dictionary{{"profilepercentage", "90"}});
  seed::archive(device, "profile_2.qvx", plist::Dictionary{{"profilepercentage", "50"}});
  EXPECT_EQ(paths(), (Array{path("profile_1.qvx"), path("profile_2.qvx")}));
  EXPECT_EQ(titles(), (Array{"Battery 50%", "Battery 90%"}));
}

TEST_F(RootPage, TitlesAProfileWithoutATriggerAsNull) {
  seed::archive(device, "profile_1.qvx", plist::Dictionary{});
  EXPECT_EQ(titles(), (Array{"Battery (null)%"}));
}

TEST_F(RootPage, ListsAWholeArchiveThatIsNotADictionary) {
  seed::archive(device, "profile_1.qvx", Array{"x"});
  EXPECT_EQ(paths().size(), 1u);
  EXPECT_EQ(titles(), (Array{"Battery (null)%"}));
}

TEST_F(RootPage, TitlesANumberByItsDecimalText) {
  seed::archive(device, "profile_1.qvx", plist::Dictionary{{"profilepercentage", 20}});
  EXPECT_EQ(titles(), (Array{"Battery 20%"}));
}

TEST_F(RootPage, LeavesOutWhatIsNotAKeyedArchiveFromBothLists) {
  seed::profile(device, "5");
  std::string folder = device.folder.path() + std::string(kDocuments);
  seed::write(device, "profile_1.qvx", {'j', 'u', 'n', 'k'});
  seed::write(device, "profile_2.qvx", {});
  seed::write(device, "profile_3.qvx", *plist::writeBinary(plist::Dictionary{{"a", 1}}));
  std::filesystem::create_directory(folder + "profile_4.qvx");
  mkfifo((folder + "profile_6.qvx").c_str(), 0600);
  std::filesystem::create_symlink("/etc/passwd", folder + "profile_7.qvx");
  std::filesystem::create_symlink("nowhere", folder + "profile_9.qvx");
  seed::profile(device, "10");
  std::filesystem::rename(folder + "profile_10.qvx", device.folder.path() + "/whole.qvx");
  std::filesystem::create_symlink("/whole.qvx", folder + "profile_10.qvx");
  auto whole = *archive::archive(plist::Dictionary{{"profilepercentage", "8"}},
                                 archive::Mutability::Mutable);
  whole.resize(whole.size() - 1);
  seed::write(device, "profile_8.qvx", whole);
  EXPECT_EQ(paths(), (Array{path("profile_5.qvx")}));
  EXPECT_EQ(titles(), (Array{"Battery 5%"}));
}

TEST_F(RootPage, ListsNothingWithoutTheFolder) {
  EXPECT_TRUE(paths().empty());
  EXPECT_TRUE(titles().empty());
  EXPECT_TRUE(log().empty());
}

TEST_F(RootPage, ShowsTheLastStoredLogEntryFirst) {
  seed::archive(device, "quorvantis.log", Array{"A", "B", "C"});
  EXPECT_EQ(log(), (Array{"C", "B", "A"}));
  EXPECT_EQ(page->batteryLogTitlesDataFromTarget(nullptr), (Array{"C", "B", "A"}));
}

TEST_F(RootPage, ShowsNoLogThatIsUnreadableOrNotAnArray) {
  seed::write(device, "quorvantis.log", {'x'});
  EXPECT_TRUE(log().empty());
  seed::archive(device, "quorvantis.log", "text");
  EXPECT_TRUE(log().empty());
}

TEST_F(RootPage, DoesNotSplitFilterOrLimitTheLog) {
  Array entries;
  for (int i = 0; i < 20'000; ++i) entries.push_back("line\n" + std::to_string(i % 7));
  seed::archive(device, "quorvantis.log", entries);
  std::ranges::reverse(entries);
  EXPECT_EQ(log(), entries);
  EXPECT_EQ(page->batteryLogTitlesDataFromTarget(nullptr), entries);
}

TEST_F(RootPage, KeepsLogEntriesThatAreNotText) {
  const Array entries{"A", 5, true, 2.5, "", Array{"B"}, plist::Dictionary{{"c", "D"}}};
  seed::archive(device, "quorvantis.log", entries);
  EXPECT_EQ(log(), Array(entries.rbegin(), entries.rend()));
  EXPECT_EQ(page->batteryLogTitlesDataFromTarget(nullptr), log());
}

TEST_F(RootPage, OpensTheFirstInstalledClient) {
  const char* clients[][2] = {{"tweetbot", "tweetbot:///user_profile/zorvek_dev"},
                              {"twitterrific", "twitterrific:///profile?screen_name=zorvek_dev"},
                              {"tweetings", "tweetings:///user?screen_name=zorvek_dev"},
                              {"twitter", "twitter://user?screen_name=zorvek_dev"}};
  device.urls.schemes = {"tweetbot", "twitterrific", "tweetings", "twitter"};
  for (auto& [scheme, url] : clients) {
    page->followMe(nullptr);
    EXPECT_EQ(device.urls.opened.back(), url);
    device.urls.schemes.erase(device.urls.schemes.begin());
  }
}

// Notes in order what it is asked.
struct LoggingUrls : platform::Urls {
  bool canOpen(std::string_view url) override {
    log.push_back("can open " + std::string(url));
    return url == installed;
  }
  bool open(std::string_view url) override {
    log.push_back("open " + std::string(url));
    return true;
  }
  std::string installed;
  std::vector<std::string> log;
};

class FollowMe : public RootPage {
 protected:
  // What the platform is asked for when this client is installed.
  std::vector<std::string> callsWith(const std::string& installed) {
    LoggingUrls urls;
    urls.installed = installed;
    auto& own = device.environment;
    preferences::Environment environment{
        own.root, own.preferences, own.defaultCenter, own.mainQueue, own.darwinCenter, own.collator,
        urls,     own.addressBook, own.sounds,        own.xml,       own.bundle};
    std::make_shared<quorvantisprefsListController>(environment)->followMe(nullptr);
    return urls.log;
  }
};

TEST_F(FollowMe, AsksForTheClientsInOrderAndStopsAtTheFirstThatCan) {
  EXPECT_EQ(
      callsWith("tweetbot:"),
      (std::vector<std::string>{"can open tweetbot:", "open tweetbot:///user_profile/zorvek_dev"}));
  EXPECT_EQ(callsWith("tweetings:"),
            (std::vector<std::string>{
                "can open tweetbot:", "can open twitterrific:", "can open tweetings:",
                "open tweetings:///user?screen_name=zorvek_dev"}));
}

TEST_F(FollowMe, OpensTheWebPageWithoutAskingAsTheLastResort) {
  auto calls = callsWith("https:");
  ASSERT_EQ(calls.size(), 5u);
  const std::string opened = calls.back();
  calls.pop_back();
  EXPECT_EQ(calls, (std::vector<std::string>{"can open tweetbot:", "can open twitterrific:",
                                             "can open tweetings:", "can open twitter:"}));
  EXPECT_TRUE(opened.starts_with("open https://")) << opened;
  EXPECT_TRUE(opened.ends_with("/zorvek_dev")) << opened;
}

TEST_F(RootPage, DonatesOnASecurePageWithAHostedButton) {
  page->donate(nullptr);
  ASSERT_EQ(device.urls.opened.size(), 1u);
  EXPECT_TRUE(device.urls.opened[0].starts_with("https://"));
  EXPECT_NE(device.urls.opened[0].find("hosted_button_id="), std::string::npos);
}

TEST_F(RootPage, TestDoesNothing) {
  page->test();
  EXPECT_TRUE(device.urls.opened.empty());
  EXPECT_TRUE(device.darwin.posted.empty());
}

struct CountingPage : quorvantisprefsListController {
  using quorvantisprefsListController::quorvantisprefsListController;
  void reloadSpecifiers() override {
    ++rebuilds;
    quorvantisprefsListController::reloadSpecifiers();
  }
  int rebuilds = 0;
};

TEST_F(RootPage, LoadsItsListOnce) {
  const auto* first = page->specifiers().front().get();
  EXPECT_EQ(page->specifiers().front().get(), first);
}

TEST_F(RootPage, RebuildsOnceForEachReloadNotification) {
  const auto counting = std::make_shared<CountingPage>(device.environment);
  page = counting;
  page->viewDidLoad();
  auto* before = page->specifierForID("savedprofiles");
  EXPECT_TRUE(before->titles().empty());
  seed::profile(device, "5");
  device.center.postNotificationName(kReloadSpecifiersNotification, page.get());
  EXPECT_EQ(page->specifierForID("savedprofiles")->titles(),
            (std::vector<std::string>{"Battery 5%"}));
  EXPECT_EQ(counting->rebuilds, 1);
  device.center.postNotificationName(kReloadSpecifiersNotification, page.get());
  EXPECT_EQ(counting->rebuilds, 2);
}

TEST_F(RootPage, RebuildsForAnyPoster) {
  page->viewDidLoad();
  seed::profile(device, "5");
  device.center.postNotificationName(kReloadSpecifiersNotification, nullptr);
  EXPECT_EQ(page->specifierForID("savedprofiles")->titles().size(), 1u);
}

TEST_F(RootPage, RebuildsByItsOwnAction) {
  page->viewDidLoad();
  seed::profile(device, "5");
  page->relodSpecifers();
  EXPECT_EQ(page->specifierForID("savedprofiles")->titles().size(), 1u);
}

TEST_F(RootPage, StopsObservingWhenItIsDestroyed) {
  struct Storage {
    alignas(CountingPage) std::byte bytes[sizeof(CountingPage)];
  } storage;
  // Owned by no shared pointer, so the center can't see by itself that it is destroyed.
  auto* counting = new (&storage) CountingPage(device.environment);
  counting->viewDidLoad();
  counting->~CountingPage();
  std::ranges::fill(storage.bytes, std::byte(0));
  device.center.postNotificationName(kReloadSpecifiersNotification, nullptr);
  EXPECT_TRUE(std::ranges::all_of(storage.bytes, [](std::byte b) { return b == std::byte(0); }));
}

TEST_F(RootPage, DoesNotObserveBeforeItIsLoaded) {
  EXPECT_TRUE(page->specifierForID("savedprofiles")->titles().empty());
  seed::profile(device, "5");
  device.center.postNotificationName(kReloadSpecifiersNotification, nullptr);
  EXPECT_TRUE(page->specifierForID("savedprofiles")->titles().empty());
}

}  // namespace
