#include "prefs/pages/option_pages.h"

#include "tests/prefs_profiles/profiles_device.h"

namespace {

using namespace prefs;
using plist::Value;

class ExtrasPage : public testing::Test {
 protected:
  ExtrasPage() { page->viewDidLoad(); }

  profiles_test::ProfilesDevice device;
  std::shared_ptr<ExtrasListController> page =
      std::make_shared<ExtrasListController>(device.environment);
};

TEST_F(ExtrasPage, LoadsItsListOnce) {
  EXPECT_EQ(page->loadError(), "");
  EXPECT_EQ(page->title, "Extras");
  const auto* before = page->specifierForID("takescreenshot");
  (void)page->specifiers();
  EXPECT_EQ(page->specifierForID("takescreenshot"), before);
}

TEST_F(ExtrasPage, HasOneOperation) {
  const auto& own = ExtrasListController::ownOperations.own();
  ASSERT_EQ(own.size(), 1u);
  EXPECT_EQ(own[0].selector(), "specifiers");
}

TEST_F(ExtrasPage, HoldsTheScreenshotSwitchWithTheDefaultOfTheTable) {
  auto* row = page->specifierForID("takescreenshot");
  ASSERT_NE(row, nullptr);
  EXPECT_EQ(row->textForKey("cellClass"), "QuorvantisSwitchTableCell");
  EXPECT_EQ(row->propertyForKey("default"), *profileDefault("takescreenshot"));
}

TEST_F(ExtrasPage, StoresAndAnnouncesEachChangeAndNothingElse) {
  for (auto& row : page->specifiers()) {
    if (row->textForKey("key").empty()) continue;
    EXPECT_TRUE(row->textForKey("set").empty()) << row->identifier();
    device.events.clear();
    page->userChanged(*row, true);
    EXPECT_EQ(device.events, std::vector<std::string>{"darwin com.zorvek.quorvantis.prefs"})
        << row->identifier();
    EXPECT_EQ(device.stored(row->textForKey("key")), Value(true));
  }
}

}  // namespace
