#include <QDir>
#include <QGuiApplication>
#include <QStyleHints>

#include "apps/window/tools.h"
#include "platform/uikit/alert_controller.h"
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

  // Those of every bar that offers to take a change back, shown or not.
  std::vector<QObject*> timers() {
    std::vector<QObject*> found;
    for (const QObject* bar : window->findChildren<QObject*>())
      if (QByteArray(bar->metaObject()->className()).startsWith("UndoBar_QML"))
        for (QObject* timer : bar->findChildren<QObject*>())
          if (timer->inherits("QQmlTimer")) found.push_back(timer);
    EXPECT_FALSE(found.empty());
    return found;
  }
  void report(const char* words) {
    application->report({.words = words});
    driver->waitUntilIdle();
  }
  void presentAlert() {
    auto alert = std::make_shared<uikit::AlertController>("Note", "", uikit::AlertStyle::Alert);
    alert->addAction({"Fine", uikit::ButtonRole::Default, {}});
    device->screen().present(alert);
    application->buildVisibleRows();
    driver->waitUntilIdle();
    ASSERT_FALSE(alerts().empty());
  }
  double topOf(const QString& dialog) {
    return driver->place(driver->find(dialog, QAccessible::Dialog)).top();
  }

  QTemporaryDir state;
};

TEST_F(OverPages, ANoticeStandsAboveAViewAndLeavesItWhole) {
  openWithProfiles(1);
  showProfile(1);
  const double before = driver->place(only("ProfileView")).top();
  EXPECT_FALSE(bridge().tools()->profiles()->opened()->exportTo("/dev/null/x.plist", false));
  driver->waitUntilIdle();
  QQuickItem* banner = only("MessageBar");
  ASSERT_TRUE(banner);
  EXPECT_EQ(banner->property("message").toString(),
            "The file can't be read or written: a file is in the place of its folder.\n"
            "/dev/null/x.plist");
  EXPECT_EQ(driver->place(banner).top(), 0);
  EXPECT_GT(driver->place(only("ProfileView")).top(), before);
  EXPECT_GE(driver->place(driver->find("Close", kButton)).top(), driver->place(banner).bottom());
  driver->click("Dismiss", kButton);
  EXPECT_TRUE(driver->itemsOfType("MessageBar").empty());
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

TEST_F(OverPages, WhatIsOfferedThereLeavesByItself) {
  openWithProfiles(1);
  showProfile(1);
  driver->click("Load", kButton);
  ASSERT_NE(bridge().undo()->text(), "");
  for (QObject* timer : timers()) timer->setProperty("interval", 50);
  EXPECT_TRUE(driver->until([this] { return bridge().undo()->text().isEmpty(); }));
}

TEST_F(OverPages, NoTimeRunsWhileNothingIsOffered) {
  openWithProfiles(0);
  driver->key(Qt::Key_Z, Qt::ControlModifier);
  ASSERT_NE(bridge().undo()->text(), "");
  bridge().undo()->forget();
  for (const QObject* timer : timers()) EXPECT_FALSE(timer->property("running").toBool());
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

TEST_F(OverPages, NothingIsTakenBackBesideAQuestion) {
  openWithProfiles(1);
  showProfile(1);
  driver->click("Load", kButton);
  ASSERT_TRUE(driver->find("Undo", kButton));
  driver->click("Rename…", kButton);
  driver->click("Undo", kButton);
  EXPECT_EQ(stored("vibrate"), Value(1));
}

TEST_F(OverPages, AQuestionGivesWayToANotice) {
  openWithProfiles(1);
  showProfile(1);
  driver->click("Delete…", kButton);
  const double before = topOf("Delete Battery 1%?");
  report("The disk is full.");
  EXPECT_GT(topOf("Delete Battery 1%?"), before);
}

TEST_F(OverPages, TheHelpGivesWayToANotice) {
  openWithProfiles(0, 480);
  driver->key(Qt::Key_F1);
  ASSERT_TRUE(driver->find("Keys"));
  report("The disk is full.");
  EXPECT_GE(driver->place(driver->find("Keys")).top(), driver->place(only("MessageBar")).bottom());
}

TEST_F(OverPages, AnAlertGivesTheKeyboardBackToTheViewBelowIt) {
  openWithProfiles(1);
  showProfile(1);
  presentAlert();
  driver->key(Qt::Key_Return);
  ASSERT_TRUE(alerts().empty());
  EXPECT_TRUE(only("ProfileView")->isAncestorOf(window->activeFocusItem()));
  driver->key(Qt::Key_Escape);
  EXPECT_TRUE(driver->itemsOfType("ProfileView").empty());
}

TEST_F(OverPages, AnEntryShowsThatThePointerIsOnIt) {
  QStyleHints& hints = *QGuiApplication::styleHints();
  const bool before = hints.useHoverEffects();
  hints.setUseHoverEffects(true);
  openWithProfiles(2);
  emit bridge().tools()->profilesWanted();
  driver->waitUntilIdle();
  QQuickItem* entry = driver->find("Battery 2%", kButton);
  const auto isHovered = [&] {
    for (const QQuickItem* face : entry->childItems())
      if (face->property("hovered").toBool()) return true;
    return false;
  };
  EXPECT_FALSE(isHovered());
  QTest::mouseMove(window, driver->place(entry).center().toPoint());
  EXPECT_TRUE(driver->until(isHovered));
  hints.setUseHoverEffects(before);
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

TEST_F(OverPages, AWindowThatIsResizedBelowAnAlertShowsItsRowsAfterItWithoutANotice) {
  open("UserNotificationListController", 320, 800);
  presentAlert();
  const int before = application->viewport();
  driver->resize(320, 480);
  EXPECT_TRUE(bridge().problems().isEmpty());
  driver->click("Fine", kButton);
  EXPECT_TRUE(driver->until([&] { return application->viewport() < before; }));
  EXPECT_TRUE(bridge().problems().isEmpty());
}

// A text field's cross would answer the question, or open a result.
TEST_F(OverPages, TheCrossOfATextFieldIsNoStopOfTheKeyboard) {
  openWithProfiles(1);
  showProfile(1);
  driver->click("Rename…", kButton);
  driver->type("Day");
  driver->key(Qt::Key_Tab);
  EXPECT_EQ(driver->focused(), "Cancel");
  driver->key(Qt::Key_Return);
  EXPECT_EQ(bridge().tools()->profiles()->opened()->description(), "");
  driver->click("Rename…", kButton);
  driver->type("Day");
  ASSERT_TRUE(driver->act("Clear", kButton, QAccessibleActionInterface::pressAction()));
  EXPECT_EQ(window->activeFocusItem()->property("text").toString(), "");
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
