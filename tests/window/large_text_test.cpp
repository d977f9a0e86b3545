#include <QDir>
#include <QGuiApplication>

#include "apps/window/tools.h"
#include "prefs/core/names.h"
#include "prefs/profiles/profile_file.h"
#include "tests/window/bundle_window.h"

namespace {

using plist::Dictionary;

// Text of twice the size, in narrow and low windows.
class LargeText : public BundleWindow {
 protected:
  LargeText() {
    options.state = state.path().toStdString();
    QFont large = before;
    large.setPixelSize(26);
    QGuiApplication::setFont(large);
  }
  ~LargeText() override {
    closeAll();
    QGuiApplication::setFont(before);
  }

  void store(const std::string& key, const plist::Value& value) {
    foundation::DeviceRoot root(folder.path().toStdString());
    ASSERT_TRUE(foundation::Preferences(root).setAppValue(key, value, prefs::kDomain));
  }
  // A text that is drawn.
  QQuickItem* text(const QString& words) const {
    for (QQuickItem* item : driver->itemsOfType("QQuickText"))
      if (item->property("text") == words) return item;
    return nullptr;
  }
  void expectWhole(const QString& words) const {
    QQuickItem* found = text(words);
    ASSERT_TRUE(found) << words.toStdString();
    EXPECT_FALSE(found->property("truncated").toBool()) << words.toStdString();
    EXPECT_GE(driver->place(found).left(), 0) << words.toStdString();
    EXPECT_LE(driver->place(found).right(), window->width()) << words.toStdString();
  }
  bool inSight(const QQuickItem* item) const {
    return QRectF(0, 0, window->width(), window->height()).contains(driver->place(item));
  }
  void damage() {
    const QString file =
        folder.path() + QString::fromStdString(foundation::domainPath(prefs::kDomain));
    QDir().mkpath(QFileInfo(file).path());
    QFile settings(file);
    ASSERT_TRUE(settings.open(QFile::WriteOnly));
    settings.write("not a property list");
  }
  void changeSome() {
    for (const char* key : {"vibrate", "flashled", "custbrightenabled"}) store(key, true);
    for (const char* key : {"wifi", "bluetooth", "vpn"}) store(key, 2);
  }

