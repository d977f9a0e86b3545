#include "host/search.h"

#include <gtest/gtest.h>

namespace {

host::RowView row(std::string id, std::string label) {
  host::RowView view;
  view.id = view.key = std::move(id);
  view.label = std::move(label);
  return view;
}

host::RowView group(std::string label, std::string footer = "") {
  host::RowView view;
  view.kind = host::RowKind::Group;
  view.id = label.empty() ? "" : "radiosgroup";
  view.label = std::move(label);
  view.footer = std::move(footer);
  return view;
}

host::RowView choices(std::string id, std::string label, std::vector<std::string> titles) {
  host::RowView view = row(std::move(id), std::move(label));
  plist::Array values(titles.size(), plist::Value(0));
  view.control = host::LinkView{
      "", std::make_shared<preferences::Choices>(preferences::Choices{values, titles})};
  return view;
}

std::vector<host::PageView> pages() {
  host::PageView power;
  power.pageClass = "Power";
  power.title = "Power Saving";
  power.rows = {group("", "Sets the screen."), row("custbright", "Brightness (%)"), group("Radios"),
                choices("wifi", "Wi-Fi", {"Leave", "Off"}),
                choices("vpn", "VPN", {"Leave", "Off"})};
  host::PageView extras;
  extras.pageClass = "Extras";
  extras.title = "Extras";
  extras.rows = {row("banner", "Alert Banner")};
  extras.rows[0].kind = host::RowKind::Color;
  return {power, extras};
}

std::vector<std::string> found(std::string_view words) {
  const host::SavedProfile night{
      .path = "/p/profile_20.qvx", .trigger = "20", .title = "Battery 20%", .description = "Night"};
  std::vector<std::string> texts;
  for (const auto& [page, id, label, where] : host::SearchIndex(pages(), {night}).find(words))
    texts.push_back(page + " " + id + " " + label + " | " + where);
  return texts;
}

using Texts = std::vector<std::string>;

TEST(Search, FindsRowsByLabelKeyAndFooter) {
  const Texts brightness = {"Power custbright Brightness (%) | Power Saving"};
  EXPECT_EQ(found("brightness"), brightness);
  EXPECT_EQ(found("custbright"), brightness);
  EXPECT_EQ(found("screen"), brightness);
}

TEST(Search, FindsChoicesColorsPagesAndProfiles) {
  EXPECT_EQ(found("midnight"), Texts{"Extras banner Midnight | Extras > Alert Banner"});
  EXPECT_EQ(found("saving").front(), "Power  Power Saving | Page");
  EXPECT_EQ(found("night").front(),
            "ProfilesListController /p/profile_20.qvx Battery 20% - Night | Saved Profiles");
}

TEST(Search, TheOrderOfTheWordsDoesNotMatter) {
  const std::string off = "Power wifi Off | Power Saving > Radios > Wi-Fi";
  EXPECT_EQ(found("wifi off").front(), off);
  EXPECT_EQ(found("off wi-fi").front(), off);
  EXPECT_EQ(found("OFF radios").size(), 2u);
}

TEST(Search, ATypoIsForgivenInALongWord) {
  EXPECT_EQ(found("brigthness").size(), 1u);
  EXPECT_EQ(found("brgihtnes").size(), 1u) << "two";
  EXPECT_TRUE(found("brgihxnes").empty()) << "three";
  EXPECT_TRUE(found("vpm").empty()) << "a short word is another word";
}

TEST(Search, EachWordHasToMatch) {
  EXPECT_TRUE(found("wifi nonsense").empty());
  EXPECT_TRUE(found("").empty());
}

TEST(Search, WhatLeadsToARowIsAHitItselfAndNotTheRow) {
  EXPECT_EQ(found("radios"), Texts{"Power radiosgroup Radios | Power Saving"});
}

TEST(Search, AColorIsFoundByItsDigits) {
  EXPECT_EQ(found("#007aff"), Texts{"Extras banner System Blue | Extras > Alert Banner"});
  EXPECT_EQ(found("007AFF"), found("#007aff"));
}

TEST(Search, ATypoIsForgivenWhileALongWordIsStillTyped) {
  EXPECT_EQ(found("birgh"), Texts{"Power custbright Brightness (%) | Power Saving"});
  EXPECT_TRUE(found("bxxgh").empty()) << "two";
}

TEST(Search, ALabelComesBeforeAChoiceAndAFooter) {
  host::PageView page;
  page.pageClass = "P";
  page.rows = {group("", "Sets the volume."), choices("a", "First", {"Volume"}),
               row("b", "Ringer volume")};
  const auto hits = host::SearchIndex({page}, {}).find("volume");
  ASSERT_EQ(hits.size(), 3u);
  EXPECT_EQ(hits[0].label, "Ringer volume");
  EXPECT_EQ(hits[1].label, "Volume");
  EXPECT_EQ(hits[2].label, "First");
}

TEST(Search, OfLabelsThatMatchAlikeOneThatBeginsSoIsFirstThenTheShorter) {
  host::PageView page;
  page.rows = {row("a", "Auto-Brightness"), row("b", "Custom Brightness"),
               row("c", "Brightness of the screen"), row("d", "Brightness (%)")};
  std::vector<std::string> labels;
  for (const auto& hit : host::SearchIndex({page}, {}).find("bright")) labels.push_back(hit.label);
  EXPECT_EQ(labels, (Texts{"Brightness (%)", "Brightness of the screen", "Auto-Brightness",
                           "Custom Brightness"}));
}

TEST(Search, AProfileIsFoundOnceThoughListsHaveIt) {
  const std::string path = "/var/mobile/Documents/Quorvantis/profile_20.qvx";
  host::PageView page;
  page.rows = {choices("savedprofiles", "Saved Profiles", {"Battery 20%"})};
  page.rows[0].control =
      host::LinkView{"", std::make_shared<preferences::Choices>(preferences::Choices{
                             plist::Array{plist::Value(path)}, {"Battery 20%"}})};
  const host::SavedProfile saved{
      .path = path, .trigger = "20", .title = "Battery 20%", .description = ""};
  const auto hits = host::SearchIndex({page}, {saved}).find("battery 20");
  ASSERT_EQ(hits.size(), 1u);
  EXPECT_EQ(hits[0].id, path);
}

TEST(Search, ALabelThatIsWhatWasTypedComesFirst) {
  host::PageView page;
  page.rows = {row("a", "Vibrate on Ring"), row("b", "Vibrate"), row("c", "Vibrate on Silent")};
  const auto hits = host::SearchIndex({page}, {}).find("vibrate");
  ASSERT_EQ(hits.size(), 3u);
  EXPECT_EQ(hits.front().label, "Vibrate");
}

}  // namespace
