#include "host/closest.h"

#include <gtest/gtest.h>

namespace {

using host::closest;
using host::indexNamed;
using host::typosBetween;

TEST(Closest, CountsSlipsOfTheHand) {
  EXPECT_EQ(typosBetween("wifi", "WiFi"), 0u);
  EXPECT_EQ(typosBetween("wfi", "wifi"), 1u);
  EXPECT_EQ(typosBetween("wfii", "wifi"), 1u) << "two letters swapped";
  EXPECT_EQ(typosBetween("wiffi", "wifi"), 1u);
  EXPECT_EQ(typosBetween("wisi", "wifi"), 1u);
  EXPECT_EQ(typosBetween("", "wifi"), 4u);
  EXPECT_EQ(typosBetween("abc", "xyz"), 3u);
}

TEST(Closest, IsTheNearestIfOneIsNear) {
  const std::vector<std::string> keys = {"vibrate", "vibrateduration", "wifi", "vpn"};
  EXPECT_EQ(closest("vibrte", keys), "vibrate");
  EXPECT_EQ(closest("VPM", keys), "vpn");
  EXPECT_EQ(closest("bluet", {"vpn", "bluetooth"}), "bluetooth") << "begins so";
  EXPECT_EQ(closest("of", {"On", "Off"}), "Off") << "begins so, of two as near";
  EXPECT_EQ(closest("xyz", keys), std::nullopt);
  EXPECT_EQ(closest("", keys), std::nullopt);
  EXPECT_EQ(closest("a", {"b"}), std::nullopt) << "nothing of it is left";
}

TEST(Closest, NoNumberIsMeantByAnother) {
  EXPECT_EQ(closest("0x10", {"0", "1", "2"}), std::nullopt);
  EXPECT_EQ(closest("103", {"101", "102"}), std::nullopt);
  EXPECT_EQ(closest("20%", {"2", "20", "200"}), "20");
  EXPECT_EQ(closest("Battery 200%", {"Battery 20%", "Battery 100%"}), std::nullopt);
  EXPECT_EQ(closest("Batery 20%", {"Battery 2%", "Battery 20%"}), "Battery 20%");
  EXPECT_EQ(closest("wifi2", {"wifi"}), "wifi") << "has no number";
}

TEST(Closest, AnExactNameComesBeforeOneInAnotherCase) {
  EXPECT_EQ(indexNamed("on", {"On", "on"}), 1u);
  EXPECT_EQ(indexNamed("ON", {"Off", "on"}), 1u);
  EXPECT_EQ(indexNamed("ON", {"On", "on"}), std::nullopt) << "which one is meant?";
  EXPECT_EQ(indexNamed("o", {"On"}), std::nullopt);
}

}  // namespace
