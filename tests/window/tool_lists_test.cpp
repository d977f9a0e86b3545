#include "apps/window/tools.h"
#include "prefs/core/names.h"
#include "prefs/profiles/profile_file.h"
#include "tests/window/bundle_window.h"

namespace {

using plist::Dictionary;
using plist::Value;

// The lists over the pages, while what they show changes.
class ToolLists : public BundleWindow {
 protected:
  static constexpr int kHeight = 600;

  ToolLists() { options.state = state.path().toStdString(); }
  ~ToolLists() override { closeAll(); }

  void writeProfile(int trigger) {
    write(prefs::profilePath(trigger),
          Dictionary{{"profilepercentage", std::to_string(trigger)}, {"vibrate", 1}});
  }
  void store(const std::string& key, const Value& value) {
    foundation::DeviceRoot root(folder.path().toStdString());
    ASSERT_TRUE(foundation::Preferences(root).setAppValue(key, value, prefs::kDomain));
  }
  void openProfiles(int count) {
    for (int i = 1; i <= count; ++i) writeProfile(i);
    open(nullptr, 390, kHeight);
    emit bridge().tools()->profilesWanted();
    driver->waitUntilIdle();
  }
  // By the keyboard.
  void focus(const QString& name) {
    driver->key(Qt::Key_Down);
    driver->find(name, kButton)->forceActiveFocus(Qt::TabFocusReason);
    driver->waitUntilIdle();
  }
  void expectFocus(const QString& name) const {
    EXPECT_EQ(driver->focused(), name);
    EXPECT_EQ(driver->rings(), 1);
  }
  double top(const QString& name) const { return driver->place(driver->find(name, kButton)).top(); }
  // Sets ten settings, which dim or change others.
  void changeMany() {
    for (const char* key : {"vibrate", "flashled", "custbrightenabled", "custvolenabled"})
      store(key, true);
    for (const char* key : {"wifi", "bluetooth", "vpn", "airplane", "cellular", "locationservices"})
      store(key, 2);
  }

