#include <gmock/gmock.h>

#include "tests/host/sample_settings.h"

namespace {

using host::RefusalCode;
using sample::events;
using sample::refusalOf;
using sample::Settings;
using testing::ElementsAre;

template <class T>
T& control(Settings& settings, const std::string& id) {
  return dynamic_cast<T&>(*settings.row(id).control());
}

TEST(Rows, OnlyRowsOnScreenAreBuilt) {
  Settings settings(3);
  const auto& rows = settings.application.shownList()->specifiers();
  ASSERT_EQ(rows.size(), 19u);
  for (std::size_t i = 0; i < rows.size(); ++i) EXPECT_EQ(rows[i]->isBuilt(), i < 3) << i;
}

TEST(Rows, ScrollingBuildsWhatComesOnScreenAndKeepsTheRest) {
  Settings settings(3);
  ASSERT_TRUE(settings.application.perform(host::Scroll{5}));
  const auto& rows = settings.application.shownList()->specifiers();
  for (int i : {0, 1, 2, 5, 6, 7}) EXPECT_TRUE(rows[i]->isBuilt()) << i;
  for (int i : {3, 4, 8}) EXPECT_FALSE(rows[i]->isBuilt()) << i;
  EXPECT_EQ(settings.application.firstShown(), 5);
}

TEST(Rows, ScrollEventFollowsOnceTheRowsAreBuilt) {
  Settings settings(3);
  ASSERT_TRUE(settings.application.perform(host::Scroll{16}));
  EXPECT_THAT(events, ElementsAre("First scrolled, last row built"));
}

TEST(Rows, ScrollNeverShowsLessThanAScreenful) {
  Settings settings(3);
  ASSERT_TRUE(settings.application.perform(host::Scroll{18}));
  EXPECT_EQ(settings.application.firstShown(), 16);
}

TEST(Rows, ScrollToAnEntryThatIsNotThere) {
  Settings settings(3);
  EXPECT_EQ(refusalOf(settings.application.perform(host::Scroll{19})), RefusalCode::BadValue);
  EXPECT_EQ(refusalOf(settings.application.perform(host::Scroll{-1})), RefusalCode::BadValue);
  EXPECT_THAT(events, ElementsAre());
}

TEST(Rows, LargerViewportBuildsMore) {
  Settings settings(3);
  ASSERT_TRUE(settings.application.perform(host::Resize{5}));
  EXPECT_TRUE(settings.row("segment").isBuilt());
  EXPECT_FALSE(settings.row("text").isBuilt());
}

TEST(Rows, EachPageKeepsWhereItWasScrolledTo) {
  Settings settings(9);
  ASSERT_TRUE(settings.application.perform(host::Scroll{2}));
  ASSERT_TRUE(settings.application.perform(host::Tap{"link"}));
  EXPECT_EQ(settings.application.firstShown(), 0);
  ASSERT_TRUE(settings.application.perform(host::Back{}));
  EXPECT_EQ(settings.application.firstShown(), 2);
}

TEST(Rows, ByIdAndByIndex) {
  Settings settings;
  EXPECT_EQ((*settings.application.row(1))->identifier(), "switch");
  EXPECT_EQ(*settings.application.row("switch"), *settings.application.row(1));
  EXPECT_EQ(refusalOf(settings.application.row("nothing")), RefusalCode::NoRow);
  EXPECT_EQ(refusalOf(settings.application.row(19)), RefusalCode::NoRow);
  EXPECT_EQ(refusalOf(settings.application.row(-1)), RefusalCode::NoRow);
}

TEST(Rows, ChecksInOrder) {
  Settings settings(3);
  EXPECT_EQ(refusalOf(settings.application.perform(host::Set{"nothing", "no boolean"})),
            RefusalCode::NoRow);
  EXPECT_EQ(refusalOf(settings.application.perform(host::Set{"dimmed", "no boolean"})),
            RefusalCode::NotBuilt);
  ASSERT_TRUE(settings.application.perform(host::Resize{100}));
  EXPECT_EQ(refusalOf(settings.application.perform(host::Set{"dimmed", "no boolean"})),
            RefusalCode::Disabled);
  EXPECT_EQ(refusalOf(settings.application.perform(host::Set{"switch", "no boolean"})),
            RefusalCode::BadValue);
  EXPECT_EQ(refusalOf(settings.application.perform(host::Tap{"nothing"})), RefusalCode::NoRow);
  EXPECT_EQ(refusalOf(settings.application.perform(host::Tap{"dimmed"})), RefusalCode::Disabled);
}

TEST(Rows, SwitchIsMovedStoredAndAnnounced) {
  Settings settings;
  ASSERT_TRUE(settings.application.perform(host::Set{"switch", true}));
  EXPECT_TRUE(control<uikit::Switch>(settings, "switch").isOn());
  EXPECT_EQ(settings.stored("switch"), plist::Value(true));
  EXPECT_THAT(settings.darwin.posted, ElementsAre("changed"));
}

TEST(Rows, SwitchTakesNoNumber) {
  Settings settings;
  EXPECT_EQ(refusalOf(settings.application.perform(host::Set{"switch", 1})), RefusalCode::BadValue);
  EXPECT_TRUE(settings.stored("switch").isNothing());
  EXPECT_FALSE(control<uikit::Switch>(settings, "switch").isOn());
}

TEST(Rows, SliderStoresARealAlsoForAnInteger) {
  Settings settings;
  ASSERT_TRUE(settings.application.perform(host::Set{"slider", 50}));
  EXPECT_EQ(settings.stored("slider"), plist::Value(50.0));
  EXPECT_EQ(control<uikit::Slider>(settings, "slider").value(), 50.0f);
}

TEST(Rows, SliderKeepsToItsRange) {
  Settings settings;
  EXPECT_TRUE(settings.application.perform(host::Set{"slider", 0.5}));
  EXPECT_TRUE(settings.application.perform(host::Set{"slider", 100.0}));
  for (const plist::Value& value : {plist::Value(0.49), plist::Value(100.1), plist::Value(true),
                                    plist::Value("50"), plist::Value(0.0 / 0.0)})
    EXPECT_EQ(refusalOf(settings.application.perform(host::Set{"slider", value})),
              RefusalCode::BadValue);
  EXPECT_EQ(settings.stored("slider"), plist::Value(100.0));
}

TEST(Rows, TextRowTakesText) {
  Settings settings;
  ASSERT_TRUE(settings.application.perform(host::Set{"text", "words"}));
  EXPECT_EQ(settings.stored("text"), plist::Value("words"));
  EXPECT_EQ(control<uikit::TextField>(settings, "text").text, "words");
  EXPECT_EQ(refusalOf(settings.application.perform(host::Set{"text", 5})), RefusalCode::BadValue);
}

TEST(Rows, SegmentTakesAChoiceByValueAndStoresItAsTheListHasIt) {
  Settings settings;
  ASSERT_TRUE(settings.application.perform(host::Set{"segment", 1.0}));
  EXPECT_EQ(settings.stored("segment"), plist::Value(1));
  EXPECT_EQ(control<uikit::SegmentedControl>(settings, "segment").selectedSegmentIndex, 1);
  EXPECT_EQ(refusalOf(settings.application.perform(host::Set{"segment", 2})),
            RefusalCode::BadValue);
  EXPECT_EQ(refusalOf(settings.application.perform(host::Set{"segment", "1"})),
            RefusalCode::BadValue);
}

TEST(Rows, RowOfChoicesAsksItsSourcesBeforeItIsSet) {
  Settings settings;
  EXPECT_EQ(refusalOf(settings.application.perform(host::Set{"list", 7})), RefusalCode::BadValue);
  dynamic_cast<sample::ListPage&>(*settings.application.shownPage()).choiceValues = {7};
  ASSERT_TRUE(settings.application.perform(host::Set{"list", 7}));
  EXPECT_EQ(settings.stored("list"), plist::Value(7));
}

TEST(Rows, RowsWithoutAValueTakeNone) {
  Settings settings;
  for (const char* row : {"group", "link", "button"})
    EXPECT_EQ(refusalOf(settings.application.perform(host::Set{row, true})), RefusalCode::BadValue)
        << row;
}

TEST(Rows, SetterMayReloadTheRowsUnderIt) {
  Settings settings;
  ASSERT_TRUE(settings.application.perform(host::Set{"reloading", true}));
  EXPECT_EQ(settings.stored("reloading"), plist::Value(true));
  EXPECT_TRUE(settings.row("reloading").isBuilt());
  EXPECT_TRUE(control<uikit::Switch>(settings, "reloading").isOn());
}

TEST(Rows, ChoicesAreWhatTheSourcesYieldNow) {
  Settings settings(1);
  dynamic_cast<sample::ListPage&>(*settings.application.shownPage()).choiceValues = {4, 5};
  const auto choices = settings.application.choices("list");
  ASSERT_TRUE(choices);
  EXPECT_EQ((*choices)->values, (plist::Array{4, 5}));
  EXPECT_THAT((*choices)->titles, ElementsAre("number 4", "number 5"));
}

TEST(Rows, ChoicesOfARowWithoutAny) {
  Settings settings;
  EXPECT_EQ(refusalOf(settings.application.choices("switch")), RefusalCode::BadRequest);
  EXPECT_EQ(refusalOf(settings.application.choices("nothing")), RefusalCode::NoRow);
}

TEST(Rows, ButtonRunsItsActionWithItselfWhereItTakesASender) {
  Settings settings;
  ASSERT_TRUE(settings.application.perform(host::Tap{"button"}));
  ASSERT_TRUE(settings.application.perform(host::Tap{"buttonfor"}));
  EXPECT_THAT(events, ElementsAre("First act", "First actFor buttonfor"));
}

TEST(Rows, TapOnASwitchRowDoesNothing) {
  Settings settings;
  ASSERT_TRUE(settings.application.perform(host::Tap{"switch"}));
  EXPECT_TRUE(settings.stored("switch").isNothing());
  EXPECT_EQ(settings.application.pages().size(), 1u);
}

}  // namespace
