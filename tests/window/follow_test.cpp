#include <QElapsedTimer>
#include <QSignalSpy>

#include "apps/window/tools.h"
#include "prefs/core/names.h"
#include "tests/window/bundle_window.h"

namespace {

using plist::Array;
using plist::Dictionary;
using plist::Value;

constexpr const char* kLog = "/var/mobile/Documents/Quorvantis/quorvantis.log";

// What another process stores, shown.
class Following : public BundleWindow {
 protected:
  void store(const std::string& key, const Value& value) {
    foundation::DeviceRoot root(folder.path().toStdString());
    ASSERT_TRUE(foundation::Preferences(root).setAppValue(key, value, prefs::kDomain));
  }
  void writeLog(int entries) {
    Array log;
    for (int i = 1; i <= entries; ++i) log.emplace_back("Entry " + std::to_string(i));
    write(kLog, log);
  }
  bool isOn(const std::string& id) const {
    return driver->find(labelOf(id), kCheckBox)->property("checked").toBool();
  }
  double scrolled(const char* list) const {
    return driver->itemsOfType(list).front()->property("contentY").toDouble();
  }
};

TEST_F(Following, AChangeShowsWithinATenthOfASecond) {
  open("PowerSavingListController");
  driver->waitUntilIdle();
  std::vector<qint64> waited;
  for (int i = 1; i <= 5; ++i) {
    const bool on = i % 2 == 1;
    store("custbrightenabled", on);
    QElapsedTimer timer;
    timer.start();
    ASSERT_TRUE(driver->until([&] { return isOn("custbrightenabled") == on; }));
    waited.push_back(timer.elapsed());
  }
  std::ranges::sort(waited);
  EXPECT_LE(waited[2], 100);
}

TEST_F(Following, OneThatWasMinimizedShowsItAsItIsRaised) {
  open("PowerSavingListController");
  window->showMinimized();
  store("custbrightenabled", true);
  window->showNormal();
  emit qApp->applicationStateChanged(Qt::ApplicationActive);
  EXPECT_TRUE(isOn("custbrightenabled"));
  EXPECT_TRUE(row("custbright").usable);
}

TEST_F(Following, AnOwnChangeIsDrawnOnce) {
  open("PowerSavingListController");
  QTest::qWait(200);
  QSignalSpy changes(bridge().shown()->rows(), &QAbstractItemModel::dataChanged);
  QSignalSpy resets(bridge().shown()->rows(), &QAbstractItemModel::modelReset);
  driver->click(labelOf("custbrightenabled"), kCheckBox);
  const auto drawn = changes.size();
  EXPECT_GT(drawn, 0);
  QTest::qWait(200);
  EXPECT_EQ(changes.size(), drawn);
  EXPECT_EQ(resets.size(), 0);
}

TEST_F(Following, OnlyWhatOthersStoreIsLookedForAgain) {
  store("vpn", 1);
  open("PowerSavingListController");
  QTest::qWait(200);
  QSignalSpy changes(bridge().tools(), &::window::Tools::storedChanged);
  driver->click(labelOf("custbrightenabled"), kCheckBox);
  EXPECT_EQ(changes.size(), 0) << "at once";
  QTest::qWait(200);
  EXPECT_EQ(changes.size(), 0);
  store("wifi", true);
  EXPECT_TRUE(driver->until([&] { return changes.size() > 0; }));
}

TEST_F(Following, OnlyTheRowsThatChangeAreDrawn) {
  open("PowerSavingListController");
  QTest::qWait(200);
  QSignalSpy changes(bridge().shown()->rows(), &QAbstractItemModel::dataChanged);
  store("wifi", true);
  ASSERT_TRUE(driver->until([&] { return row("wifi").shown == "On"; }));
  QTest::qWait(100);
  EXPECT_EQ(changes.size(), 1);
}

TEST_F(Following, NeitherScrollNorFocusMove) {
  open("PowerSavingListController", 390, 600);
  driver->scrollTo(300);
  for (int i = 0; i < 6; ++i) driver->key(Qt::Key_Down);
  const QString focused = driver->focused();
  const double y = scrolled("RowsView");
  ASSERT_GT(y, 0);
  store("wifi", true);
  store("custbright", 7);
  ASSERT_TRUE(driver->until([&] { return row("custbright").shown == "7"; }));
  driver->waitUntilIdle();
  EXPECT_EQ(scrolled("RowsView"), y);
  EXPECT_EQ(driver->focused(), focused);
}

// The user's text stays, and is stored; without one the text of now shows, and nothing is.
TEST_F(Following, AnOpenEditorStays) {
  open("UserNotificationListController");
  set("sendmessage", true);
  driver->click(labelOf("msgtext"), kText);
  window->activeFocusItem()->setProperty("text", "");
  driver->type("mine");
  store("msgtext", "theirs");
  QTest::qWait(150);
  QQuickItem* editor = window->activeFocusItem();
  EXPECT_EQ(editor->property("text").toString(), "mine");
  driver->key(Qt::Key_Escape);
  EXPECT_EQ(editor->property("text").toString(), "theirs");
  store("msgtext", "theirs again");
  QTest::qWait(150);
  driver->key(Qt::Key_Tab);
  EXPECT_EQ(stored("msgtext"), Value("theirs again"));
  EXPECT_EQ(editor->property("text").toString(), "theirs again");
}

TEST_F(Following, ASliderThatIsDraggedStaysWithTheHand) {
  open("PowerSavingListController");
  set("custbrightenabled", true);
  driver->waitUntilIdle();
  QQuickItem* slider = driver->find(labelOf("custbright"), kSlider);
  const QRectF place = driver->place(slider);
  QTest::mousePress(window, Qt::LeftButton, {}, place.center().toPoint());
  QTest::mouseMove(window, place.center().toPoint() + QPoint(40, 0));
  const double dragged = slider->property("value").toDouble();
  store("custbright", 3);
  QTest::qWait(150);
  EXPECT_EQ(slider->property("value").toDouble(), dragged);
  QTest::mouseRelease(window, Qt::LeftButton, {}, place.center().toPoint() + QPoint(40, 0));
  driver->waitUntilIdle();
  EXPECT_EQ(stored("custbright").number(), dragged);
}

TEST_F(Following, AListGrowsWithoutMoving) {
  writeLog(60);
  open(nullptr, 390, 800);
  driver->click("Battery Log");
  QQuickItem* list = driver->itemsOfType("QQuickListView").back();
  list->setProperty("contentY", 800);
  driver->waitUntilIdle();
  const QRectF before = driver->place(driver->find("Entry 40"));
  writeLog(63);
  ASSERT_TRUE(driver->until([&] { return page().choices->titles.size() == 63; }));
  driver->waitUntilIdle();
  EXPECT_EQ(driver->place(driver->find("Entry 40")), before);
  EXPECT_EQ(list->property("count").toInt(), 63);
  list->setProperty("contentY", list->property("originY"));
  driver->waitUntilIdle();
  EXPECT_TRUE(driver->shows("Entry 63"));
}

TEST_F(Following, WhatIsFilteredStaysFiltered) {
  writeLog(60);
  open();
  driver->click("Battery Log");
  bridge().shown()->choices()->setFilter("6");
  driver->waitUntilIdle();
  EXPECT_EQ(bridge().shown()->choices()->count(), 7);  // 6, 16, …, 56, 60
  writeLog(62);
  ASSERT_TRUE(driver->until([&] { return bridge().shown()->choices()->count() == 9; }));
  EXPECT_EQ(bridge().shown()->choices()->filter(), "6");
}

TEST_F(Following, AFilterKeepsTheKeyboardWhileItsListIsReadAnew) {
  writeLog(60);
  open();
  driver->click("Battery Log");
  driver->clickItem(driver->find("Filter"));
  driver->type("6");
  ASSERT_EQ(driver->focused(), "Filter");
  for (const char* words : {"Reading the battery log…", ""}) bridge().shown()->setReading(words);
  driver->waitUntilIdle();
  EXPECT_EQ(driver->focused(), "Filter");
}

TEST_F(Following, AProfileThatIsRemovedLeavesTheList) {
  const std::string path = "/var/mobile/Documents/Quorvantis/profile_";
  for (const char* id : {"5", "20", "101"})
    write(path + id + ".qvx", Dictionary{{"profilepercentage", id}});
  open();
  driver->click("Saved Profiles");
  EXPECT_TRUE(driver->shows("Battery 20%"));
  foundation::DeviceRoot root(folder.path().toStdString());
  ASSERT_TRUE(root.remove(path + "20.qvx"));
  EXPECT_TRUE(driver->until([&] { return !driver->shows("Battery 20%"); }));
  EXPECT_TRUE(driver->shows("Battery 5%"));
}

}  // namespace