  QTemporaryDir state;
};

TEST_F(ToolLists, SavedProfilesStayInPlaceWhereAnotherProgramSavesOne) {
  openProfiles(40);
  focus("Battery 30%");
  const double before = top("Battery 30%");
  writeProfile(50);
  ASSERT_TRUE(driver->until([&] { return driver->find("Battery 50%", kButton) != nullptr; }));
  driver->waitUntilIdle();
  EXPECT_EQ(top("Battery 30%"), before);
  expectFocus("Battery 30%");
}

TEST_F(ToolLists, TheKeyboardStaysInSavedProfilesThroughUndo) {
  openProfiles(5);
  auto& opened = *bridge().tools()->profiles()->opened();
  ASSERT_TRUE(opened.open(QString::fromStdString(prefs::profilePath(2))));
  ASSERT_TRUE(opened.remove());
  ASSERT_TRUE(driver->until([&] { return !driver->find("Battery 2%", kButton); }));
  focus("Battery 3%");
  driver->key(Qt::Key_Z, Qt::ControlModifier);
  ASSERT_TRUE(driver->until([&] { return driver->find("Battery 2%", kButton) != nullptr; }));
  driver->waitUntilIdle();
  expectFocus("Battery 3%");
}

TEST_F(ToolLists, WhatComesInThePlaceOfAnEntryThatHasGoneHasTheKeyboard) {
  openProfiles(5);
  focus("Battery 2%");
  ASSERT_TRUE(QFile::remove(folder.path() + QString::fromStdString(prefs::profilePath(2))));
  ASSERT_TRUE(driver->until([&] { return !driver->find("Battery 2%", kButton); }));
  driver->waitUntilIdle();
  expectFocus("Battery 3%");
}

TEST_F(ToolLists, ChangedSettingsStayInPlaceWhereAnotherProgramSetsOne) {
  changeMany();
  open(nullptr, 390, 480);
  emit bridge().tools()->changesWanted("");
  driver->waitUntilIdle();
  ASSERT_TRUE(driver->until([&] { return driver->find("Flash LED", kButton) != nullptr; }));
  focus("Flash LED");
  const double before = top("Flash LED");
  store("alertmsg", "theirs");
  ASSERT_TRUE(driver->until([&] { return driver->shows("theirs"); }));
  driver->waitUntilIdle();
  EXPECT_EQ(top("Flash LED"), before);
  expectFocus("Flash LED");
}

TEST_F(ToolLists, AProfilesViewStaysScrolledWhereAnotherProgramSetsASetting) {
  Dictionary profile{{"profilepercentage", "20"}};
  for (const char* key : {"vibrate", "flashled", "custbrightenabled", "custvolenabled"})
    profile.set(key, true);
  for (const char* key : {"wifi", "bluetooth", "vpn", "cellular"}) profile.set(key, 2);
  write(prefs::profilePath(20), profile);
  open(nullptr, 390, 480);
  emit bridge().tools()->profileWanted(QString::fromStdString(prefs::profilePath(20)));
  driver->waitUntilIdle();
  QQuickItem* scrolled = driver->itemsOfType("ScrollColumn").front();
  scrolled->setProperty("contentY", 120);
  store("vibrate", true);
  const auto& opened = *bridge().tools()->profiles()->opened();
  const auto before = opened.differences().size();
  ASSERT_TRUE(driver->until([&] { return opened.differences().size() == before - 1; }));
  driver->waitUntilIdle();
  EXPECT_EQ(scrolled->property("contentY").toDouble(), 120);
}

TEST_F(ToolLists, OpenedByAUserOfTheKeyboardAnEntryHasItAndARing) {
  writeProfile(1);
  writeProfile(2);
  open(nullptr, 390, kHeight);
  driver->key(Qt::Key_Tab);
  emit bridge().tools()->profilesWanted();
  driver->waitUntilIdle();
  expectFocus("Battery 1%");
}

TEST_F(ToolLists, TabVisitsEveryEntryOfAViewWithARingAndInSight) {
  changeMany();
  for (int i = 1; i <= 20; ++i) writeProfile(i);
  open(nullptr, 390, kHeight);
  const auto walk = [this](int steps) {
    QStringList visited;
    for (int i = 0; i < steps; ++i) {
      driver->key(Qt::Key_Tab);
      visited << driver->focused();
      EXPECT_EQ(driver->rings(), 1) << visited.last().toStdString();
      const QRectF place = driver->place(window->activeFocusItem());
      EXPECT_GE(place.top(), 0) << visited.last().toStdString();
      EXPECT_LE(place.bottom(), kHeight) << visited.last().toStdString();
    }
    return visited;
  };
  const auto close = [this] {
    driver->key(Qt::Key_Escape);
    driver->key(Qt::Key_Escape);
  };
  emit bridge().tools()->profilesWanted();
  driver->waitUntilIdle();
  const QStringList profiles = walk(22);
  for (int i = 1; i <= 20; ++i) EXPECT_TRUE(profiles.contains(QString("Battery %1%").arg(i))) << i;
  EXPECT_TRUE(profiles.contains("Import…") && profiles.contains("Close"));
  close();
  emit bridge().tools()->changesWanted("");
  driver->waitUntilIdle();
  const int changed = static_cast<int>(bridge().tools()->changes()->settings().size());
  const QStringList changes = walk(2 * changed);
  for (const char* label : {"Flash LED", "Custom Brightness", "Close"})
    EXPECT_TRUE(changes.contains(label)) << label;
  close();
  emit bridge().tools()->profileWanted(QString::fromStdString(prefs::profilePath(20)));
  driver->waitUntilIdle();
  const QStringList buttons = walk(6);
  for (const char* name : {"Rename…", "Export…", "Delete…", "Load", "Close"})
    EXPECT_TRUE(buttons.contains(name)) << name;
  close();
  driver->key(Qt::Key_F, Qt::ControlModifier);
  driver->type("vibr");
  for (const QQuickItem* ring : driver->itemsOfType("FocusRing"))
    EXPECT_TRUE(driver->itemsOfType("SearchView").front()->isAncestorOf(ring)) << "of Return's row";
  EXPECT_EQ(driver->rings(), 1);
}

TEST_F(ToolLists, TheEntriesOfAMenuHaveARingEach) {
  open(nullptr, 390, kHeight);
  driver->key(Qt::Key_Tab);
  for (int i = 0; i < 20 && driver->focused() != "More"; ++i)
    driver->key(Qt::Key_Backtab, Qt::ShiftModifier);
  ASSERT_EQ(driver->focused(), "More");
  driver->key(Qt::Key_Return);
  expectFocus("Search…");
  driver->key(Qt::Key_Down);
  expectFocus("Changed on This Page…");
  driver->key(Qt::Key_End);
  expectFocus("Keys");
}

TEST_F(ToolLists, KeysAfterAMouseOpenedASheetLeaveTheKeyboardOnARow) {
  writeProfile(20);
  open("ProfilesListController", 390, kHeight);
  driver->click("Compose", kButton);
  driver->key(Qt::Key_Tab);
  for (int i = 0; i < 20 && driver->focused() != "Load"; ++i) driver->key(Qt::Key_Tab);
  ASSERT_EQ(driver->focused(), "Load");
  driver->key(Qt::Key_Return);
  for (int i = 0; i < 4 && !alerts().empty(); ++i) driver->key(Qt::Key_Return);
  ASSERT_TRUE(alerts().empty());
  driver->waitUntilIdle();
  EXPECT_EQ(driver->rings(), 1) << driver->focused().toStdString();
}

// As RowsView has its rows.
TEST_F(ToolLists, AssistiveTechnologyFindsEveryEntryOfAList) {
  plist::Array log;
  for (int i = 1; i <= 60; ++i) log.emplace_back("Entry " + std::to_string(i));
  write("/var/mobile/Documents/Quorvantis/quorvantis.log", log);
  for (int i = 1; i <= 40; ++i) writeProfile(i);
  open(nullptr, 390, kHeight);
  const auto finds = [this](const QString& name) {
    return driver->until([&] { return driver->accessible(name) != nullptr; });
  };
  const auto openList = [this](const char* name) {
    focus(name);
    driver->key(Qt::Key_Return);
  };
  openList("Battery Log");
  EXPECT_TRUE(finds("Entry 1") && finds("Entry 60"));
  driver->key(Qt::Key_Escape);
  openList("Saved Profiles");
  EXPECT_TRUE(finds("Battery 1%") && finds("Battery 40%"));
  driver->key(Qt::Key_Escape);
  emit bridge().tools()->profilesWanted();
  EXPECT_TRUE(finds("Battery 40%"));
}

}  // namespace
