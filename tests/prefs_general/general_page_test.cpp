#include "prefs/pages/GeneralSettingsController.h"

#include "tests/platform_foundation/system_calls.h"
#include "tests/prefs_profiles/profiles_device.h"

namespace {

using namespace prefs;
using plist::Array;
using plist::Value;

class GeneralPage : public testing::Test {
 protected:
  GeneralPage() { page->viewDidLoad(); }

  Array list(std::string_view selector) {
    const preferences::Argument nil[] = {nullptr};
    auto result = page->operations().find(selector)->run(*page, nil);
    auto value = preferences::valueIn(*result);
    return *value->array();
  }

  profiles_test::ProfilesDevice device;
  std::shared_ptr<GeneralSettingsController> page =
      std::make_shared<GeneralSettingsController>(device.environment);
};

TEST_F(GeneralPage, LoadsItsListOnce) {
  EXPECT_EQ(page->loadError(), "");
  EXPECT_EQ(page->title, "General");
  const auto* before = page->specifierForID("tapaction");
  (void)page->specifiers();
  EXPECT_EQ(page->specifierForID("tapaction"), before);
}

TEST_F(GeneralPage, DeclaresItsOperationsInOrder) {
  std::vector<std::string_view> selectors;
  for (const auto& operation : GeneralSettingsController::ownOperations.own())
    selectors.push_back(operation.selector());
  EXPECT_EQ(
      selectors,
      (std::vector<std::string_view>{
          "specifiers", "tapValueDataFromTarget:", "tapDataFromTarget:", "holdValueDataFromTarget:",
          "holdDataFromTarget:", "valueDataFromTarget:", "titlesDataFromTarget:"}));
}

TEST_F(GeneralPage, OffersTwoActionsForATapAndForAHold) {
  for (auto selector : {"tapValueDataFromTarget:", "holdValueDataFromTarget:"})
    EXPECT_EQ(list(selector), (Array{200, 201})) << selector;
  for (auto selector : {"tapDataFromTarget:", "holdDataFromTarget:"})
    EXPECT_EQ(list(selector), (Array{"Toggle Quorvantis", "Toggle Low Power Mode"})) << selector;
}

TEST_F(GeneralPage, StoresActionsAsIntegers) {
  page->userChanged(*page->specifierForID("tapaction"), 201);
  EXPECT_EQ(device.stored("tapaction"), Value(201));
  EXPECT_EQ(page->valueOf(*page->specifierForID("tapaction")), Value(201));
}

TEST_F(GeneralPage, ListsNoProfilesWhereThereAreNone) {
  EXPECT_TRUE(list("valueDataFromTarget:").empty());
  EXPECT_TRUE(list("titlesDataFromTarget:").empty());
}

TEST_F(GeneralPage, ListsSavedProfilesAsTheFirstPageDoes) {
  seed::profile(device, "101");
  seed::profile(device, "10", "");
  seed::profile(device, "5", "Night");
  seed::write(device, "profile_6.qvx", {'j', 'u', 'n', 'k'});
  const std::string folder(kDocuments);
  EXPECT_EQ(
      list("valueDataFromTarget:"),
      (Array{folder + "profile_5.qvx", folder + "profile_10.qvx", folder + "profile_101.qvx"}));
  EXPECT_EQ(list("titlesDataFromTarget:"),
            (Array{"Battery 5% - Night", "Battery 10%", "Charging started"}));
}

TEST_F(GeneralPage, BuildsItsListsAfreshAtEachCall) {
  EXPECT_TRUE(list("titlesDataFromTarget:").empty());
  seed::profile(device, "5");
  EXPECT_EQ(list("titlesDataFromTarget:"), (Array{"Battery 5%"}));
}

TEST_F(GeneralPage, BindsEachChoiceRowToItsOwnLists) {
  seed::profile(device, "5", "Night");
  page->reloadSpecifiers();
  for (auto id : {"tapaction", "holdaction"}) {
    auto* row = page->specifierForID(id);
    ASSERT_NE(row, nullptr) << id;
    EXPECT_EQ(row->values(), (Array{200, 201})) << id;
  }
  EXPECT_EQ(page->specifierForID("tapaction")->textForKey("valuesDataSource"),
            "tapValueDataFromTarget:");
  EXPECT_EQ(page->specifierForID("holdaction")->textForKey("valuesDataSource"),
            "holdValueDataFromTarget:");
  auto* profile = page->specifierForID("profile");
  EXPECT_EQ(profile->titles(), (std::vector<std::string>{"Battery 5% - Night"}));
  page->userChanged(*profile, profile->values()[0]);
  EXPECT_EQ(device.stored("profile"), Value("/var/mobile/Documents/Quorvantis/profile_5.qvx"));
}

TEST_F(GeneralPage, ShowsADifferentActionForATapThanForAHoldAtFirst) {
  EXPECT_EQ(page->valueOf(*page->specifierForID("tapaction")), Value(200));
  EXPECT_EQ(page->valueOf(*page->specifierForID("holdaction")), Value(201));
}

TEST_F(GeneralPage, StoresAndAnnouncesEachChangeAndNothingElse) {
  for (auto& row : page->specifiers()) {
    if (row->textForKey("key").empty()) continue;
    EXPECT_TRUE(row->textForKey("set").empty()) << row->identifier();
    device.events.clear();
    page->userChanged(*row, row->propertyForKey("default"));
    EXPECT_EQ(device.events, std::vector<std::string>{"darwin com.zorvek.quorvantis.prefs"})
        << row->identifier();
    EXPECT_EQ(device.stored(row->textForKey("key")), row->propertyForKey("default"));
  }
}

TEST_F(GeneralPage, NeitherRedrawsNorFlushesAfterAChange) {
  device.store("tapaction", 201);
  auto* row = page->specifierForID("enabled");
  page->buildRow(*row);
  const auto* cell = row->cellObject();
  auto& calls = foundation::test::systemCalls();
  calls.log.clear();
  page->userChanged(*row, false);
  EXPECT_EQ(device.stored("enabled"), Value(false));
  EXPECT_EQ(calls.log,
            (std::vector<std::string>{"fsync *", "rename * com.zorvek.quorvantis.plist"}))
      << "the folder is flushed later";
  EXPECT_EQ(row->cellObject(), cell);
}

}  // namespace
