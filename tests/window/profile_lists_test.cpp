#include "tests/window/profile_window.h"

namespace {

using plist::Dictionary;

// The lists from which a profile opens.
class ProfileLists : public ProfileWindow {};

TEST_F(ProfileLists, TheMenuListsTheSavedProfilesAndTheStripFillsTheirTriggers) {
  openWithProfiles();
  driver->click("More", kButton);
  driver->click("Saved Profiles…", kButton);
  EXPECT_TRUE(driver->shows("Battery 20%") && driver->shows("Night"));
  EXPECT_TRUE(driver->shows("Charging started"));
  std::map<QString, int> bars;
  std::vector<QQuickItem*> filled;
  for (QQuickItem* item : driver->items()) {
    ++bars[item->objectName()];
    if (item->objectName() == "filled") filled.push_back(item);
  }
  EXPECT_EQ(bars["filled"], 2);
  EXPECT_EQ(bars["free"], 106);
  driver->clickItem(filled.front());
  EXPECT_EQ(opened().title(), "Battery 20%");
  EXPECT_FALSE(driver->itemsOfType("ProfileView").empty());
}

TEST_F(ProfileLists, WithoutProfilesTheListSaysWhatWouldFillIt) {
  open();
  emit bridge().tools()->profilesWanted();
  driver->waitUntilIdle();
  EXPECT_TRUE(driver->shows("No saved profiles"));
}

TEST_F(ProfileLists, KeysLeadThroughALongMenuOfProfiles) {
  for (int i = 1; i <= 30; ++i)
    write("/var/mobile/Documents/Quorvantis/profile_" + std::to_string(i) + ".qvx",
          Dictionary{{"profilepercentage", std::to_string(i)}});
  openWithProfiles();
  show(kProfile20);
  driver->key(Qt::Key_Tab);
  driver->find("Compare With…", kButton)->forceActiveFocus(Qt::TabFocusReason);
  driver->key(Qt::Key_Return);
  EXPECT_EQ(driver->focused(), "The current settings");
  EXPECT_EQ(driver->rings(), 1);
  driver->key(Qt::Key_End);
  EXPECT_EQ(driver->focused(), "Charging started");
  driver->key(Qt::Key_Home);
  EXPECT_EQ(driver->focused(), "The current settings");
  driver->type("battery 17");
  EXPECT_EQ(driver->focused(), "Battery 17%");
  const QRectF place = driver->place(window->activeFocusItem());
  EXPECT_TRUE(place.top() >= 0 && place.bottom() <= window->height());
  driver->key(Qt::Key_Return);
  EXPECT_EQ(opened().other(), "Battery 17%");
}

TEST_F(ProfileLists, TheTicksOfAListStandBelowOneAnother) {
  openWithProfiles("GeneralSettingsController");
  driver->click("Saved Profile", kButton);
  const auto tickOf = [&](const QString& name) {
    driver->click(name, kRadioButton);
    for (const QQuickItem* tick : driver->itemsOfType("Tick")) return driver->place(tick).left();
    return -1.0;
  };
  const double ofProfile = tickOf("Charging started");
  EXPECT_GT(ofProfile, 0);
  EXPECT_EQ(tickOf("None"), ofProfile);
}

TEST_F(ProfileLists, AProfileOfTheFirstPagesListOpens) {
  openWithProfiles();
  driver->click("Saved Profiles", kButton);
  driver->click("Battery 20% - Night", kButton);
  EXPECT_EQ(opened().title(), "Battery 20%");
  EXPECT_FALSE(driver->itemsOfType("ProfileView").empty());
}

TEST_F(ProfileLists, AnEntryOfTheFirstPagesListLeadsOnAndIsNoChoice) {
  openWithProfiles();
  driver->click("Saved Profiles", kButton);
  EXPECT_FALSE(driver->find("Battery 20% - Night", kRadioButton));
  EXPECT_FALSE(driver->find("Details of Charging started", kButton));
  driver->key(Qt::Key_End);
  EXPECT_EQ(driver->focused(), "Charging started");
  driver->key(Qt::Key_Return);
  EXPECT_EQ(opened().title(), "Charging started");
}

TEST_F(ProfileLists, AListThatStoresKeepsItsMeaningAndHasAButtonForTheDetails) {
  openWithProfiles("GeneralSettingsController");
  std::string list;
  for (const host::RowView& row : page().rows)
    if (auto* link = std::get_if<host::LinkView>(&row.control))
      if (link->choices && !link->choices->values.empty() && link->choices->values[0].text())
        list = row.id;
  ASSERT_FALSE(list.empty());
  driver->click(labelOf(list), kButton);
  driver->click("Battery 20% - Night", QAccessible::RadioButton);
  EXPECT_TRUE(driver->itemsOfType("ProfileView").empty());
  EXPECT_TRUE(driver->accessible("Battery 20% - Night", kRadioButton)->state().checked);
  driver->click("Details of Charging started", kButton);
  EXPECT_EQ(opened().title(), "Charging started");
}

}  // namespace