  const QFont before = QGuiApplication::font();
  QTemporaryDir state;
};

TEST_F(LargeText, TheWaysOutOfDamagedSettingsAreWhole) {
  damage();
  open(nullptr, 390, 844);
  for (const char* words : {"Restore the last snapshot", "Start anew"}) expectWhole(words);
}

TEST_F(LargeText, TheWaysOutOfDamagedSettingsCanBeReachedInALowWindow) {
  damage();
  open(nullptr, 320, 560);
  QQuickItem* way = driver->find("Start anew", kButton);
  ASSERT_TRUE(way);
  way->forceActiveFocus(Qt::TabFocusReason);
  driver->waitUntilIdle();
  EXPECT_TRUE(inSight(way));
  EXPECT_LE(driver->itemsOfType("RecoveryNotice").front()->height(), 560 * 0.6);
}

TEST_F(LargeText, TheHeadingOfAViewTakesWhatIsFree) {
  write(prefs::profilePath(20), Dictionary{{"profilepercentage", "20"}});
  open(nullptr, 390, 844);
  emit bridge().tools()->profileWanted(QString::fromStdString(prefs::profilePath(20)));
  driver->waitUntilIdle();
  expectWhole("Battery 20%");
}

TEST_F(LargeText, WhatResetsFitsBesideItsHeadingAndBelowTheList) {
  changeSome();
  open(nullptr, 320, 700);
  emit bridge().tools()->changesWanted("");
  driver->waitUntilIdle();
  const QString all =
      QString("Reset These %1 Settings").arg(bridge().tools()->changes()->resettable());
  expectWhole(all);
  EXPECT_TRUE(inSight(driver->find(all, kButton)));
  const auto buttons = driver->itemsOfType("TextButton");
  const auto reset = std::ranges::find_if(
      buttons, [](QQuickItem* each) { return accessibleName(each) == "Reset…"; });
  ASSERT_NE(reset, buttons.end());
  const QQuickItem* view = driver->itemsOfType("ChangesView").front();
  const QString page =
      bridge().tools()->changes()->settings()[0].value<window::ChangedSetting>().page;
  int seen = 0;
  for (const QQuickItem* heading : driver->itemsOfType("QQuickText"))
    if (view->isAncestorOf(heading) && heading->property("text") == page) {
      EXPECT_LE(driver->place(heading).right(), driver->place(*reset).left());
      ++seen;
    }
  EXPECT_GE(seen, 1);
}

TEST_F(LargeText, TheEditorOfANumberLeavesItsLabelFree) {
  open("PowerSavingListController", 320, 800);
  set("custbrightenabled", true);
  driver->waitUntilIdle();
  settings->showRow("custbright");
  driver->waitUntilIdle();
  const QString label = labelOf("custbright");
  driver->key(Qt::Key_Return);
  QQuickItem* editor = window->activeFocusItem();
  ASSERT_EQ(driver->focused(), label + ", as a number");
  ASSERT_TRUE(text(label));
  EXPECT_FALSE(driver->place(text(label)).intersects(driver->place(editor)));
  expectWhole(label);
}

TEST_F(LargeText, ALongTriggerOfThePickerIsWhole) {
  open("ProfilesListController", 320, 700);
  driver->click("Compose", kButton);
  driver->click("Save", kButton);
  ASSERT_FALSE(driver->itemsOfType("PickerWheel").empty());
  driver->type("do not");
  for (int i = 0; i < 2; ++i) {
    const QString trigger =
        driver->itemsOfType("PickerWheel").front()->property("current").toString();
    ASSERT_TRUE(trigger.startsWith("Do Not Disturb")) << trigger.toStdString();
    EXPECT_TRUE(driver->until([&] { return text(trigger) != nullptr; }));
    expectWhole(trigger);
    driver->key(Qt::Key_Down);
  }
}

TEST_F(LargeText, ALongTextThatALoadWouldChangeIsWhole) {
  const std::string long_ = "At night, while nobody needs the phone, everything may be off";
  store("alertmsg", long_ + ", " + long_ + ", " + long_);
  write(prefs::profilePath(20), Dictionary{{"profilepercentage", "20"}, {"alertmsg", "New"}});
  open(nullptr, 390, 844);
  emit bridge().tools()->profileWanted(QString::fromStdString(prefs::profilePath(20)));
  driver->waitUntilIdle();
  int seen = 0;
  for (const QQuickItem* item : driver->itemsOfType("QQuickText")) {
    if (!item->property("text").toString().endsWith("→ New")) continue;
    ++seen;
    EXPECT_FALSE(item->property("truncated").toBool());
  }
  EXPECT_EQ(seen, 1);
}

TEST_F(LargeText, TheStrokesOfPicturesGrow) {
  open();
  double thickest = 0;
  for (const QQuickItem* item :
       driver->itemsOfType("BarExtras").front()->childItems().front()->childItems())
    if (const auto* border = item->property("border").value<QObject*>())
      thickest = std::max(thickest, border->property("width").toDouble());
  EXPECT_EQ(thickest, 4);
}

TEST_F(LargeText, APopoverStaysInAWindowThatIsMadeLower) {
  open("ProfilesListController", 1000, 890);
  driver->click("Profile Manager", kButton);
  ASSERT_FALSE(alerts().empty());
  driver->resize(1000, 560);
  const QRectF place = driver->place(driver->itemsOfType("AlertFrame").front());
  EXPECT_GE(place.top(), 0);
  EXPECT_LE(place.bottom(), 560);
}

}  // namespace
