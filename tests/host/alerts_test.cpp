#include <gmock/gmock.h>

#include "platform/uikit/alert_view.h"
#include "tests/host/sample_settings.h"

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
  EXPECT_EQ(refusalOf(settings.application.perform(host::Press{"Ok"})), RefusalCode::NoAlert);
  EXPECT_EQ(refusalOf(settings.application.perform(host::Press{0})), RefusalCode::NoAlert);
  EXPECT_EQ(refusalOf(settings.application.perform(host::Pick{0})), RefusalCode::NoAlert);
}

TEST(Alerts, PageBelowCanNotBeOperated) {
  Settings settings;
  ASSERT_TRUE(settings.application.perform(host::Tap{"alert"}));
  ASSERT_EQ(settings.application.alerts().size(), 1u);
  auto& application = settings.application;
  EXPECT_EQ(refusalOf(application.perform(host::Tap{"nothing"})), RefusalCode::Modal);
  EXPECT_EQ(refusalOf(application.perform(host::Set{"nothing", true})), RefusalCode::Modal);
  EXPECT_EQ(refusalOf(application.perform(host::Select{9, 9})), RefusalCode::Modal);
  EXPECT_EQ(refusalOf(application.perform(host::Drag{9, 9, true})), RefusalCode::Modal);
  EXPECT_EQ(refusalOf(application.perform(host::Scroll{999})), RefusalCode::Modal);
  EXPECT_EQ(refusalOf(application.perform(host::Bar{})), RefusalCode::Modal);
  EXPECT_EQ(refusalOf(application.perform(host::Back{})), RefusalCode::Modal);
  EXPECT_EQ(refusalOf(application.perform(host::Open{"Nowhere", {}})), RefusalCode::Modal);
}

TEST(Alerts, PressRunsTheButtonAndFreesThePage) {
  Settings settings;
  ASSERT_TRUE(settings.application.perform(host::Tap{"alert"}));
  EXPECT_EQ(refusalOf(settings.application.perform(host::Press{"Maybe"})), RefusalCode::NoButton);
  EXPECT_EQ(refusalOf(settings.application.perform(host::Press{1})), RefusalCode::NoButton);
  ASSERT_TRUE(settings.application.perform(host::Press{"Ok"}));
  EXPECT_THAT(events, ElementsAre("First Ok pressed"));
  EXPECT_TRUE(settings.application.perform(host::Tap{"button"}));
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
  ASSERT_TRUE(settings.application.perform(host::Pick{3}));
  EXPECT_EQ(picker->selectedRowInComponent(0), 3);
  EXPECT_EQ(refusalOf(settings.application.perform(host::Pick{4})), RefusalCode::BadValue);
  EXPECT_EQ(refusalOf(settings.application.perform(host::Pick{-1})), RefusalCode::BadValue);
}

TEST(Alerts, AlertWithoutAPickerHasNoRows) {
  Settings settings;
  ASSERT_TRUE(settings.application.perform(host::Tap{"alert"}));
  EXPECT_EQ(refusalOf(settings.application.perform(host::Pick{0})), RefusalCode::BadValue);
}

TEST(Alerts, GoWithALaunch) {
  Settings settings;
  ASSERT_TRUE(settings.application.perform(host::Tap{"alert"}));
  ASSERT_TRUE(settings.application.perform(host::Launch{}));
  EXPECT_TRUE(settings.application.alerts().empty());
}

TEST(BarButton, RunsItsActionOnItsTarget) {
  Settings settings;
  EXPECT_EQ(refusalOf(settings.application.perform(host::Bar{})), RefusalCode::BadRequest);
  auto page = settings.application.pages().front();
  page->navigationItem.rightBarButtonItem =
      std::make_shared<uikit::BarButtonItem>(uikit::BarButtonSystemItem::Compose, page, "act");
  ASSERT_TRUE(settings.application.perform(host::Bar{}));
  EXPECT_THAT(events, ElementsAre("First act"));
}

}  // namespace
