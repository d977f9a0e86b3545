#include <gtest/gtest.h>

#include "platform/preferences/control_cells.h"
#include "tests/platform_preferences/sample_device.h"

namespace {

using Page = sample::NamedPage<"First">;

class ListController : public testing::Test {
 protected:
  preferences::PSSpecifier& row(const char* id) { return *page->specifierForID(id); }
  preferences::PSSpecifier& built(const char* id) {
    page->buildRow(row(id));
    return row(id);
  }
  std::optional<plist::Value> stored(const char* key) {
    return device.preferences.copyAppValue(key, "test.domain");
  }

  sample::Device device;
  std::shared_ptr<sample::ListPage> page = device.page();
};

TEST_F(ListController, LoadsItsListOnce) {
  auto* first = page->specifiers()[1].get();
  EXPECT_EQ(page->specifiers()[1].get(), first);
  EXPECT_EQ(page->specifiers().size(), 19u);
  EXPECT_EQ(page->title, "First Page");
}

TEST_F(ListController, IsTitledByTheRowThatOpenedIt) {
  auto pushed = std::make_shared<Page>(device.environment);
  pushed->setOpener(page->specifiers()[1], page);
  pushed->viewDidLoad();
  EXPECT_EQ(pushed->title, "switch");
}

TEST_F(ListController, HasNoRowsWithoutAList) {
  preferences::Bundle empty{"First", {}, {}, {}};
  testing_support::TestDevice bare(empty);
  Page lost(bare.environment);
  EXPECT_TRUE(lost.specifiers().empty());
  EXPECT_EQ(lost.loadError(), "First: no such specifier list");
}

TEST_F(ListController, FindsARowByIdentifierElseNothing) {
  EXPECT_EQ(row("slider").name(), "slider");
  EXPECT_EQ(page->specifierForID("absent"), nullptr);
}

TEST_F(ListController, MakesNoRowBeforeItIsOnScreen) {
  for (const auto& each : page->specifiers()) {
    EXPECT_FALSE(each->isBuilt());
    EXPECT_EQ(each->control(), nullptr);
  }
  EXPECT_NE(built("switch").control(), nullptr);
  EXPECT_FALSE(row("slider").isBuilt());
}

TEST_F(ListController, ShowsTheDefaultWhileTheStoreHasNone) {
  EXPECT_TRUE(static_cast<uikit::Switch*>(built("on").control())->isOn());
  EXPECT_EQ(static_cast<uikit::Slider*>(built("slider").control())->value(), 50);
  EXPECT_FALSE(stored("on")) << "a default is not written";
}

TEST_F(ListController, ShowsTheStoredValue) {
  (void)device.preferences.setAppValue("on", false, "test.domain");
  EXPECT_FALSE(static_cast<uikit::Switch*>(built("on").control())->isOn());
  EXPECT_EQ(row("on").propertyForKey("value"), plist::Value(false));
}

TEST_F(ListController, StoresThenPostsTheRowsNotification) {
  page->setPreferenceValueSpecifier(true, &row("switch"));
  EXPECT_EQ(stored("switch"), plist::Value(true));
  EXPECT_EQ(device.darwin.posted, std::vector<std::string>{"changed"});
}

TEST_F(ListController, PostsNothingForARowThatNamesNoNotification) {
  page->setPreferenceValueSpecifier(10.0, &row("slider"));
  EXPECT_EQ(stored("slider"), plist::Value(10.0));
  EXPECT_TRUE(device.darwin.posted.empty());
}

TEST_F(ListController, StoresNothingWithoutKeyAndDefaults) {
  page->setPreferenceValueSpecifier(false, &row("unstored"));
  EXPECT_FALSE(stored("unstored"));
  EXPECT_EQ(page->readPreferenceValue(&row("unstored")), plist::Value(true));
}

TEST_F(ListController, StoresTheNegationOfANegatedRow) {
  EXPECT_TRUE(static_cast<uikit::Switch*>(built("negated").control())->isOn());
  page->userChanged(row("negated"), false);
  EXPECT_EQ(stored("negated"), plist::Value(true));
  EXPECT_FALSE(static_cast<uikit::Switch*>(row("negated").control())->isOn());
}

TEST_F(ListController, SendsAUsersChangeThroughTheRowsSetter) {
  built("own");
  page->userChanged(row("own"), true);
  EXPECT_EQ(page->setterCalls, 1);
  EXPECT_EQ(stored("own"), plist::Value(true));
  page->userChanged(row("switch"), true);
  EXPECT_EQ(page->setterCalls, 1);
}

TEST_F(ListController, ReadsARowThroughItsGetter) {
  EXPECT_EQ(static_cast<uikit::TextField*>(built("loud").control())->text, "hey!");
  EXPECT_EQ(static_cast<uikit::TextField*>(row("loud").control())->placeholder, "type");
}

TEST_F(ListController, RedrawsABuiltRowAndLeavesAnUnbuiltOne) {
  auto* before = built("on").cellObject();
  before->setAlpha(0.3f);
  (void)device.preferences.setAppValue("on", false, "test.domain");
  page->reloadSpecifier(&row("on"));
  EXPECT_EQ(row("on").cellObject()->alpha(), 1.0);
  EXPECT_FALSE(static_cast<uikit::Switch*>(row("on").control())->isOn());
  page->reloadSpecifier(&row("slider"));
  EXPECT_FALSE(row("slider").isBuilt());
  page->reloadSpecifier(nullptr);
}

TEST_F(ListController, DropsAllRowsOnReload) {
  built("switch");
  std::weak_ptr<preferences::PSSpecifier> old = page->specifiers()[1];
  page->reloadSpecifiers();
  EXPECT_TRUE(old.expired());
  EXPECT_FALSE(row("switch").isBuilt());
}

TEST_F(ListController, AsksDataSourcesOnceAListAndNotBeforeItsChoicesAreAskedFor) {
  EXPECT_EQ(page->asked, 0);
  EXPECT_EQ(row("list").titles(), (std::vector<std::string>{"number 1", "number 2"}));
  EXPECT_EQ(row("list").values(), (plist::Array{1, 2}));
  EXPECT_EQ(page->asked, 1);
  page->choiceValues = {7, 8};
  page->reloadSpecifiers();
  EXPECT_EQ(page->asked, 1);
  EXPECT_EQ(row("list").values(), (plist::Array{7, 8}));
  EXPECT_EQ(page->asked, 2);
}

TEST_F(ListController, DataSourceThatAsksForRowsSeesThemAllAndCanNotReloadThem) {
  page->whenAsked = [](sample::ListPage& asked) {
    const auto* button = asked.specifierForID("button");
    EXPECT_EQ(asked.specifiers().size(), 19u);
    asked.reloadSpecifiers();
    EXPECT_EQ(asked.specifierForID("button"), button);
  };
  EXPECT_EQ(row("list").values(), (plist::Array{1, 2}));
  EXPECT_EQ(page->asked, 1);
}

TEST_F(ListController, DataSourcesOfARowShareWhatTheFirstReadsUntilBothWereAsked) {
  page->loadChoices(row("list"));
  EXPECT_EQ(page->read, 1);
  page->loadChoices(row("list"));
  EXPECT_EQ(page->read, 2);
  page->numbers(nullptr);
  page->names(nullptr);
  EXPECT_EQ(page->read, 4);
}

TEST_F(ListController, DataSourcesOfARowThatReadDifferentThingsReadBoth) {
  page->readsApart = true;
  page->loadChoices(row("list"));
  EXPECT_EQ(page->read, 2);
}

TEST_F(ListController, DropsChoicesWithoutAPartner) {
  page->choiceValues = {7, 8, 9};
  page->choiceTitles = {"one", "two"};
  page->loadChoices(row("list"));
  EXPECT_EQ(row("list").values().size(), 2u);
  page->choiceValues = {7};
  page->loadChoices(row("list"));
  EXPECT_EQ(row("list").titles(), std::vector<std::string>{"one"});
}

TEST_F(ListController, ShowsTheTitleOfTheChosenValueComparingNumbersByValue) {
  (void)device.preferences.setAppValue("list", 1.0, "test.domain");
  EXPECT_EQ(built("list").cellObject()->detailText(), "number 1");
  EXPECT_EQ(row("list").indexOfValue(plist::Value("1")), -1) << "text never equals a number";
}

TEST_F(ListController, SelectsNoSegmentForAForeignValue) {
  (void)device.preferences.setAppValue("segment", 5, "test.domain");
  auto* segments = static_cast<uikit::SegmentedControl*>(built("segment").control());
  EXPECT_EQ(segments->selectedSegmentIndex, -1);
  EXPECT_EQ(segments->titles, (std::vector<std::string>{"Off", "On"}));
}

}  // namespace
