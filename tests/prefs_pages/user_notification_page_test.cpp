#include "prefs/pages/UserNotificationListController.h"
#include "tests/prefs_pages/pages_bundle.h"

namespace {

using namespace pages_test;
using Page = Opened<prefs::UserNotificationListController>;

// Dimmed through the cell's own flag.
bool looksDisabled(const uikit::TableViewCell& cell) {
  return cell.userInteractionEnabled() && !cell.enabled() && cell.alpha() == 0.30000001192092896;
}

const std::vector<std::string> kMessageRows = {"adressbook", "msgrecipient", "msgtext"};

TEST(UserNotificationPage, RulesAreInTheOrderOfTheTable) {
  Page opened;
  const std::vector<std::array<std::string_view, 2>> expected = {{"vibrate", "vibrateduration"},
                                                                 {"flashled", "flashledduration"},
                                                                 {"sendmessage", "adressbook"},
                                                                 {"sendmessage", "msgrecipient"},
                                                                 {"sendmessage", "msgtext"}};
  ASSERT_EQ(opened.page->rules().size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    const prefs::DependencyRule& rule = opened.page->rules()[i];
    EXPECT_EQ(std::string_view(rule.controllingSwitch), expected[i][0]);
    EXPECT_EQ(std::string_view(rule.dependentRow), expected[i][1]);
    EXPECT_EQ(rule.by, i < 2 ? prefs::By::Interaction : prefs::By::CellEnabled);
    EXPECT_EQ(rule.effect, prefs::Effect::EnabledWhileOn);
  }
}

TEST(UserNotificationPage, DimsDurationsByInteractionAndMessageRowsByTheCellsFlag) {
  Page opened;
  opened.build();
  opened.page->viewWillAppear(false);
  opened.device.queue.advance(kTenthOfASecond);
  EXPECT_TRUE(looksDimmed(opened.cell("vibrateduration")));
  EXPECT_TRUE(looksDimmed(opened.cell("flashledduration")));
  for (const auto& row : kMessageRows) EXPECT_TRUE(looksDisabled(opened.cell(row))) << row;
}

TEST(UserNotificationPage, EachSwitchGovernsItsOwnRows) {
  const std::vector<std::pair<std::string, std::vector<std::string>>> rowsOf = {
      {"vibrate", {"vibrateduration"}},
      {"flashled", {"flashledduration"}},
      {"sendmessage", kMessageRows}};
  for (const auto& [on, unused] : rowsOf) {
    Page opened;
    opened.store(on, true);
    opened.build();
    opened.page->setSliderEnableDisable();
    for (const auto& [each, rows] : rowsOf)
      for (const auto& row : rows)
        EXPECT_EQ(looksEnabled(opened.cell(row)), each == on) << on << " " << row;
  }
}

TEST(UserNotificationPage, RowsWithoutARuleAreAlwaysUsable) {
  Page opened;
  opened.build();
  opened.page->setSliderEnableDisable();
  for (const char* row :
       {"playsound", "testsound", "alerttype", "alertmsg", "vibrate", "flashled", "sendmessage"}) {
    EXPECT_TRUE(looksEnabled(opened.cell(row))) << row;
    EXPECT_EQ(opened.page->dimmingOf(row).by, "") << row;
  }
}

TEST(UserNotificationPage, SwitchingTheMessageOnEnablesItsThreeRowsAtOnce) {
  Page opened;
  opened.build();
  opened.page->setSliderEnableDisable();
  opened.change("sendmessage", true);
  for (const auto& row : kMessageRows) EXPECT_TRUE(looksEnabled(opened.cell(row))) << row;
  opened.change("sendmessage", false);
  for (const auto& row : kMessageRows) {
    EXPECT_TRUE(looksDisabled(opened.cell(row))) << row;
    EXPECT_EQ(opened.page->dimmingOf(row).by, "sendmessage");
  }
}

TEST(UserNotificationPage, DurationsLagBehindTheirSwitches) {
  for (const char* key : {"vibrate", "flashled"}) {
    Page opened;
    opened.build();
    opened.page->viewWillAppear(false);
    opened.device.queue.advance(kTenthOfASecond);
    const std::string duration = std::string(key) + "duration";
    opened.change(key, true);
    EXPECT_EQ(opened.stored(key), plist::Value(true));
    EXPECT_TRUE(looksDimmed(opened.cell(duration)));
    EXPECT_EQ(opened.page->dimmingOf(duration).by, key);
    EXPECT_TRUE(opened.page->dimmingOf(duration).lags);
    opened.activate();
    EXPECT_FALSE(opened.page->dimmingOf(duration).lags);
    EXPECT_TRUE(looksEnabled(opened.cell(duration)));
    opened.change(key, false);
    EXPECT_TRUE(looksEnabled(opened.cell(duration)));
    EXPECT_EQ(opened.page->dimmingOf(duration).by, "");
    opened.change("sendmessage", true);
    EXPECT_TRUE(looksDimmed(opened.cell(duration)));
    EXPECT_FALSE(opened.page->dimmingOf(duration).lags);
  }
}

TEST(UserNotificationPage, DurationsFollowAtTheNextAppearance) {
  Page opened;
  opened.build();
  opened.page->setSliderEnableDisable();
  opened.change("vibrate", true);
  opened.page->viewWillDisappear(false);
  opened.page->viewWillAppear(false);
  EXPECT_TRUE(looksDimmed(opened.cell("vibrateduration")));
  opened.device.queue.advance(kTenthOfASecond);
  EXPECT_TRUE(looksEnabled(opened.cell("vibrateduration")));
}

TEST(UserNotificationPage, OnlySendMessageIsFollowedByAnEvaluation) {
  Page opened;
  opened.build();
  for (const auto& [key, value] :
       std::vector<std::pair<std::string, plist::Value>>{{"alerttype", 1},
                                                         {"alertmsg", "x"},
                                                         {"playsound", "Disabled"},
                                                         {"vibrate", true},
                                                         {"vibrateduration", 3.0},
                                                         {"flashled", true},
                                                         {"flashledduration", 3.0},
                                                         {"adressbook", "1"},
                                                         {"msgrecipient", "1"},
                                                         {"msgtext", "x"},
                                                         {"sendmessage", true}}) {
    auto& governed = opened.cell(key == "vibrateduration" ? "flashledduration" : "vibrateduration");
    EXPECT_EQ(evaluates(governed, [&] { opened.change(key, value); }), key == "sendmessage") << key;
  }
}

TEST(UserNotificationPage, AContactIsStoredAsTheRecipient) {
  Page opened;
  opened.build();
  const auto recipient = opened.cell("msgrecipient").shared_from_this();
  const auto contacts = opened.cell("adressbook").shared_from_this();
  opened.change("adressbook", "+1 555");
  EXPECT_EQ(opened.stored("msgrecipient"), plist::Value("+1 555"));
  EXPECT_FALSE(opened.stored("adressbook"));
  EXPECT_NE(&opened.cell("msgrecipient"), recipient.get());
  EXPECT_EQ(&opened.cell("adressbook"), contacts.get());
  EXPECT_EQ(dynamic_cast<uikit::TextField&>(*opened.row("msgrecipient").control()).text, "+1 555");
  EXPECT_EQ(opened.device.darwin.posted, std::vector<std::string>{"com.zorvek.quorvantis.prefs"});
}

TEST(UserNotificationPage, TheContactRowKeepsNoValue) {
  Page opened;
  opened.build();
  opened.change("adressbook", "+1 555");
  EXPECT_TRUE(opened.page->valueOf(opened.row("adressbook")).isNothing());
}

TEST(UserNotificationPage, AContactIsFlushed) {
  Page opened;
  opened.build();
  EXPECT_TRUE(opened.flushes([&] { opened.change("adressbook", "1"); }));
}

TEST(UserNotificationPage, AContactWithoutARecipientRowIsStoredNowhere) {
  const ChangedBundle changed(
      "UserNotificationListController",
      without(readList("UserNotificationListController"), {"msgrecipient"}));
  Page opened(changed.bundle());
  opened.build();
  opened.change("adressbook", "1");
  EXPECT_FALSE(opened.stored("msgrecipient"));
  EXPECT_FALSE(opened.stored("adressbook"));
  EXPECT_TRUE(opened.device.darwin.posted.empty());
}

TEST(UserNotificationPage, TestingADisabledSoundPlaysNothing) {
  Page opened;
  opened.build();
  opened.page->testSound();
  EXPECT_TRUE(opened.device.sounds.played.empty());
}

TEST(UserNotificationPage, TestingPlaysWhatTheRowShowsAndNotWhatIsStored) {
  Page opened;
  opened.build();
  opened.change("playsound", "file:///System/Library/Audio/UISounds/a%20b.caf");
  opened.store("playsound", "file:///other.caf");
  opened.page->testSound();
  opened.page->testSound();
  const std::optional<std::string> url = "file:///System/Library/Audio/UISounds/a%20b.caf";
  EXPECT_EQ(opened.device.sounds.played, (std::vector{url, url}));
}

TEST(UserNotificationPage, AMissingValueIsNotDisabledAndPlaysWithoutAUrl) {
  Page opened;
  opened.page->testSound();
  EXPECT_EQ(opened.device.sounds.played, (std::vector<std::optional<std::string>>{std::nullopt}));
}

TEST(UserNotificationPage, AMissingSoundRowPlaysWithoutAUrl) {
  const ChangedBundle changed("UserNotificationListController",
                              without(readList("UserNotificationListController"), {"playsound"}));
  Page opened(changed.bundle());
  opened.page->testSound();
  EXPECT_EQ(opened.device.sounds.played, (std::vector<std::optional<std::string>>{std::nullopt}));
}

TEST(UserNotificationPage, ATextThatIsNotAUrlPlaysWithoutAUrl) {
  for (const char* text : {"/a b", "/\u00E9", "%zz"}) {
    Page opened;
    opened.store("playsound", text);
    opened.build();
    opened.page->testSound();
    EXPECT_EQ(opened.device.sounds.played, (std::vector<std::optional<std::string>>{std::nullopt}))
        << text;
  }
}

TEST(UserNotificationPage, OnlyTheExactWordIsDisabled) {
  for (const char* text : {"disabled", "", "/System/x.caf"}) {
    Page opened;
    opened.store("playsound", text);
    opened.build();
    opened.page->testSound();
    EXPECT_EQ(opened.device.sounds.played, (std::vector<std::optional<std::string>>{text}));
  }
}

TEST(UserNotificationPage, AValueThatIsNotTextPlaysWithoutAUrl) {
  Page opened;
  opened.store("playsound", 7);
  opened.build();
  opened.page->testSound();
  EXPECT_EQ(opened.device.sounds.played, (std::vector<std::optional<std::string>>{std::nullopt}));
}

TEST(UserNotificationPage, ItsOperationsAreCalledBySelector) {
  Page opened;
  for (const char* selector :
       {"valueDataFromTarget:", "titlesDataFromTarget:", "contactsValueDataFromTarget:",
        "contactsTitlesDataFromTarget:", "testSound", "setSliderEnableDisable",
        "setValue:forSpecifier:", "getViewForID:", "getCellForID:"})
    EXPECT_NE(opened.page->operations().find(selector), nullptr) << selector;
}

TEST(UserNotificationPage, TheSetterIsTheOneOfThePageWhenCalledBySelector) {
  Page opened;
  opened.build();
  foundation::Object* row = &opened.row("adressbook");
  const preferences::Argument arguments[] = {plist::Value("9"), row};
  EXPECT_TRUE(
      opened.page->operations().find("setValue:forSpecifier:")->run(*opened.page, arguments));
  EXPECT_EQ(opened.stored("msgrecipient"), plist::Value("9"));
}

}  // namespace
