#include "prefs/core/names.h"
#include "tests/window/bundle_window.h"

namespace {

using plist::Dictionary;
using plist::Value;

constexpr const char* kProfile = "/var/mobile/Documents/Quorvantis/profile_20.qvx";

// What is done in the window, and taken back.
class UndoWindow : public BundleWindow {
 protected:
  UndoWindow() { options.state = state.path().toStdString(); }

  void store(const std::string& key, const Value& value) {
    foundation::DeviceRoot root(folder.path().toStdString());
    ASSERT_TRUE(foundation::Preferences(root).setAppValue(key, value, prefs::kDomain));
  }
  QByteArray profile() const {
    QFile file(folder.path() + kProfile);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
  }
  void openWithProfile() {
    write(kProfile, Dictionary{{"profilepercentage", "20"}, {"profiledescription", "Night"}});
    open("ProfilesListController");
  }
  void manage(const char* action) {
    driver->click("Compose", kButton);
    driver->click(action, kButton);
    driver->click(action, kButton);
  }
  void undo() { driver->key(Qt::Key_Z, Qt::ControlModifier); }
  void redo() { driver->key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); }
  QString said() { return bridge().undo()->text(); }

  QTemporaryDir state;
};

TEST_F(UndoWindow, AChangeIsTakenBackAndMadeAgainByKeys) {
  open("PowerSavingListController");
  driver->click(labelOf("custbrightenabled"), kCheckBox);
  ASSERT_EQ(stored("custbrightenabled"), Value(true));
  ASSERT_TRUE(row("custbright").usable);
  undo();
  EXPECT_TRUE(stored("custbrightenabled").isNothing());
  EXPECT_FALSE(driver->find(labelOf("custbrightenabled"), kCheckBox)->property("checked").toBool());
  EXPECT_FALSE(row("custbright").usable);
  redo();
  EXPECT_EQ(stored("custbrightenabled"), Value(true));
  EXPECT_TRUE(row("custbright").usable);
}

TEST_F(UndoWindow, ADragIsOneStep) {
  open("PowerSavingListController");
  set("custbrightenabled", true);
  set("custbright", 10);
  driver->waitUntilIdle();
  const QPoint middle =
      driver->place(driver->find(labelOf("custbright"), kSlider)).center().toPoint();
  QTest::mousePress(window, Qt::LeftButton, {}, middle);
  for (int x = 10; x <= 60; x += 10) QTest::mouseMove(window, middle + QPoint(x, 0));
  QTest::mouseRelease(window, Qt::LeftButton, {}, middle + QPoint(60, 0));
  driver->waitUntilIdle();
  ASSERT_GT(stored("custbright").number(), 50);
  undo();
  EXPECT_EQ(stored("custbright").number(), 10);
}

TEST_F(UndoWindow, ALoadOffersToBeTakenBack) {
  openWithProfile();
  manage("Load");
  ASSERT_EQ(stored("profiledescription"), Value("Night"));
  EXPECT_EQ(said(), "Loaded Battery 20%.");
  EXPECT_TRUE(driver->accessible("Loaded Battery 20%.", QAccessible::AlertMessage));
  driver->click("Undo", kButton);
  EXPECT_TRUE(stored("profiledescription").isNothing());
  EXPECT_TRUE(driver->find("Redo", kButton));
}

TEST_F(UndoWindow, TheOfferIsReachedByKeysAndLeavesByEscape) {
  openWithProfile();
  manage("Load");
  for (int i = 0; i < 30 && driver->focused() != "Undo"; ++i) driver->key(Qt::Key_Tab);
  ASSERT_EQ(driver->focused(), "Undo");
  driver->key(Qt::Key_Escape);
  EXPECT_EQ(said(), "");
  EXPECT_EQ(page().pageClass, "ProfilesListController");
  EXPECT_EQ(stored("profiledescription"), Value("Night"));
}

TEST_F(UndoWindow, TheOfferLeavesWithTheNextChange) {
  openWithProfile();
  manage("Load");
  ASSERT_NE(said(), "");
  for (const bool on : {false, true}) set("profileactive", on);
  EXPECT_EQ(said(), "");
}

TEST_F(UndoWindow, ADeletedProfileComesBackByteForByte) {
  openWithProfile();
  const QByteArray before = profile();
  manage("Delete");
  driver->click("Ok", kButton);
  ASSERT_FALSE(exists(kProfile));
  EXPECT_EQ(said(), "Deleted Battery 20%.");
  undo();
  EXPECT_EQ(profile(), before);
}

TEST_F(UndoWindow, AnOverwrittenProfileComesBackByteForByte) {
  openWithProfile();
  set("profiledescription", "Day");
  store("profilepercentage", "20");
  const QByteArray before = profile();
  driver->click("Compose", kButton);
  driver->click("Save", kButton);
  driver->click("Save", kButton);
  driver->click("Overwrite", kButton);
  driver->click("Ok", kButton);
  ASSERT_NE(profile(), before);
  undo();
  EXPECT_EQ(profile(), before);
}

TEST_F(UndoWindow, WhatAnotherProgramHasChangedSinceIsLeftAndNamed) {
  open("PowerSavingListController");
  set("custbrightenabled", true);
  set("custbright", 42);
  store("custbright", 7);
  undo();
  EXPECT_EQ(stored("custbright").number(), 7);
  EXPECT_TRUE(said().contains(labelOf("custbright"))) << said().toStdString();
}

TEST_F(UndoWindow, WithNothingToUndoItSaysSo) {
  open();
  undo();
  EXPECT_EQ(said(), "There is nothing to undo.");
}

TEST_F(UndoWindow, UnderAnAlertNothingIsUndone) {
  open("ProfilesListController");
  set("profileactive", true);
  driver->click("Compose", kButton);
  undo();
  EXPECT_EQ(stored("profileactive"), Value(true));
}

}  // namespace
