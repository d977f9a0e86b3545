#include <gmock/gmock.h>

#include "platform/uikit/alert_view.h"
#include "tests/host/sample_bundle.h"

namespace {

using host::RefusalCode;
using sample::events;
using sample::refusalOf;
using sample::Settings;
using testing::ElementsAre;

struct Weeks : uikit::PickerViewDataSource {
  int numberOfComponentsInPickerView(uikit::PickerView*) override { return 1; }
  int pickerViewNumberOfRowsInComponent(uikit::PickerView*, int) override { return 4; }
};

TEST(Alerts, ThereIsNoneAtFirst) {
  Settings settings;
  EXPECT_TRUE(settings.application.alerts().empty());
  EXPECT_EQ(refusalOf(settings.application.press("Ok")), RefusalCode::NoAlert);
  EXPECT_EQ(refusalOf(settings.application.press(0)), RefusalCode::NoAlert);
  EXPECT_EQ(refusalOf(settings.application.pick(0)), RefusalCode::NoAlert);
}

TEST(Alerts, PageBelowCanNotBeOperated) {
  Settings settings;
  ASSERT_TRUE(settings.application.tap("alert"));
  ASSERT_EQ(settings.application.alerts().size(), 1u);
  auto& application = settings.application;
  EXPECT_EQ(refusalOf(application.tap("nothing")), RefusalCode::Modal);
  EXPECT_EQ(refusalOf(application.set("nothing", true)), RefusalCode::Modal);
  EXPECT_EQ(refusalOf(application.select(9, 9)), RefusalCode::Modal);
  EXPECT_EQ(refusalOf(application.drag(9, 9, true)), RefusalCode::Modal);
  EXPECT_EQ(refusalOf(application.scroll(999)), RefusalCode::Modal);
  EXPECT_EQ(refusalOf(application.tapBarButton()), RefusalCode::Modal);
  EXPECT_EQ(refusalOf(application.back()), RefusalCode::Modal);
  EXPECT_EQ(refusalOf(application.open("Nowhere", {})), RefusalCode::Modal);
}

TEST(Alerts, PressRunsTheButtonAndFreesThePage) {
  Settings settings;
  ASSERT_TRUE(settings.application.tap("alert"));
  EXPECT_EQ(refusalOf(settings.application.press("Maybe")), RefusalCode::NoButton);
  EXPECT_EQ(refusalOf(settings.application.press(1)), RefusalCode::NoButton);
  ASSERT_TRUE(settings.application.press("Ok"));
  EXPECT_THAT(events, ElementsAre("First Ok pressed"));
  EXPECT_TRUE(settings.application.tap("button"));
}

TEST(Alerts, PickTurnsThePickerOfTheTopmostOne) {
  Settings settings;
  auto alert = std::make_shared<uikit::AlertView>("Title", "Message",
                                                  std::weak_ptr<uikit::AlertViewDelegate>(), "Ok");
  auto weeks = std::make_shared<Weeks>();
  auto picker = std::make_shared<uikit::PickerView>();
  picker->dataSource = weeks;
  alert->setAccessoryView(picker);
  settings.screen.present(alert);
  ASSERT_TRUE(settings.application.pick(3));
  EXPECT_EQ(picker->selectedRowInComponent(0), 3);
  EXPECT_EQ(refusalOf(settings.application.pick(4)), RefusalCode::BadValue);
  EXPECT_EQ(refusalOf(settings.application.pick(-1)), RefusalCode::BadValue);
}

TEST(Alerts, AlertWithoutAPickerHasNoRows) {
  Settings settings;
  ASSERT_TRUE(settings.application.tap("alert"));
  EXPECT_EQ(refusalOf(settings.application.pick(0)), RefusalCode::BadValue);
}

TEST(Alerts, GoWithALaunch) {
  Settings settings;
  ASSERT_TRUE(settings.application.tap("alert"));
  settings.application.launch();
  EXPECT_TRUE(settings.application.alerts().empty());
}

TEST(BarButton, RunsItsActionOnItsTarget) {
  Settings settings;
  EXPECT_EQ(refusalOf(settings.application.tapBarButton()), RefusalCode::BadRequest);
  auto page = settings.application.pages().front();
  page->navigationItem.rightBarButtonItem =
      std::make_shared<uikit::BarButtonItem>(uikit::BarButtonSystemItem::Compose, page, "act");
  ASSERT_TRUE(settings.application.tapBarButton());
  EXPECT_THAT(events, ElementsAre("First act"));
}

}  // namespace
