#include <QDir>

#include "apps/window/tools.h"
#include "prefs/profiles/profile_file.h"
#include "tests/window/bundle_window.h"

namespace {

using plist::Dictionary;
using plist::Value;

// What lies over the pages: views of the tools, questions, alerts, and what is said meanwhile.
class OverPages : public BundleWindow {
 protected:
  OverPages() { options.state = state.path().toStdString(); }
  ~OverPages() override { closeAll(); }

  static std::string path(int trigger) { return prefs::profilePath(trigger); }
  void openWithProfiles(int count, int height = 844) {
    for (int i = 1; i <= count; ++i)
      write(path(i), Dictionary{{"profilepercentage", std::to_string(i)}, {"vibrate", 1}});
    open("UserNotificationListController", 390, height);
  }
  void showProfile(int trigger) {
    emit bridge().tools()->profileWanted(QString::fromStdString(path(trigger)));
    driver->waitUntilIdle();
    ASSERT_FALSE(driver->itemsOfType("ProfileView").empty());
  }
  QQuickItem* only(const char* type) {
    const auto found = driver->itemsOfType(type);
    EXPECT_EQ(found.size(), 1u) << type;
    return found.empty() ? nullptr : found.front();
  }
  bool inSight(QQuickItem* item) {
    return QRectF(0, 0, window->width(), window->height()).contains(driver->place(item).center());
  }

  QTemporaryDir state;
};

TEST_F(OverPages, ANoticeStandsAboveAViewAndLeavesItWhole) {
  openWithProfiles(1);
  showProfile(1);
  const double before = driver->place(only("ProfileView")).top();
  EXPECT_FALSE(bridge().tools()->profiles()->opened()->exportTo("/dev/null/x.plist", false));
  driver->waitUntilIdle();
  QQuickItem* banner = only("Banner");
  ASSERT_TRUE(banner);
  EXPECT_EQ(banner->property("message").toString(),
            "The file can't be read or written: a file is in the place of its folder.\n"
            "/dev/null/x.plist");
  EXPECT_EQ(driver->place(banner).top(), 0);
  EXPECT_GT(driver->place(only("ProfileView")).top(), before);
  EXPECT_GE(driver->place(driver->find("Close", kButton)).top(), driver->place(banner).bottom());
  driver->click("Dismiss", kButton);
  EXPECT_TRUE(driver->itemsOfType("Banner").empty());
  EXPECT_EQ(driver->place(only("ProfileView")).top(), before);
}

TEST_F(OverPages, WhatAViewDidIsOfferedToBeTakenBackThere) {
  openWithProfiles(1);
  showProfile(1);
  driver->click("Load", kButton);
  ASSERT_EQ(stored("vibrate"), Value(1));
  QQuickItem* offer = driver->find("Undo", kButton);
  ASSERT_TRUE(offer);
  EXPECT_TRUE(inSight(offer));
  driver->clickItem(offer);
  EXPECT_TRUE(stored("vibrate").isNothing());
}

TEST_F(OverPages, KeysUndoAndRedoWhileAViewIsOpen) {
  openWithProfiles(1);
  showProfile(1);
  driver->click("Load", kButton);
  driver->key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(stored("vibrate").isNothing());
  driver->key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(stored("vibrate"), Value(1));
}

TEST_F(OverPages, KeysDoNotUndoTheSettingsWhileAQuestionIsAnswered) {
  openWithProfiles(1);
  set("vibrate", true);
  showProfile(1);
  driver->click("Rename…", kButton);
  driver->key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(stored("vibrate"), Value(true));
}

TEST_F(OverPages, ArrowsWalkTheSavedProfilesAndTheFocusedOneIsInSight) {
  openWithProfiles(40, 600);
  emit bridge().tools()->profilesWanted();
  driver->waitUntilIdle();
  driver->find("Battery 1%", kButton)->forceActiveFocus(Qt::TabFocusReason);
  for (int i = 2; i <= 40; ++i) {
    driver->key(Qt::Key_Down);
    ASSERT_EQ(driver->focused(), QString("Battery %1%").arg(i));
    EXPECT_TRUE(inSight(window->activeFocusItem())) << i;
  }
  driver->key(Qt::Key_Up);
  EXPECT_EQ(driver->focused(), "Battery 39%");
}

TEST_F(OverPages, AProfilesValuesScrollByKeys) {
  write(path(1), Dictionary{{"profilepercentage", "1"},
                            {"vibrate", 1},
                            {"flashled", 1},
                            {"custbrightenabled", 1},
                            {"wifi", 2},
                            {"bluetooth", 2},
                            {"vpn", 1}});
  openWithProfiles(0, 480);
  showProfile(1);
  QQuickItem* scrolled = only("ScrollColumn");
  ASSERT_TRUE(scrolled);
  ASSERT_GT(scrolled->property("contentHeight").toDouble(), scrolled->height());
  driver->key(Qt::Key_PageDown);
  EXPECT_GT(scrolled->property("contentY").toDouble(), 0);
  driver->key(Qt::Key_Home);
  EXPECT_EQ(scrolled->property("contentY").toDouble(), 0);
}

TEST_F(OverPages, WhatCantBeReadIsNotSaidToBeEmpty) {
  openWithProfiles(0);
  ASSERT_TRUE(QDir(folder.path() + "/var/mobile/Documents").mkpath("."));
  QFile inTheWay(folder.path() + "/var/mobile/Documents/Quorvantis");
  ASSERT_TRUE(inTheWay.open(QFile::WriteOnly));
  emit bridge().tools()->profilesWanted();
  driver->waitUntilIdle();
  EXPECT_TRUE(driver->shows("The profiles can't be read"));
  EXPECT_FALSE(driver->shows("No saved profiles"));
}

TEST_F(OverPages, APageWithoutChangesSaysSoOfThatPageOnly) {
  openWithProfiles(0);
  set("vibrate", true);
  emit bridge().tools()->changesWanted("PowerSavingListController");
  driver->waitUntilIdle();
  EXPECT_TRUE(driver->shows("Every setting of this page has its default."));
}

// The least window, and text of twice the size.
TEST_F(OverPages, EveryButtonOfASheetCanBeReachedInTheLeastWindow) {
  QFont font = QGuiApplication::font();
  const QFont before = font;
  font.setPixelSize(26);
  QGuiApplication::setFont(font);
  write(path(20), Dictionary{{"profilepercentage", "20"}});
  for (const QSize& size : {QSize(320, 480), QSize(1000, 480)}) {
    open("ProfilesListController", size.width(), size.height());
    driver->click("Compose", kButton);
    for (const char* name : {"Cancel", "Load", "Save", "Delete"}) {
      QQuickItem* button = driver->find(name, kButton);
      ASSERT_TRUE(button) << name;
      button->forceActiveFocus(Qt::TabFocusReason);
      driver->waitUntilIdle();
      EXPECT_TRUE(inSight(button)) << name << " " << size.width();
    }
    closeAll();
  }
  QGuiApplication::setFont(before);
}

}  // namespace
