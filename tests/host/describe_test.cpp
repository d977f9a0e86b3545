#include "host/describe.h"

#include <gmock/gmock.h>

#include "platform/uikit/alert_controller.h"
#include "platform/uikit/alert_view.h"
#include "tests/host/described_page.h"

namespace {

using described::row;
using described::Shown;
using host::describe;
using plist::Array;
using plist::Value;

TEST(DescribePages, NothingBeforeALaunch) {
  const described::Bundle bundle({});
  testing_support::TestDevice device(bundle.bundle());
  host::Application application(device.environment, 12);
  EXPECT_EQ(describe(application), host::Scene());
  EXPECT_EQ(describe(application).shown(), nullptr);
}

Array links() {
  return {
      row("PSSwitchCell", "switch"),
      row("PSLinkCell", "color",
          {{"cellClass", "ZorvekColorPickerQuorvantisLinkCell"},
           {"detail", "ZorvekColorPickerQuorvantis"},
           {"default", "#007AFF"}}),
      row("PSLinkListCell", "list",
          {{"valuesDataSource", "numbers:"}, {"titlesDataSource", "numbers:"}, {"default", 2}})};
}

TEST(DescribePages, OnlyTheShownOneIsDescribedBeyondClassAndTitle) {
  Shown shown(links());
  EXPECT_EQ(describe(shown.application).shown()->rows.size(), 3u);
  ASSERT_TRUE(shown.application.perform(host::Tap{"list"}));
  const host::Scene scene = describe(shown.application);
  ASSERT_EQ(scene.pages.size(), 2u);
  EXPECT_EQ(scene.pages[0].pageClass, "Page");
  EXPECT_EQ(scene.pages[0].title, "Title");
  EXPECT_TRUE(scene.pages[0].rows.empty());
  EXPECT_EQ(scene.shown()->pageClass, "PSListItemsController");
  EXPECT_EQ(scene.shown()->title, "[list]");
}

TEST(DescribePages, NumberIsAPagesOwnForItsLife) {
  Shown shown(links());
  const auto first = describe(shown.application).pages[0].number;
  ASSERT_TRUE(shown.application.perform(host::Tap{"list"}));
  const auto second = describe(shown.application).pages[1].number;
  EXPECT_NE(second, first);
  ASSERT_TRUE(shown.application.perform(host::Back{}));
  EXPECT_EQ(describe(shown.application).pages[0].number, first);
  ASSERT_TRUE(shown.application.perform(host::Tap{"list"}));
  EXPECT_NE(describe(shown.application).pages[1].number, second);
}

TEST(DescribePages, SaysWhyAListCanNotBeShown) {
  Shown shown({row("PSSwitchCell", "switch"), "not a row"});
  EXPECT_THAT(describe(shown.application).shown()->error, testing::StartsWith("Page: row 1"));
}

TEST(DescribePages, HasABarButtonOrNot) {
  Shown shown(links());
  EXPECT_FALSE(describe(shown.application).shown()->barButton);
  shown.page().navigationItem.rightBarButtonItem = std::make_shared<uikit::BarButtonItem>(
      uikit::BarButtonSystemItem::Compose, shown.application.pages()[0], "act");
  EXPECT_TRUE(describe(shown.application).shown()->barButton);
}

TEST(DescribePages, ChangesNothing) {
  Shown shown(links());
  for (const char* row : {"color", "list"}) {
    ASSERT_TRUE(shown.application.perform(host::Tap{row}));
    const auto before = describe(shown.application);
    EXPECT_EQ(describe(shown.application), before);
    ASSERT_TRUE(shown.application.perform(host::Back{}));
  }
}

TEST(DescribeTables, ChoicesAreTheRowsOwnAndTheChosenOneIsTicked) {
  Shown shown(links(), 1);
  ASSERT_TRUE(shown.application.perform(host::Resize{3}));
  const auto& choices = shown.specifier("list").choices();
  ASSERT_TRUE(shown.application.perform(host::Tap{"list"}));
  const host::PageView page = *describe(shown.application).shown();
  EXPECT_TRUE(page.isTable);
  EXPECT_EQ(page.choices, choices);
  EXPECT_EQ(page.chosen, 1);
  ASSERT_EQ(page.sections.size(), 1u);
  EXPECT_EQ(page.sections[0].rows, 2);
  EXPECT_EQ(page.sections[0].rowHeight, 44);
  ASSERT_EQ(page.tableRows.size(), 2u);
  EXPECT_EQ(page.tableRows.at(0).title, "1");
  EXPECT_FALSE(page.tableRows.at(0).ticked);
  EXPECT_TRUE(page.tableRows.at(1).ticked);
  EXPECT_EQ(page.opener, std::nullopt);
}

TEST(DescribeTables, OnlyRowsOnScreenAreDescribed) {
  Shown shown(links(), 3);
  ASSERT_TRUE(shown.application.perform(host::Tap{"color"}));
  ASSERT_TRUE(shown.application.perform(host::Scroll{4}));
  const host::PageView page = *describe(shown.application).shown();
  EXPECT_EQ(page.firstShown, 4);
  std::vector<int> rows;
  for (const auto& [index, row] : page.tableRows) rows.push_back(index);
  EXPECT_THAT(rows, testing::ElementsAre(4, 5, 6));
}

TEST(DescribeTables, ColorsOffScreenAreDescribedAsTheyWouldComeOnScreen) {
  Shown shown(links(), 1000);
  ASSERT_TRUE(shown.application.perform(host::Tap{"color"}));
  const auto page = [&] { return *describe(shown.application).shown(); };
  const auto all = page().tableRows;
  EXPECT_TRUE(page().offScreen.empty());
  ASSERT_TRUE(shown.application.perform(host::Scroll{0, 3}));
  auto rows = page().offScreen;
  EXPECT_EQ(rows.size(), all.size() - 3);
  EXPECT_TRUE(rows.at(3).ticked) << "System Blue";
  EXPECT_TRUE(rows.rbegin()->second.panel);
  rows.merge(page().tableRows);
  EXPECT_EQ(rows, all);
}

TEST(DescribeTables, ColorsStandInSectionsAndTheLastOneMixes) {
  Shown shown(links(), 1000);
  ASSERT_TRUE(shown.application.perform(host::Tap{"color"}));
  const host::PageView page = *describe(shown.application).shown();
  ASSERT_EQ(page.sections.size(), 4u);
  int rows = 0;
  for (const auto& section : page.sections) {
    EXPECT_EQ(section.mixes, &section == &page.sections.back());
    rows += section.rows;
  }
  ASSERT_EQ(static_cast<int>(page.tableRows.size()), rows);
  const host::TableRowView& mixed = page.tableRows.at(rows - 1);
  ASSERT_TRUE(mixed.panel);
  ASSERT_EQ(mixed.panel->sliders.size(), 3u);
  EXPECT_EQ(mixed.panel->sliders[0].tag, 201);
  EXPECT_EQ(mixed.panel->sliders[0].maximum, 255);
  const host::TableRowView& first = page.tableRows.at(page.sections[0].rows);
  EXPECT_EQ(first.title, "Purple");
  EXPECT_EQ(first.image->hex(), "#5856D6");
  EXPECT_FALSE(first.panel);
}

TEST(DescribeTables, OpenerHasTheColorThatIsChosenNow) {
  Shown shown(links(), 1000);
  ASSERT_TRUE(shown.application.perform(host::Tap{"color"}));
  const auto opener = [&] { return *describe(shown.application).shown()->opener; };
  EXPECT_EQ(opener().id, "color");
  EXPECT_EQ(opener().value, Value("#007AFF"));
  ASSERT_TRUE(shown.application.perform(host::Select{2, 0}));
  const auto chosen = shown.preferences.copyAppValue("color", described::kDomain);
  ASSERT_TRUE(chosen);
  EXPECT_NE(*chosen, Value("#007AFF"));
  EXPECT_EQ(opener().value, *chosen);
  EXPECT_EQ(std::get<host::ColorView>(opener().control).swatch.color->hex(), *chosen->text());
  ASSERT_TRUE(shown.application.perform(host::Select{0, 0}));
  EXPECT_EQ(opener().shown, "None");
}

TEST(DescribeAlerts, AlertHasTextsButtonsAndAPicker) {
  struct Weeks : uikit::PickerViewDataSource, uikit::PickerViewDelegate {
    int numberOfComponentsInPickerView(uikit::PickerView*) override { return 1; }
    int pickerViewNumberOfRowsInComponent(uikit::PickerView*, int) override { return 2; }
    std::string pickerViewTitleForRowForComponent(uikit::PickerView*, int row, int) override {
      return "week " + std::to_string(row);
    }
    void pickerViewDidSelectRowInComponent(uikit::PickerView*, int, int) override {}
  };
  Shown shown(links());
  auto alert = std::make_shared<uikit::AlertView>("Title", "Message",
                                                  std::weak_ptr<uikit::AlertViewDelegate>(), "Ok");
  const auto weeks = std::make_shared<Weeks>();
  const auto picker = std::make_shared<uikit::PickerView>();
  picker->dataSource = weeks;
  picker->delegate = weeks;
  picker->frame = {1, 2, 3, 4};
  alert->setAccessoryView(picker);
  alert->tag = 77;
  shown.screen.present(alert);
  ASSERT_TRUE(shown.application.perform(host::Pick{1}));
  const host::Scene scene = describe(shown.application);
  ASSERT_EQ(scene.alerts.size(), 1u);
  const host::AlertView& view = scene.alerts[0];
  EXPECT_EQ(view.style, host::AlertStyle::Alert);
  EXPECT_EQ(view.title, "Title");
  EXPECT_EQ(view.message, "Message");
  EXPECT_EQ(view.tag, 77);
  ASSERT_EQ(view.buttons.size(), 1u);
  EXPECT_EQ(view.buttons[0].title, "Ok");
  EXPECT_EQ(view.picker, (host::AlertPickerView{{"week 0", "week 1"}, 1, uikit::Rect{1, 2, 3, 4}}));
}

TEST(DescribeAlerts, SheetPointsToTheBarButtonOrARow) {
  Shown shown(links());
  const auto sheet = [] {
    return std::make_shared<uikit::AlertController>("", "", uikit::AlertStyle::ActionSheet);
  };
  const auto atRow = sheet(), atBar = sheet(), nowhere = sheet();
  atRow->addAction({"Destroy", uikit::ButtonRole::Destructive, {}});
  atRow->addAction({"Cancel", uikit::ButtonRole::Cancel, {}});
  atRow->popover.sourceView = std::static_pointer_cast<uikit::View>(
      shown.specifier("color").cellObject()->shared_from_this());
  atBar->popover.barButtonItem = std::make_shared<uikit::BarButtonItem>(
      uikit::BarButtonSystemItem::Compose, shown.application.pages()[0], "act");
  for (const auto& each : {atRow, atBar, nowhere}) shown.screen.present(each);
  const auto alerts = describe(shown.application).alerts;
  ASSERT_EQ(alerts.size(), 3u);
  EXPECT_EQ(alerts[0].style, host::AlertStyle::Sheet);
  EXPECT_EQ(alerts[0].buttons,
            (std::vector<host::AlertButtonView>{{"Destroy", host::ButtonRole::Destructive},
                                                {"Cancel", host::ButtonRole::Cancel}}));
  EXPECT_EQ(alerts[0].atRow, 1);
  EXPECT_FALSE(alerts[0].atBarButton);
  EXPECT_TRUE(alerts[1].atBarButton);
  EXPECT_EQ(alerts[2].atRow, std::nullopt);
  EXPECT_FALSE(alerts[2].atBarButton);
  EXPECT_NE(alerts[0].number, alerts[1].number);
  EXPECT_EQ(describe(shown.application).alerts, alerts);
}

TEST(DescribeProblems, EachOnceUntilItIsDismissed) {
  Shown shown(links());
  int changes = 0;
  shown.application.setObserver([&] { ++changes; });
  const host::Problem problem{host::Source::Settings, host::Severity::Failure, "/var/x", "damaged"};
  shown.application.report(problem);
  shown.application.report(problem);
  EXPECT_THAT(describe(shown.application).problems, testing::ElementsAre(problem));
  EXPECT_EQ(changes, 1);
  shown.application.dismiss(problem);
  EXPECT_TRUE(describe(shown.application).problems.empty());
  EXPECT_EQ(changes, 2);
}

}  // namespace
