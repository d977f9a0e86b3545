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

  profiles_test::ProfilesDevice device;
  host::Settings::Problems reported;
  host::Settings settings{device.environment, device.queue,
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
  EXPECT_TRUE(settings.set("custbrightenabled", "true"));
  EXPECT_EQ(device.stored("custbrightenabled"), Value(true));
  EXPECT_TRUE(settings.set("custbright", "40"));
  EXPECT_EQ(device.stored("custbright"), Value(40.0));
  EXPECT_TRUE(settings.set("alertmsg", "40"));
  EXPECT_EQ(device.stored("alertmsg"), Value("40"));
  EXPECT_TRUE(settings.set("wifi", "2"));
  EXPECT_EQ(device.stored("wifi"), Value(2));
  EXPECT_TRUE(settings.set("bannercolor", "System Blue"));
  EXPECT_EQ(device.stored("bannercolor"), Value("#007AFF"));
}

TEST_F(HostSettings, WhatARowCannotTakeIsRefusedAndChangesNothing) {
  for (const auto& [key, text] : {std::pair("custbrightenabled", "1"),
                                  {"custbright", "40"},
                                  {"wifi", "7"},
                                  {"alertmsg", "\xff"},
                                  {"bannercolor", "blue"},
                                  {"vibrateduration", "x"}})
    EXPECT_EQ(failureOf(settings.set(key, text)).reason, Failure::Refused) << key;
  EXPECT_TRUE(device.domain().empty());
}

TEST_F(HostSettings, AChangeThatIsNotStoredFailsWithTheStoresReason) {
  device.store("wifi", 1);
  const auto lock = device.at("/var/mobile/Library/Preferences/.com.zorvek.quorvantis.plist.lock");
  std::filesystem::remove(lock);
  std::filesystem::create_directories(lock);
  device.preferences.setProblemHandler(
      [this](const platform::Error& error) { reported.push_back({.words = error.message()}); });
  const auto failure = failureOf(settings.set("wifi", "2"));
  EXPECT_EQ(failure.reason, Failure::Failed);
  EXPECT_NE(failure.problem.words.find("lock"), std::string::npos) << failure.problem.words;
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
