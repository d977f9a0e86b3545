#include <QClipboard>
#include <QGuiApplication>
#include <QSignalSpy>

#include "apps/window/tools.h"
#include "tests/window/bundle_window.h"

namespace {

using plist::Value;

class Changes : public BundleWindow {
 protected:
  void choose(const QString& entry) {
    driver->click("More", kButton);
    driver->click(entry, kButton);
  }
  // Entries are made a moment after their view.
  bool lists(const QStringList& wanted) {
    driver->until([&] { return listed() == wanted; });
    EXPECT_THAT(listed(), testing::ElementsAreArray(wanted));
    return listed() == wanted;
  }
  QStringList listed() const {
    QStringList rows;
    for (QQuickItem* item : driver->itemsOfType("EntryRow"))
      rows << item->property("label").toString() + ": " + item->property("value").toString() +
                  " (" + item->property("detail").toString() + ")";
    return rows;
  }
  QQuickItem* rowOf(const std::string& id) const {
    for (QQuickItem* item : driver->items())
      if (item->property("control").isValid() &&
          item->property("entry").value<window::Row>().id == id)
        return item;
    return nullptr;
  }
  QString description(const std::string& id) const {
    return rowOf(id)->property("description").toString();
  }
  // One setting of each; the second page is shown.
  void changeTwoPages() {
    open("UserNotificationListController");
    set("vibrate", true);
    ASSERT_TRUE(application->perform(host::Back{}));
    ASSERT_TRUE(application->perform(host::Open{"PowerSavingListController"}));
    set("custbrightenabled", true);
    driver->waitUntilIdle();
  }
};

TEST_F(Changes, ARowThatDiffersFromItsDefaultSaysSo) {
  open("UserNotificationListController");
  ASSERT_FALSE(row("vibrate").changed);
  EXPECT_FALSE(description("vibrate").contains("changed"));
  set("vibrate", true);
  EXPECT_TRUE(driver->until([&] { return description("vibrate").contains("changed"); }));
}

TEST_F(Changes, TheMenuOfARowResetsItThroughItsPage) {
  open("UserNotificationListController");
  set("vibrate", true);
  driver->waitUntilIdle();
  driver->clickItem(rowOf("vibrate"), Qt::RightButton);
  driver->click("Reset to Default (off)", kButton);
  EXPECT_EQ(stored("vibrate"), Value(false));
  EXPECT_FALSE(row("vibrate").changed);
  EXPECT_TRUE(bridge().problems().isEmpty());
}

TEST_F(Changes, TheMenuCopiesValueAndKey) {
  open("GeneralSettingsController");
  driver->clickItem(rowOf("enabled"), Qt::RightButton);
  driver->click("Copy Value", kButton);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QString::fromStdString(row("enabled").shown));
  driver->clickItem(rowOf("enabled"), Qt::RightButton);
  driver->click("Copy Key", kButton);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "enabled");
}

TEST_F(Changes, TheMenuKeyOpensTheMenuOfTheFocusedRow) {
  open("GeneralSettingsController");
  driver->key(Qt::Key_Tab);
  driver->key(Qt::Key_Menu);
  EXPECT_NE(driver->find("Copy Key", kButton), nullptr);
  driver->key(Qt::Key_Escape);
  EXPECT_EQ(driver->find("Copy Key", kButton), nullptr);
  EXPECT_EQ(page().pageClass, "GeneralSettingsController");
  driver->key(Qt::Key_F10, Qt::ShiftModifier);
  EXPECT_NE(driver->find("Copy Key", kButton), nullptr);
}

TEST_F(Changes, ALongPressOpensTheMenuAndDoesNotTurnTheSwitch) {
  open("GeneralSettingsController");
  const Value before = row("enabled").value;
  const QPoint at = driver->place(rowOf("enabled")).center().toPoint();
  QTest::mousePress(window, Qt::LeftButton, {}, at);
  EXPECT_TRUE(driver->until([&] { return driver->find("Copy Key", kButton) != nullptr; }));
  QTest::mouseRelease(window, Qt::LeftButton, {}, at);
  driver->waitUntilIdle();
  EXPECT_EQ(row("enabled").value, before);
  EXPECT_NE(driver->find("Copy Key", kButton), nullptr);
}

TEST_F(Changes, AllThatDiffersIsListedPageByPage) {
  changeTwoPages();
  choose("All Changed Settings…");
  EXPECT_TRUE(lists({"Custom Brightness: on (Default: off)", "Vibrate: on (Default: off)"}));
  driver->key(Qt::Key_Escape);
  choose("Changed on This Page…");
  EXPECT_TRUE(lists({"Custom Brightness: on (Default: off)"}));
}

