#include "prefs/profiles/triggers.h"

#include <gtest/gtest.h>

namespace {

using namespace prefs;

TEST(Triggers, HaveThe108ValuesAndTitlesInOrder) {
  auto values = triggerValues(), titles = triggerTitles();
  ASSERT_EQ(values.size(), 108u);
  ASSERT_EQ(titles.size(), 108u);
  for (int level = 1; level <= 100; ++level) {
    EXPECT_EQ(values[level - 1], plist::Value(std::to_string(level)));
    EXPECT_EQ(titles[level - 1], plist::Value("Battery " + std::to_string(level) + "%"));
  }
}

TEST(Triggers, EndWithTheEightEventsInCodeOrder) {
  const char* expected[][2] = {
      {"101", "Charging started"},        {"102", "Charging stopped"},
      {"111", "Device locked"},           {"112", "Device unlocked"},
      {"121", "Do Not Disturb disabled"}, {"122", "Do Not Disturb enabled"},
      {"131", "WiFi connected"},          {"132", "WiFi disconnected"}};
  auto values = triggerValues(), titles = triggerTitles();
  for (int i = 0; i < 8; ++i) {
    EXPECT_EQ(values[100 + i], plist::Value(expected[i][0]));
    EXPECT_EQ(titles[100 + i], plist::Value(expected[i][1]));
  }
}

TEST(TriggerTitle, IsTheEventsTitleForItsCode) {
  EXPECT_EQ(triggerTitle("121"), "Do Not Disturb disabled");
  EXPECT_EQ(triggerTitle("132"), "WiFi disconnected");
}

TEST(TriggerTitle, InsertsAnyOtherTextAsItStands) {
  EXPECT_EQ(triggerTitle("55"), "Battery 55%");
  EXPECT_EQ(triggerTitle("0"), "Battery 0%");
  EXPECT_EQ(triggerTitle("abc"), "Battery abc%");
  EXPECT_EQ(triggerTitle("101 "), "Battery 101 %");
  EXPECT_EQ(triggerTitle("0101"), "Battery 0101%");
}

}  // namespace
