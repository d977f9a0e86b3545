#include <gtest/gtest.h>

#include "platform/preferences/PSListItemsController.h"
#include "tests/platform_preferences/sample_device.h"

namespace {

class ChoicesPage : public testing::Test {
 protected:
  ChoicesPage() {
    page->buildRow(*page->specifierForID("list"));
    choices->setOpener(page->specifiers()[3], page);
    choices->viewDidLoad();
    choices->tableView().show(0, 12);
  }
  uikit::Accessory accessory(int row) {
    return choices->tableView().cellForRowAtIndexPath({0, row})->accessory;
  }

  sample::Device device;
  std::shared_ptr<sample::ListPage> page = device.page();
  std::shared_ptr<preferences::PSListItemsController> choices =
      std::make_shared<preferences::PSListItemsController>(device.environment);
};

TEST_F(ChoicesPage, AsksTheDataSourcesAtEachOpening) {
  EXPECT_EQ(page->asked, 2);
  EXPECT_EQ(choices->title, "list");
}

TEST_F(ChoicesPage, TicksTheCurrentValue) {
  EXPECT_EQ(accessory(0), uikit::Accessory::None);
  EXPECT_EQ(accessory(1), uikit::Accessory::Checkmark);
  EXPECT_EQ(choices->selectedRow(), 1);
}

TEST_F(ChoicesPage, TicksNothingForAForeignValue) {
  (void)device.preferences.setAppValue("list", 99, "test.domain");
  choices->tableView().reloadData();
  EXPECT_EQ(choices->selectedRow(), -1);
  EXPECT_EQ(accessory(1), uikit::Accessory::None);
}

TEST_F(ChoicesPage, StoresTheChosenEntryInItsOwnKindAndStays) {
  choices->tableViewDidSelectRowAtIndexPath(choices->tableView(), {0, 0});
  EXPECT_EQ(device.preferences.copyAppValue("list", "test.domain"), plist::Value(1));
  EXPECT_EQ(accessory(0), uikit::Accessory::Checkmark);
  EXPECT_EQ(accessory(1), uikit::Accessory::None);
  EXPECT_EQ(page->specifierForID("list")->cellObject()->detailTextLabel.text, "number 1");
}

}  // namespace