TEST_F(Changes, NothingChangedIsSaid) {
  open();
  choose("All Changed Settings…");
  EXPECT_TRUE(driver->shows("Nothing is changed"));
}

TEST_F(Changes, AResetOfAPageLeavesTheOthers) {
  changeTwoPages();
  choose("Changed on This Page…");
  driver->click("Reset This Setting", kButton);
  EXPECT_EQ(stored("custbrightenabled"), Value(false));
  EXPECT_EQ(stored("vibrate"), Value(true));
  EXPECT_FALSE(row("custbrightenabled").changed) << "the page behind shows it";
  EXPECT_TRUE(driver->shows("Nothing is changed"));
}

TEST_F(Changes, TheListFollowsWhatIsTakenBack) {
  QTemporaryDir state;
  options.state = state.path().toStdString();
  changeTwoPages();
  choose("Changed on This Page…");
  driver->click("Reset This Setting", kButton);
  ASSERT_TRUE(driver->shows("Nothing is changed"));
  driver->key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(lists({"Custom Brightness: on (Default: off)"}));
  closeAll();
}

TEST_F(Changes, TheListIsNotDrawnAgainWhereNothingDiffers) {
  changeTwoPages();
  choose("All Changed Settings…");
  QSignalSpy changes(bridge().tools()->changes(), &::window::ChangesTool::changed);
  emit bridge().tools()->storedChanged();
  EXPECT_EQ(changes.size(), 0);
  set("custbrightenabled", false);
  emit bridge().tools()->storedChanged();
  EXPECT_EQ(changes.size(), 1);
}

TEST_F(Changes, AResetOfAllIsOneStepOfTheHistory) {
  QTemporaryDir state;
  options.state = state.path().toStdString();
  open("UserNotificationListController");
  set("vibrate", true);
  set("flashled", true);
  driver->waitUntilIdle();
  choose("All Changed Settings…");
  driver->click("Reset These 2 Settings", kButton);
  EXPECT_EQ(stored("vibrate"), Value(false));
  EXPECT_EQ(stored("flashled"), Value(false));
  const auto last = device->backups()->history().next(host::History::Way::Undo);
  ASSERT_TRUE(last && *last);
  EXPECT_EQ((*last)->change.what, "reset all");
  EXPECT_EQ((*last)->change.settings.size(), 2u);
  closeAll();
}

TEST_F(Changes, AfterAResetTheKeyboardIsNotOnTheButtonThatResets) {
  QTemporaryDir state;
  options.state = state.path().toStdString();
  open("UserNotificationListController");
  set("vibrate", true);
  driver->waitUntilIdle();
  choose("All Changed Settings…");
  driver->find("Reset This Setting", kButton)->forceActiveFocus(Qt::TabFocusReason);
  driver->key(Qt::Key_Return);
  ASSERT_TRUE(driver->shows("Nothing is changed"));
  driver->key(Qt::Key_Z, Qt::ControlModifier);
  ASSERT_TRUE(driver->until([&] { return driver->find("Vibrate", kButton) != nullptr; }));
  driver->waitUntilIdle();
  EXPECT_NE(driver->focused(), "Reset This Setting");
  EXPECT_EQ(driver->rings(), 1);
  closeAll();
}

TEST_F(Changes, AMenuWithNothingToChooseDoesNotOpen) {
  open("UserNotificationListController");
  emit bridge().tools()->menuWanted(
      QVariantList{QVariantMap{{"text", "Nothing"}, {"usable", false}}}, window->contentItem());
  driver->waitUntilIdle();
  EXPECT_EQ(driver->find("Menu"), nullptr);
  EXPECT_FALSE(driver->shows("Nothing"));
}

TEST_F(Changes, AMenuThatTheMouseOpensShowsNothingAsChosen) {
  open();
  driver->click("More", kButton);
  EXPECT_EQ(driver->rings(), 0);
  for (const char* entry : {"Search…", "Changed on This Page…"}) {
    driver->key(Qt::Key_Down);
    EXPECT_EQ(driver->focused(), entry);
    EXPECT_EQ(driver->rings(), 1);
  }
}

TEST_F(Changes, AChangedSettingOpensItsRow) {
  open("UserNotificationListController");
  set("vibrate", true);
  ASSERT_TRUE(application->perform(host::Back{}));
  driver->waitUntilIdle();
  choose("All Changed Settings…");
  driver->click("Vibrate", kButton);
  EXPECT_TRUE(driver->until([&] { return page().pageClass == "UserNotificationListController"; }));
  EXPECT_TRUE(driver->until([&] { return driver->itemsOfType("ChangesView").empty(); }));
}

}  // namespace
