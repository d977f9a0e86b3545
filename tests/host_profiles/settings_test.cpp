#include "host/settings.h"

#include "host/battery_log.h"
#include "host/raw_store.h"
#include "host/text.h"
#include "tests/prefs_profiles/profiles_device.h"

namespace {

using host::Failure;
using plist::Value;

class HostSettings : public testing::Test {
 protected:
  template <class T>
  static Failure failureOf(const host::Attempt<T>& attempt) {
    EXPECT_FALSE(attempt);
    return attempt ? Failure{} : attempt.error();
  }

  using Texts = std::vector<host::Settings::KeyAndText>;
  auto set(const std::string& key, const std::string& text) { return settings.set({{key, text}}); }

  profiles_test::ProfilesDevice device;
  host::DeferredNotifications notifications{device.darwinCenter};
  preferences::Environment environment{device.root,    device.preferences, device.center,
                                       device.queue,   notifications,      device.collator,
                                       device.urls,    device.addressBook, device.sounds,
                                       device.realXml, prefs::bundle()};
  host::Settings::Problems reported;
  host::Settings settings{environment, device.queue, notifications,
                          [this] { return std::exchange(reported, {}); }};
};

TEST_F(HostSettings, AValueIsStoredOrTheRowsDefault) {
  EXPECT_EQ(*settings.value("custbright"), Value(50));
  device.store("custbright", 12.5);
  EXPECT_EQ(*settings.value("custbright"), Value(50)) << "seen once synchronised";
  ASSERT_TRUE(device.preferences.synchronize());
  EXPECT_EQ(*settings.value("custbright"), Value(12.5));
  EXPECT_EQ(failureOf(settings.value("nosuchkey")).reason, Failure::NotFound);
}

TEST_F(HostSettings, ATextBecomesTheValueOfTheRowsKind) {
  EXPECT_TRUE(set("custbrightenabled", "true"));
  EXPECT_EQ(device.stored("custbrightenabled"), Value(true));
  EXPECT_TRUE(set("custbright", "40"));
  EXPECT_EQ(device.stored("custbright"), Value(40.0));
  EXPECT_TRUE(set("alertmsg", "40"));
  EXPECT_EQ(device.stored("alertmsg"), Value("40"));
  EXPECT_TRUE(set("wifi", "2"));
  EXPECT_EQ(device.stored("wifi"), Value(2));
  EXPECT_TRUE(set("bannercolor", "System Blue"));
  EXPECT_EQ(device.stored("bannercolor"), Value("#007AFF"));
}

TEST_F(HostSettings, WhatARowCannotTakeIsRefusedAndChangesNothing) {
  for (const auto& [key, text] : {std::pair("custbrightenabled", "2"),
                                  {"custbright", "40"},
                                  {"wifi", "7"},
                                  {"alertmsg", "\xff"},
                                  {"bannercolor", "blue"},
                                  {"vibrateduration", "x"}})
    EXPECT_EQ(failureOf(set(key, text)).reason, Failure::Refused) << key;
  EXPECT_TRUE(device.domain().empty());
}

TEST_F(HostSettings, AChangeThatIsNotStoredFailsWithTheStoresReason) {
  device.store("wifi", 1);
  const auto lock = device.at("/var/mobile/Library/Preferences/.com.zorvek.quorvantis.plist.lock");
  std::filesystem::remove(lock);
  std::filesystem::create_directories(lock);
  device.preferences.setProblemHandler(
      [this](const platform::Error& error) { reported.push_back({.words = error.message()}); });
  const auto failure = failureOf(set("wifi", "2"));
  EXPECT_EQ(failure.reason, Failure::Failed);
  EXPECT_NE(failure.problem.words.find("lock"), std::string::npos) << failure.problem.words;
}

TEST_F(HostSettings, ASwitchTakesTheWordsOfEverydayInAnyCase) {
  for (const char* on : {"true", "on", "Yes", "1"}) {
    EXPECT_TRUE(set("vibrate", "false"));
    EXPECT_TRUE(set("vibrate", on));
    EXPECT_EQ(device.stored("vibrate"), Value(true)) << on;
  }
  for (const char* off : {"FALSE", "Off", "no", "0"}) {
    EXPECT_TRUE(set("vibrate", "true"));
    EXPECT_TRUE(set("vibrate", off));
    EXPECT_EQ(device.stored("vibrate"), Value(false)) << off;
  }
}

TEST_F(HostSettings, AChoiceIsNamedByItsValueThenItsTitleThenItsTitleInAnyCase) {
  EXPECT_TRUE(set("autolock", "30"));
  EXPECT_EQ(device.stored("autolock"), Value(30));
  EXPECT_TRUE(set("autolock", "1 Minute"));
  EXPECT_EQ(device.stored("autolock"), Value(60));
  EXPECT_TRUE(set("autolock", "never"));
  EXPECT_EQ(device.stored("autolock"), Value(-1));
}

TEST_F(HostSettings, ARefusalSaysWhatCouldBeMeant) {
  for (const auto& [key, text, meant] : {std::tuple("wfi", "1", "\"wifi\""),
                                         {"autolock", "1 Minite", "\"1 Minute\""},
                                         {"bannercolor", "Sistem Blue", "\"System Blue\""}}) {
    const auto words = failureOf(set(key, text)).problem.words;
    EXPECT_NE(words.find(std::string("did you mean ") + meant), std::string::npos) << words;
  }
}

TEST_F(HostSettings, SeveralValuesAreStoredInOrder) {
  EXPECT_TRUE(settings.set(Texts{{"vibrate", "on"}, {"vibrateduration", "10"}}));
  EXPECT_EQ(device.stored("vibrate"), Value(true));
  EXPECT_EQ(device.stored("vibrateduration"), Value(10.0));
}

TEST_F(HostSettings, OfSeveralValuesAllAreStoredOrNone) {
  const auto failure =
      failureOf(settings.set(Texts{{"wifi", "1"}, {"alertmsg", "a"}, {"vpn", "9"}}));
  EXPECT_EQ(failure.reason, Failure::Refused);
  EXPECT_TRUE(device.domain().empty());
  EXPECT_TRUE(device.events.empty()) << device.events.front();
  EXPECT_EQ(*settings.value("wifi"), Value(0)) << "nor is it seen here";
  EXPECT_TRUE(set("bluetooth", "1"));
  EXPECT_EQ(device.domain().size(), 1u);
}

TEST_F(HostSettings, AChangeIsAnnouncedOnceItIsStored) {
  std::vector<plist::Dictionary> seen;
  device.darwinCenter.hook = [&](const std::string&) { seen.push_back(device.domain()); };
  EXPECT_TRUE(settings.set(Texts{{"wifi", "1"}, {"vpn", "2"}}));
  ASSERT_EQ(seen.size(), 2u);
  for (const plist::Dictionary& domain : seen) EXPECT_EQ(domain.size(), 2u);
}

TEST_F(HostSettings, WhatARowShowsCanAlwaysBeSet) {
  device.store("profile", "/gone.qvx");
  device.store("vibrate", 1.0);
  device.store("wifi", 2.0);
  ASSERT_TRUE(device.preferences.synchronize());
  EXPECT_TRUE(set("profile", "/gone.qvx"));
  EXPECT_TRUE(set("vibrate", "1.0"));
  EXPECT_TRUE(set("wifi", "2.0"));
  EXPECT_FALSE(set("profile", "/other.qvx"));
  EXPECT_EQ(device.stored("profile"), Value("/gone.qvx"));
}

TEST_F(HostSettings, AResetSetsTheDefaultThroughTheRowsSetter) {
  EXPECT_TRUE(settings.set(Texts{{"wifi", "1"}, {"vibrate", "on"}, {"bannercolor", "Snow"}}));
  device.events.clear();
  EXPECT_TRUE(settings.reset({.keys = {"wifi", "vibrate", "bannercolor", "vpn"}}));
  EXPECT_EQ(device.stored("wifi"), Value(0));
  EXPECT_EQ(device.stored("vibrate"), Value(false));
  EXPECT_EQ(device.stored("bannercolor"), Value("#34495F"));
  EXPECT_EQ(device.stored("vpn"), std::nullopt) << "shows its default already";
  EXPECT_EQ(std::ranges::count(device.events, "darwin com.zorvek.quorvantis.prefs"), 3);
}

TEST_F(HostSettings, OnlyANamedRowIsNotResetWhileItIsDimmed) {
  EXPECT_TRUE(settings.set(Texts{{"custbrightenabled", "on"}, {"custbright", "40"}}));
  EXPECT_TRUE(set("custbrightenabled", "off"));
  const auto failure = failureOf(settings.reset({.keys = {"custbright"}}));
  EXPECT_EQ(failure.reason, Failure::Refused);
  EXPECT_EQ(failure.problem.words, failureOf(set("custbright", "30")).problem.words);
  EXPECT_TRUE(settings.reset({.page = "power saving"}));
  EXPECT_EQ(device.stored("custbright"), Value(50.0));
}

TEST_F(HostSettings, WhatAResetWouldChangeIsFoundWithoutChangingIt) {
  EXPECT_TRUE(settings.set(Texts{{"wifi", "1"}, {"vibrate", "on"}}));
  const plist::Value before = device.domain();
  device.events.clear();
  const auto changes = settings.changesOfReset({.all = true});
  ASSERT_TRUE(changes);
  ASSERT_EQ(changes->size(), 2u);
  EXPECT_EQ((*changes)[0].key, "wifi");
  EXPECT_EQ((*changes)[0].to, Value(0));
  EXPECT_EQ(plist::Value(device.domain()), before);
  EXPECT_TRUE(device.events.empty());
}

TEST_F(HostSettings, APageIsNamedByItsClassOrItsTitle) {
  EXPECT_EQ(settings.page("SoundsListController")->pageClass, "SoundsListController");
  EXPECT_EQ(settings.page("sounds")->pageClass, "SoundsListController");
  EXPECT_EQ(failureOf(settings.page("")).reason, Failure::NotFound);
  EXPECT_NE(failureOf(settings.page("Sonds")).problem.words.find("\"Sounds\""), std::string::npos);
}

TEST_F(HostSettings, APageIsOpenedWithAllRowsAndItsRules) {
  const auto page = settings.page("PowerSavingListController");
  ASSERT_TRUE(page);
  const auto row = std::ranges::find(page->rows, "custbright", &host::RowView::id);
  ASSERT_NE(row, page->rows.end());
  EXPECT_TRUE(row->built);
  ASSERT_TRUE(row->whyNot);
  EXPECT_EQ(row->whyNot->by, "custbrightenabled");
  EXPECT_EQ(failureOf(settings.page("NoSuchPage")).reason, Failure::NotFound);
}

TEST_F(HostSettings, ChoicesOfAColorAreThePalettesColors) {
  EXPECT_EQ((*settings.choices("bannercolor"))->titles.size(), 60u);
  EXPECT_EQ((*settings.choices("wifi"))->titles.size(), 3u);
  EXPECT_EQ(failureOf(settings.choices("custbright")).reason, Failure::Refused);
}

TEST_F(HostSettings, TheRawStoreReadsWritesAndRemoves) {
  host::RawStore store(device.preferences);
  EXPECT_TRUE(store.write("key", 1));
  EXPECT_EQ(*store.read("key"), Value(1));
  EXPECT_EQ(store.readAll()->size(), 1u);
  EXPECT_EQ(failureOf(store.write("\xff", 1)).reason, Failure::Refused);
  EXPECT_EQ(failureOf(store.write("key", "\xff")).reason, Failure::Refused);
  EXPECT_TRUE(store.remove("key"));
  EXPECT_EQ(failureOf(store.remove("key")).reason, Failure::NotFound);
  device.damageDomain();
  EXPECT_EQ(failureOf(store.readAll()).reason, Failure::Failed);
  EXPECT_EQ(failureOf(store.read("key")).reason, Failure::Failed);
}

TEST(NamingText, IsWhatAUserTypes) {
  EXPECT_EQ(host::namingText("a b"), "a b");
  EXPECT_EQ(host::namingText(true), "true");
  EXPECT_EQ(host::namingText(-5), "-5");
  EXPECT_EQ(host::namingText(UINT64_MAX), "18446744073709551615");
  EXPECT_EQ(host::namingText(50.0), "50.0");
  EXPECT_EQ(host::namingText(0.1f), "0.1");
  EXPECT_EQ(host::namingText(1e22), "1e+22");
  EXPECT_EQ(host::namingText(plist::Array{}), std::nullopt);
}

TEST(NewEntries, AreThoseBehindWhatWasThere) {
  EXPECT_EQ(host::newEntries({"A", "B"}, {"A", "B", "C"}), plist::Array{"C"});
  EXPECT_EQ(host::newEntries({"A", "B"}, {"B", "C"}), plist::Array{"C"});
  EXPECT_EQ(host::newEntries({"A"}, {"X", "Y"}), (plist::Array{"X", "Y"}));
  EXPECT_EQ(host::newEntries({"A"}, {"A"}), plist::Array{});
  EXPECT_EQ(host::newEntries({"A"}, {}), plist::Array{});
}

}  // namespace
