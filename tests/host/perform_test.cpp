#include <gmock/gmock.h>

#include "platform/uikit/alert_controller.h"
#include "tests/host/described_page.h"

namespace {

using described::row;
using described::Shown;
using host::RefusalCode;
using host::Request;

plist::Array rows() {
  return {row("PSSwitchCell", "switch"), row("PSSwitchCell", "whileon"),
          row("PSSwitchCell", "dimmed", {{"enabled", false}}), row("PSSwitchCell", "below"),
          row("PSLinkCell", "color", {{"detail", "ZorvekColorPickerQuorvantis"}})};
}

std::optional<RefusalCode> ask(Shown& shown, const Request& request) {
  const auto done = shown.application.perform(request);
  return done ? std::nullopt : std::optional(done.error().code);
}

void present(Shown& shown) {
  auto alert = std::make_shared<uikit::AlertController>("", "", uikit::AlertStyle::Alert);
  alert->addAction({"Ok", uikit::ButtonRole::Default, {}});
  shown.screen.present(std::move(alert));
}

// One gate after the other is opened; behind each the next one refuses.
TEST(Perform, ChecksModalThenRowThenBuiltThenUsableThenValue) {
  for (const bool set : {true, false}) {
    const auto operate = [set](const char* row) {
      return set ? Request(host::Set{row, "no boolean"}) : Request(host::Tap{row});
    };
    Shown shown(rows(), 2);
    present(shown);
    for (const char* row : {"nothing", "dimmed", "switch"})
      EXPECT_EQ(ask(shown, operate(row)), RefusalCode::Modal) << row;
    ASSERT_TRUE(shown.application.perform(host::Press{"Ok"}));
    EXPECT_EQ(ask(shown, operate("nothing")), RefusalCode::NoRow);
    EXPECT_EQ(ask(shown, operate("dimmed")), RefusalCode::NotBuilt);
    ASSERT_TRUE(shown.application.perform(host::Resize{100}));
    EXPECT_EQ(ask(shown, operate("dimmed")), RefusalCode::Disabled);
    EXPECT_EQ(ask(shown, operate("switch")),
              set ? std::optional(RefusalCode::BadValue) : std::nullopt);
  }
}

TEST(Perform, RefusalNamesTheSwitchThatDimsTheRow) {
  Shown shown(rows());
  shown.applyRules();
  EXPECT_EQ(shown.application.perform(host::Set{"whileon", true}).error().message,
            "row \"whileon\" is dimmed by \"switch\"");
}

TEST(Perform, TakesTheWayOutOfADimmedRow) {
  Shown shown(rows());
  shown.applyRules();
  ASSERT_EQ(shown.row("whileon").whyNot->wayOut(), "Switch on [switch]");
  ASSERT_TRUE(shown.application.perform(host::WayOut{"whileon"}));
  EXPECT_EQ(shown.row("switch").value, plist::Value(true));
  ASSERT_TRUE(shown.application.perform(host::Activate{}));
  EXPECT_TRUE(shown.row("whileon").usable);
}

TEST(Perform, ThereIsNoWayOutWhereNoSwitchWouldHelp) {
  Shown shown(rows());
  shown.applyRules();
  EXPECT_EQ(shown.row("dimmed").whyNot->wayOut(), "");
  for (const char* row : {"dimmed", "switch"})
    EXPECT_EQ(ask(shown, host::WayOut{row}), RefusalCode::BadRequest) << row;
}

TEST(Perform, UnderAnAlertWhatTouchesThePageIsModalAndNothingElse) {
  Shown shown(rows());
  present(shown);
  for (const Request& request :
       {Request(host::Open{"Nowhere"}), Request(host::Back{}), Request(host::Tap{9}),
        Request(host::Set{9, true}), Request(host::Scroll{99}), Request(host::Select{9, 9}),
        Request(host::Drag{9, 9}), Request(host::Bar{})})
    EXPECT_EQ(ask(shown, request), RefusalCode::Modal) << request.index();
  for (const Request& request :
       {Request(host::Resize{3}), Request(host::Activate{}), Request(host::Layout{}),
        Request(host::Reload{}), Request(host::Call{"specifiers"})})
    EXPECT_EQ(ask(shown, request), std::nullopt) << request.index();
  EXPECT_EQ(ask(shown, host::Press{"Ok"}), std::nullopt);
  present(shown);
  EXPECT_EQ(ask(shown, host::Launch{}), std::nullopt);
  EXPECT_TRUE(shown.application.alerts().empty());
}

TEST(Perform, RefusesByEachCode) {
  Shown shown(rows());
  EXPECT_EQ(ask(shown, host::Call{"nothing"}), RefusalCode::BadRequest);
  EXPECT_EQ(ask(shown, host::Bar{}), RefusalCode::BadRequest);
  EXPECT_EQ(ask(shown, host::Launch{"Nowhere"}), RefusalCode::NoPage);
  EXPECT_EQ(ask(shown, host::Back{}), RefusalCode::NoPage);
  EXPECT_EQ(ask(shown, host::Select{0, 0}), RefusalCode::NoRow);
  EXPECT_EQ(ask(shown, host::Drag{201, 0}), RefusalCode::NoRow);
  EXPECT_EQ(ask(shown, host::Set{"dimmed", true}), RefusalCode::Disabled);
  EXPECT_EQ(ask(shown, host::Scroll{99}), RefusalCode::BadValue);
  EXPECT_EQ(ask(shown, host::Press{"Ok"}), RefusalCode::NoAlert);
  EXPECT_EQ(ask(shown, host::Pick{0}), RefusalCode::NoAlert);
  present(shown);
  EXPECT_EQ(ask(shown, host::Press{"Maybe"}), RefusalCode::NoButton);
  EXPECT_EQ(ask(shown, host::Press{1}), RefusalCode::NoButton);
  EXPECT_EQ(ask(shown, host::Tap{0}), RefusalCode::Modal);
}

TEST(Perform, DragKnowsThePickersSlidersAlsoOffScreen) {
  Shown shown(rows(), 5);
  ASSERT_TRUE(shown.application.perform(host::Tap{"color"}));
  EXPECT_EQ(ask(shown, host::Drag{201, 5}), RefusalCode::NotBuilt);
  EXPECT_EQ(ask(shown, host::Drag{205, 5}), RefusalCode::NoRow);
  ASSERT_TRUE(shown.application.perform(host::Scroll{0, 1000}));
  EXPECT_EQ(ask(shown, host::Drag{201, 256}), RefusalCode::BadValue);
  EXPECT_EQ(ask(shown, host::Drag{201, 255}), std::nullopt);
}

TEST(Perform, RefusalChangesNothing) {
  Shown shown(rows(), 2);
  const auto before = host::describe(shown.application);
  EXPECT_EQ(ask(shown, host::Scroll{99, 50}), RefusalCode::BadValue);
  EXPECT_EQ(ask(shown, host::Set{"switch", 5}), RefusalCode::BadValue);
  EXPECT_EQ(ask(shown, host::Tap{"below"}), RefusalCode::NotBuilt);
  EXPECT_EQ(host::describe(shown.application), before);
}

TEST(Perform, ScrollMayAlsoSayHowManyEntriesFit) {
  Shown shown(rows(), 1);
  ASSERT_TRUE(shown.application.perform(host::Scroll{1, 2}));
  EXPECT_FALSE(shown.row("below").built);
  EXPECT_TRUE(shown.row("dimmed").built);
  EXPECT_EQ(shown.application.viewport(), 2);
  ASSERT_TRUE(shown.application.perform(host::Scroll{0}));
  EXPECT_EQ(shown.application.viewport(), 2);
}

// A low window with a large font: the page before showed two rows, and how many the new one shows
// is known only once it is drawn, which may be after its rules are applied.
TEST(LowWindow, PageIsLaidOutForTwelveEntriesBeforeItsRulesAreApplied) {
  plist::Array many{row("PSSwitchCell", "switch")};
  for (int i = 0; i < 10; ++i) many.push_back(row("PSStaticTextCell", "row" + std::to_string(i)));
  many.push_back(row("PSSwitchCell", "whileon"));
  many.push_back(row("PSSwitchCell", "beyond"));
  Shown shown(many, 2, 12);
  EXPECT_TRUE(shown.row("whileon").built);
  EXPECT_FALSE(shown.row("beyond").built);
  ASSERT_TRUE(shown.application.perform(host::Open{"Page"}));
  EXPECT_TRUE(shown.row("whileon").built);
  shown.applyRules();
  ASSERT_TRUE(shown.application.perform(host::Resize{13}));
  EXPECT_FALSE(shown.row("whileon").usable);
  EXPECT_EQ(ask(shown, host::Set{"whileon", true}), RefusalCode::Disabled);
}

TEST(LowWindow, ViewportThatIsExactBuildsNoMore) {
  Shown shown(rows(), 2);
  EXPECT_TRUE(shown.row("whileon").built);
  EXPECT_FALSE(shown.row("dimmed").built);
}

}  // namespace
