#include <gmock/gmock.h>

#include "host/settings.h"
#include "host/text.h"
#include "tests/host/described_page.h"

namespace {

using described::row;
using described::Shown;
using host::ControlView;
using host::RowKind;
using plist::Array;
using plist::Value;

TEST(DescribeRow, EveryKindHasItsControl) {
  struct Expected {
    const char* cell;
    RowKind kind;
    ControlView control;
  };
  const Expected kinds[] = {{"PSGroupCell", RowKind::Group, {}},
                            {"PSLinkCell", RowKind::Link, host::LinkView{}},
                            {"PSLinkListCell", RowKind::Link, host::LinkView{}},
                            {"PSListItemCell", RowKind::Link, {}},
                            {"PSButtonCell", RowKind::Button, {}},
                            {"PSSwitchCell", RowKind::Switch, host::SwitchView{}},
                            {"PSSliderCell", RowKind::Slider, host::SliderView{}},
                            {"PSSegmentCell", RowKind::Segments, host::SegmentsView{}},
                            {"PSEditTextCell", RowKind::Text, host::TextView{}},
                            {"PSSecureEditTextCell", RowKind::Text, host::TextView{}},
                            {"PSEditTextViewCell", RowKind::LongText, host::TextView{}},
                            {"PSTitleValueCell", RowKind::Value, {}},
                            {"PSStaticTextCell", RowKind::Static, {}},
                            {"PSSpinnerCell", RowKind::Spinner, {}},
                            {"PSGiantCell", RowKind::Giant, {}},
                            {"PSGiantIconCell", RowKind::Giant, {}}};
  for (const int viewport : {1, 100}) {
    Array rows{row("PSGroupCell", "first")};
    for (const auto& each : kinds) rows.push_back(row(each.cell, each.cell));
    Shown shown(std::move(rows), viewport);
    for (const auto& [cell, kind, control] : kinds) {
      const host::RowView view = shown.row(cell);
      EXPECT_EQ(view.kind, kind) << cell;
      EXPECT_EQ(view.cellType, cell);
      EXPECT_EQ(view.control.index(), control.index()) << cell;
      EXPECT_EQ(view.built, viewport > 1) << cell;
    }
  }
}

TEST(DescribeRow, HasTheNamesOfItsList) {
  Shown shown({row("PSGroupCell", "group", {{"footerText", "Below."}}),
               row("PSButtonCell", "button", {{"isDestructive", true}, {"height", 60}})});
  EXPECT_EQ(shown.row("group").footer, "Below.");
  const host::RowView button = shown.row("button");
  EXPECT_EQ(button.label, "[button]");
  EXPECT_EQ(button.key, "button");
  EXPECT_TRUE(button.destructive);
  EXPECT_EQ(button.height, 60);
}

TEST(DescribeRow, OnlyARowThatSaysSoIsDestructive) {
  Shown shown({row("PSButtonCell", "button")});
  EXPECT_FALSE(shown.row("button").destructive);
}

TEST(DescribeRow, IsChangedWhileItShowsSomethingElseThanItsDefault) {
  Shown shown({row("PSSwitchCell", "on", {{"default", 1}}), row("PSSwitchCell", "off"),
               row("PSSwitchCell", "turned", {{"default", true}, {"negate", true}}),
               row("PSEditTextCell", "text"), row("PSButtonCell", "button")});
  const auto changed = [&](const char* id) { return shown.row(id).changed; };
  for (const char* id : {"on", "off", "turned", "text", "button"}) EXPECT_FALSE(changed(id)) << id;
  EXPECT_EQ(shown.row("on").standard, Value(1));
  EXPECT_EQ(shown.row("turned").standard, Value(false));
  EXPECT_EQ(shown.row("text").standard, Value());

  for (const auto& [id, value] : {std::pair<const char*, Value>("on", false),
                                  {"off", true},
                                  {"turned", true},
                                  {"text", "words"}}) {
    ASSERT_TRUE(shown.application.perform(host::Set{id, value}));
    EXPECT_TRUE(changed(id)) << id;
  }
  for (const auto& [id, value] : {std::pair<const char*, Value>("on", true),
                                  {"off", false},
                                  {"turned", false},
                                  {"text", ""}}) {
    ASSERT_TRUE(shown.application.perform(host::Set{id, value}));
    EXPECT_FALSE(changed(id)) << id;
  }
}

TEST(DescribeRow, WithAGetterOfItsOwnShowsWhatThatGives) {
  Shown shown({row("PSEditTextCell", "text", {{"get", "shout:"}, {"default", "Hello"}})});
  EXPECT_EQ(shown.row("text").value, Value("Hello!"));
  host::DeferredNotifications notifications(shown.environment.darwinCenter);
  host::Settings settings(shown.environment, shown.queue, notifications,
                          [] { return host::Settings::Problems(); });
  EXPECT_EQ(*settings.value("text"), Value("Hello!"));
}

TEST(DescribeRow, SwitchIsOnOrOff) {
  Shown shown({row("PSSwitchCell", "switch", {{"default", true}})});
  EXPECT_TRUE(shown.control<host::SwitchView>("switch").on);
  EXPECT_EQ(shown.row("switch").value, Value(true));
  EXPECT_EQ(shown.row("switch").shown, "on");
  ASSERT_TRUE(shown.application.perform(host::Set{"switch", false}));
  EXPECT_FALSE(shown.control<host::SwitchView>("switch").on);
  EXPECT_EQ(shown.row("switch").shown, "off");
}

TEST(DescribeRow, ControlHasTheLookThatWasSet) {
  Shown shown({row("PSSwitchCell", "switch"), row("PSSliderCell", "slider")});
  EXPECT_EQ(shown.control<host::SwitchView>("switch").look, host::ControlLook());
  auto& button = dynamic_cast<uikit::Switch&>(*shown.specifier("switch").control());
  button.tintColor = uikit::Color{1, 0, 0, 1};
  button.onTintColor = uikit::Color{0, 1, 0, 1};
  button.backgroundColor = uikit::Color{0, 0, 1, 1};
  button.layer.cornerRadius = 16;
  const auto view = shown.control<host::SwitchView>("switch");
  EXPECT_EQ(view.look, (host::ControlLook{uikit::Color{1, 0, 0, 1}, uikit::Color{0, 0, 1, 1}, 16}));
  EXPECT_EQ(view.onTint, (uikit::Color{0, 1, 0, 1}));
  auto& slider = dynamic_cast<uikit::Slider&>(*shown.specifier("slider").control());
  slider.minimumTrackTintColor = uikit::Color{0, 0, 0, 1};
  EXPECT_EQ(shown.control<host::SliderView>("slider").minimumTrackTint, (uikit::Color{0, 0, 0, 1}));
}

TEST(DescribeRow, SliderHasItsRangeAlsoBeforeItIsBuilt) {
  const auto list = [] {
    return Array{row("PSGroupCell", "first"), row("PSSliderCell", "slider",
                                                  {{"min", 5},
                                                   {"max", 50.0},
                                                   {"default", 20},
                                                   {"isContinuous", true},
                                                   {"showValue", true},
                                                   {"isSegmented", true},
                                                   {"segmentCount", 9}})};
  };
  for (const int viewport : {1, 2}) {
    Shown shown(list(), viewport);
    const auto view = shown.control<host::SliderView>("slider");
    EXPECT_EQ(view.minimum, 5);
    EXPECT_EQ(view.maximum, 50);
    EXPECT_EQ(view.value, viewport == 1 ? 0 : 20);
    EXPECT_EQ(view.stops, 9);
    EXPECT_TRUE(view.continuous);
    EXPECT_TRUE(view.showsValue);
    EXPECT_EQ(shown.row("slider").value, Value(20));
  }
}

TEST(DescribeRow, SliderHasNoStopsUnlessItsListCountsThem) {
  Shown shown({row("PSSliderCell", "slider", {{"isSegmented", true}})});
  EXPECT_EQ(shown.control<host::SliderView>("slider").stops, 0);
}

TEST(DescribeRow, SliderHasTheRangeThatItWasGivenSince) {
  Shown shown({row("PSSliderCell", "slider", {{"min", 0}, {"max", 10}})});
  dynamic_cast<uikit::Slider&>(*shown.specifier("slider").control()).setRange(2, 8);
  EXPECT_EQ(shown.control<host::SliderView>("slider").minimum, 2);
  EXPECT_EQ(shown.control<host::SliderView>("slider").maximum, 8);
}

TEST(DescribeRow, SegmentsAndListsShareTheChoicesOfTheirRow) {
  const std::initializer_list<plist::Dictionary::Entry> choices{
      {"validValues", Array{0, 1}}, {"validTitles", Array{"Off", "On"}}, {"default", 1}};
  Shown shown({row("PSSegmentCell", "segments", choices), row("PSLinkListCell", "list", choices)});
  const auto segments = shown.control<host::SegmentsView>("segments");
  EXPECT_EQ(segments.choices, shown.specifier("segments").choices());
  EXPECT_EQ(segments.selected, 1);
  EXPECT_EQ(shown.row("segments").shown, "On");
  EXPECT_EQ(shown.control<host::LinkView>("list").choices, shown.specifier("list").choices());
  EXPECT_EQ(shown.row("list").shown, "On");
}

TEST(DescribeRow, ListShowsAFileThatIsGoneByItsName) {
  const std::initializer_list<plist::Dictionary::Entry> choices{{"validValues", Array{"/a/b.x"}},
                                                                {"validTitles", Array{"B"}}};
  Shown shown({row("PSLinkListCell", "there", choices), row("PSLinkListCell", "path", choices),
               row("PSLinkListCell", "url", choices), row("PSEditTextCell", "text")});
  for (const auto& [id, value] : {std::pair("there", "/a/b.x"),
                                  {"path", "/a/c.x"},
                                  {"url", "file:///a/c%20d.x"},
                                  {"text", "/a/c.x"}})
    shown.page().userChanged(shown.specifier(id), value);
  EXPECT_EQ(shown.row("there").shown, "B");
  EXPECT_EQ(shown.row("path").shown, "c.x (gone)");
  EXPECT_EQ(shown.row("url").shown, "c d.x (gone)");
  EXPECT_EQ(shown.row("text").shown, "/a/c.x");
}

TEST(DescribeRow, ListWithoutAChoiceShowsNone) {
  Shown shown({row("PSLinkListCell", "list", {{"default", ""}}),
               row("PSEditTextCell", "text", {{"default", ""}})});
  EXPECT_EQ(shown.row("list").shown, "None");
  EXPECT_EQ(shown.row("list").standardShown, "None");
  EXPECT_EQ(shown.row("text").shown, "");
}

TEST(DescribeRow, ChoicesAreOneObjectUntilTheyAreOthers) {
  Shown shown({row("PSLinkListCell", "list",
                   {{"valuesDataSource", "numbers:"}, {"titlesDataSource", "numbers:"}})});
  const auto before = host::describe(shown.application);
  ASSERT_TRUE(shown.application.choices("list"));
  EXPECT_EQ(host::describe(shown.application), before);
  shown.page().values = {1, 3};
  ASSERT_TRUE(shown.application.choices("list"));
  EXPECT_NE(host::describe(shown.application), before);
  EXPECT_EQ(shown.control<host::LinkView>("list").choices->titles,
            (std::vector<std::string>{"1", "3"}));
}

TEST(DescribeRow, TextHasWhatItsKeyboardIs) {
  Shown shown({row("PSEditTextCell", "plain", {{"placeholder", "none yet"}, {"default", "words"}}),
               row("PSSecureEditTextCell", "secret"), row("PSEditTextViewCell", "lines"),
               row("PSEditTextCell", "digits", {{"isNumeric", true}}),
               row("PSEditTextCell", "number", {{"isDecimalPad", true}}),
               row("PSEditTextCell", "address", {{"isIP", true}}),
               row("PSEditTextCell", "url", {{"isURL", true}}),
               row("PSEditTextCell", "mail", {{"isEmail", true}}),
               row("PSEditTextCell", "exact", {{"noAutoCorrect", true}})});
  const auto text = [&](const char* id) { return shown.control<host::TextView>(id); };
  EXPECT_EQ(text("plain").text, "words");
  EXPECT_EQ(text("plain").placeholder, "none yet");
  EXPECT_EQ(text("plain").keyboard, host::Keyboard::Plain);
  EXPECT_TRUE(text("plain").correction);
  EXPECT_TRUE(text("secret").secret);
  EXPECT_FALSE(text("plain").secret);
  EXPECT_TRUE(text("lines").lines);
  EXPECT_FALSE(text("plain").lines);
  EXPECT_EQ(text("digits").keyboard, host::Keyboard::Digits);
  EXPECT_EQ(text("number").keyboard, host::Keyboard::Number);
  EXPECT_EQ(text("address").keyboard, host::Keyboard::Number);
  EXPECT_EQ(text("url").keyboard, host::Keyboard::Url);
  EXPECT_EQ(text("mail").keyboard, host::Keyboard::Email);
  EXPECT_FALSE(text("mail").correction);
  EXPECT_FALSE(text("exact").correction);
}

TEST(DescribeRow, TextTakesLinesAndTabsOnlyWhereItsRowHoldsLines) {
  Shown shown({row("PSEditTextCell", "line"), row("PSEditTextViewCell", "lines")});
  const auto takes = [&](const char* id, const char* text) {
    return static_cast<bool>(shown.application.perform(host::Set{id, Value(text)}));
  };
  EXPECT_TRUE(takes("line", "one ~ \u0080"));
  for (const char* text : {"\n", "\t", "\x01", "\x1f", "\x7f"}) EXPECT_FALSE(takes("line", text));
  EXPECT_TRUE(takes("lines", "one\ntwo\tthree"));
  for (const char* text : {"\r", "\x01", "\x1f", "\x7f"}) EXPECT_FALSE(takes("lines", text));
  EXPECT_EQ(shown.row("lines").value, Value("one\ntwo\tthree"));
}

TEST(DescribeRow, OffScreenAColorHasItsNameAndATextStaysAsItIs) {
  const plist::Value blue = "#007AFF";
  Shown shown({row("PSGroupCell", "first"),
               row("PSLinkCell", "color",
                   {{"cellClass", "ZorvekColorPickerQuorvantisLinkCell"}, {"default", blue}}),
               row("PSEditTextCell", "text", {{"default", blue}})},
              1);
  ASSERT_FALSE(shown.row("color").built);
  EXPECT_EQ(shown.row("color").shown, "System Blue, #007AFF");
  EXPECT_EQ(shown.row("text").shown, "#007AFF");
}

TEST(DescribeRow, ColorIsASwatchOrAWord) {
  const auto color = [](const char* standard) {
    return row("PSLinkCell", standard,
               {{"cellClass", "ZorvekColorPickerQuorvantisLinkCell"}, {"default", standard}});
  };
  Shown shown({color("#007AFF"), color("none"), color("#123456")});
  const auto blue = shown.control<host::ColorView>("#007AFF");
  EXPECT_EQ(shown.row("#007AFF").kind, RowKind::Color);
  EXPECT_FALSE(blue.swatch.hidden);
  EXPECT_EQ(blue.swatch.color->hex(), "#007AFF");
  EXPECT_TRUE(blue.label.hidden);
  EXPECT_THAT(shown.row("#007AFF").shown, testing::EndsWith(", #007AFF"));
  const auto word = shown.control<host::ColorView>("none");
  EXPECT_TRUE(word.swatch.hidden);
  EXPECT_FALSE(word.label.hidden);
  EXPECT_EQ(word.label.text, "none");
  EXPECT_EQ(shown.row("none").shown, "None");
  EXPECT_EQ(shown.row("none").value, Value("none"));
  EXPECT_EQ(shown.row("#123456").shown, "#123456");
}

TEST(DescribeRow, LinkNamesItsPage) {
  Shown shown({row("PSLinkCell", "link", {{"detail", "Elsewhere"}})});
  EXPECT_EQ(shown.control<host::LinkView>("link"), (host::LinkView{"Elsewhere", nullptr}));
}

TEST(DescribeRow, TickIsThatOfItsCell) {
  Shown shown({row("PSStaticTextCell", "row")});
  EXPECT_FALSE(shown.row("row").ticked);
  shown.specifier("row").cellObject()->accessory = uikit::Accessory::Checkmark;
  EXPECT_TRUE(shown.row("row").ticked);
}

TEST(DescribeRow, RowThatIsNotBuiltCountsAsUsable) {
  Shown shown({row("PSGroupCell", "first"), row("PSSwitchCell", "row", {{"enabled", false}})}, 1);
  EXPECT_TRUE(shown.row("row").usable);
  EXPECT_EQ(shown.row("row").whyNot, std::nullopt);
  ASSERT_TRUE(shown.application.perform(host::Resize{2}));
  EXPECT_FALSE(shown.row("row").usable);
}

TEST(DescribeRow, CellThatIsNotEnabledIsDimmedToo) {
  Shown shown({row("PSSwitchCell", "row")});
  EXPECT_TRUE(shown.row("row").usable);
  shown.specifier("row").cellObject()->setEnabled(false);
  EXPECT_FALSE(shown.row("row").usable);
  EXPECT_TRUE(shown.row("row").interaction);
}

Array ruled() {
  return {row("PSSwitchCell", "switch"), row("PSSwitchCell", "whileon"),
          row("PSSwitchCell", "whileoff"), row("PSSwitchCell", "dimmed", {{"enabled", false}})};
}

std::string wordsOf(const Shown& shown, const char* id) {
  const auto whyNot = shown.row(id).whyNot;
  return whyNot ? whyNot->words() : "usable";
}

TEST(WhyNot, SaysWhichSwitchToTurnOn) {
  Shown shown(ruled());
  EXPECT_EQ(wordsOf(shown, "whileon"), "usable");
  shown.applyRules();
  EXPECT_EQ(wordsOf(shown, "whileon"), "dimmed: switch on [switch] first");
  EXPECT_EQ(wordsOf(shown, "whileoff"), "usable");
  EXPECT_EQ(shown.row("whileon").whyNot->by, "switch");
}

TEST(WhyNot, SaysWhichSwitchToTurnOff) {
  Shown shown(ruled());
  ASSERT_TRUE(shown.application.perform(host::Set{"switch", true}));
  shown.applyRules();
  EXPECT_EQ(wordsOf(shown, "whileoff"), "dimmed: switch off [switch] first");
}

TEST(WhyNot, SaysThatThePageHasToBeOpenedAgain) {
  Shown shown(ruled());
  shown.applyRules();
  ASSERT_TRUE(shown.application.perform(host::Set{"switch", true}));
  EXPECT_EQ(wordsOf(shown, "whileon"), "dimmed until you come back to this page");
}

TEST(WhyNot, SaysNoMoreWhereNoRuleDims) {
  Shown shown(ruled());
  shown.applyRules();
  EXPECT_EQ(wordsOf(shown, "dimmed"), "dimmed");
}

// A read of the store beside the cell's would show it.
TEST(RowValue, IsWhatTheCellShowsWhenAnotherProcessHasChangedIt) {
  Shown shown({row("PSSwitchCell", "switch"), row("PSSliderCell", "slider", {{"max", 9}}),
               row("PSEditTextCell", "text"), row("PSTitleValueCell", "title")});
  const auto before = host::describe(shown.application);
  shown.storeElsewhere("switch", true);
  shown.storeElsewhere("slider", 5);
  shown.storeElsewhere("text", "theirs");
  shown.storeElsewhere("title", "theirs");
  ASSERT_TRUE(shown.preferences.synchronize());
  EXPECT_EQ(host::describe(shown.application), before);
}

TEST(RowValue, OfANewPageIsWhatAnotherProcessHasJustStored) {
  Shown shown({row("PSSwitchCell", "switch"), row("PSEditTextCell", "text")}, 1);
  shown.storeElsewhere("switch", true);
  shown.storeElsewhere("text", "theirs");
  ASSERT_TRUE(shown.application.perform(host::Launch{}));
  for (const char* id : {"switch", "text"}) {
    EXPECT_EQ(shown.row(id).value, shown.preferences.copyAppValue(id, described::kDomain)) << id;
    EXPECT_EQ(shown.row(id).built, id == std::string("switch"));
  }
}

TEST(RowValue, FollowsAControlThatWasMovedAlone) {
  const std::initializer_list<plist::Dictionary::Entry> choices{
      {"validValues", Array{7, 8}}, {"validTitles", Array{"Off", "On"}}, {"default", 7}};
  Shown shown({row("PSSwitchCell", "switch"), row("PSSliderCell", "slider", {{"max", 9}}),
               row("PSEditTextCell", "text"), row("PSSegmentCell", "segments", choices)});
  dynamic_cast<uikit::Switch&>(*shown.specifier("switch").control()).setOn(true);
  dynamic_cast<uikit::Slider&>(*shown.specifier("slider").control()).setValue(3);
  dynamic_cast<uikit::TextField&>(*shown.specifier("text").control()).text = "typed";
  dynamic_cast<uikit::SegmentedControl&>(*shown.specifier("segments").control())
      .selectedSegmentIndex = 1;
  EXPECT_EQ(shown.row("switch").value, Value(true));
  EXPECT_EQ(shown.row("slider").value.number(), 3);
  EXPECT_EQ(shown.row("text").value, Value("typed"));
  EXPECT_EQ(shown.row("segments").value, Value(8));
  EXPECT_EQ(shown.row("segments").shown, "On");
}

// The store's own number, not the control's of 4 bytes.
TEST(RowValue, KeepsTheKindOfTheStoredNumber) {
  Shown shown({row("PSSliderCell", "slider", {{"max", 100}, {"default", 0.1}}),
               row("PSSwitchCell", "switch", {{"default", 1}}),
               row("PSSliderCell", "beyond", {{"max", 9}, {"default", 200}})});
  EXPECT_EQ(shown.row("slider").value, Value(0.1));
  EXPECT_EQ(shown.row("switch").value, Value(1));
  EXPECT_EQ(shown.row("beyond").value, Value(200));
}

TEST(NumberText, IsToAThousandthWithoutZerosAtItsEnd) {
  EXPECT_EQ(host::numberText(50), "50");
  EXPECT_EQ(host::numberText(100), "100");
  EXPECT_EQ(host::numberText(0.5), "0.5");
  EXPECT_EQ(host::numberText(12.3456), "12.346");
  EXPECT_EQ(host::numberText(0), "0");
}

TEST(RowReference, CountsFromTheFirstRow) {
  Shown shown({row("PSGroupCell", "first"), row("PSButtonCell", "second")});
  ASSERT_TRUE(shown.application.row(0));
  EXPECT_EQ((*shown.application.row(0))->identifier(), "first");
  EXPECT_EQ((*shown.application.row(1))->identifier(), "second");
  EXPECT_FALSE(shown.application.row(2));
  EXPECT_FALSE(shown.application.row(-1));
}

}  // namespace
