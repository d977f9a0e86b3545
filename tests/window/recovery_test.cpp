#include <QDir>

#include "prefs/core/names.h"
#include "tests/window/bundle_window.h"

namespace {

using plist::Dictionary;
using plist::Value;

constexpr const char* kSettings = "/var/mobile/Library/Preferences/com.zorvek.quorvantis.plist";
constexpr const char* kRestore = "Restore the last snapshot";
constexpr const char* kAnew = "Start anew";
constexpr const char* kTitle = "The settings can't be read";

// Settings that can't be read.
class DamagedWindow : public BundleWindow {
 protected:
  DamagedWindow() { options.state = state.path().toStdString(); }

  void damage() {
    const QString file = folder.path() + kSettings;
    QDir().mkpath(QFileInfo(file).path());
    QFile settings(file);
    ASSERT_TRUE(settings.open(QFile::WriteOnly));
    settings.write("not a property list");
  }
  void openDamaged(const char* page = nullptr) {
    damage();
    open(page);
    driver->waitUntilIdle();
  }
  bool asks() const { return driver->find(kTitle, QAccessible::AlertMessage); }
  QByteArray kept() const {
    QFile file(folder.path() + kSettings + ".unreadable-1");
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
  }

  QTemporaryDir state;
};

TEST_F(DamagedWindow, SaysSoAtOnceOnceAndOnTop) {
  openDamaged();
  ASSERT_TRUE(asks());
  EXPECT_EQ(driver->place(driver->find(kTitle, QAccessible::AlertMessage)).top(), 0);
  EXPECT_TRUE(driver->itemsOfType("MessageBar").empty());
  const QString said =
      driver->accessible(kTitle, QAccessible::AlertMessage)->text(QAccessible::Description);
  EXPECT_TRUE(said.endsWith(QDir(folder.path()).canonicalPath() + kSettings)) << said.toStdString();
  EXPECT_FALSE(said.contains("quorvantis repair"));
}

TEST_F(DamagedWindow, ShowsNoValueAndChangesNothing) {
  openDamaged("PowerSavingListController");
  EXPECT_TRUE(driver->itemsOfType("SwitchRow").empty());
  EXPECT_TRUE(driver->itemsOfType("SliderRow").empty());
  EXPECT_TRUE(driver->itemsOfType("SegmentRow").empty());
  EXPECT_TRUE(driver->shows("unknown"));
  driver->click(labelOf("wifi"));
  QFile settings(folder.path() + kSettings);
  ASSERT_TRUE(settings.open(QFile::ReadOnly));
  EXPECT_EQ(settings.readAll(), "not a property list");
}

TEST_F(DamagedWindow, ARowSaysByKeyboardToo) {
  openDamaged("PowerSavingListController");
  QStringList visited;
  for (int i = 0; i < 4; ++i) {
    driver->key(Qt::Key_Down);
    visited << driver->focused();
    EXPECT_EQ(driver->rings(), 1);
  }
  EXPECT_EQ(visited.removeDuplicates(), 0);
  const QString reason = QString::fromStdString(page().rows[1].whyNot->words());
  driver->key(Qt::Key_Home);
  EXPECT_TRUE(driver->until([&] { return driver->shows(reason); }));
}

TEST_F(DamagedWindow, TheLinksSayNothingUntilAnotherProgramHasRepairedTheSettings) {
  const auto summary = [this](const QString& label) {
    return driver->accessible(label, kButton)->text(QAccessible::Description);
  };
  foundation::DeviceRoot root(folder.path().toStdString());
  foundation::Preferences others(root);
  ASSERT_TRUE(others.setAppValue("wifi", Value(2), prefs::kDomain));
  open();
  ASSERT_TRUE(summary("Power Saving").contains("Wi-Fi off"))
      << summary("Power Saving").toStdString();
  damage();
  ASSERT_TRUE(driver->until([this] { return asks(); }));
  EXPECT_FALSE(summary("Power Saving").contains("Wi-Fi"));
  ASSERT_TRUE(QFile::remove(folder.path() + kSettings));
  ASSERT_TRUE(others.setAppValue("wifi", Value(1), prefs::kDomain));
  EXPECT_TRUE(driver->until([&] { return summary("Power Saving").contains("Wi-Fi on"); }))
      << summary("Power Saving").toStdString();
}

TEST_F(DamagedWindow, WithoutASnapshotOnlyStartsAnew) {
  openDamaged("PowerSavingListController");
  EXPECT_FALSE(driver->find(kRestore, kButton)->isEnabled());
  driver->click(kAnew, kButton);
  EXPECT_FALSE(asks());
  EXPECT_EQ(kept(), "not a property list");
  EXPECT_FALSE(driver->itemsOfType("SwitchRow").empty());
  driver->click(labelOf("custbrightenabled"), kCheckBox);
  EXPECT_EQ(stored("custbrightenabled"), Value(true));
}

TEST_F(DamagedWindow, RestoresTheLastSnapshotByKeys) {
  open("PowerSavingListController");
  set("custbrightenabled", true);
  set("custbright", 42);
  ASSERT_TRUE(device->backups()->keep("test"));
  damage();
  ASSERT_TRUE(driver->until([&] { return asks(); }));
  for (int i = 0; i < 40 && driver->focused() != kRestore; ++i) driver->key(Qt::Key_Tab);
  ASSERT_EQ(driver->focused(), kRestore);
  driver->key(Qt::Key_Return);
  EXPECT_FALSE(asks());
  EXPECT_EQ(row("custbright").shown, "42");
  EXPECT_EQ(kept(), "not a property list");
}

TEST_F(DamagedWindow, NamesTheTriggerOfTheLastSnapshotByItsTitle) {
  open("PowerSavingListController");
  set("custbrightenabled", true);
  ASSERT_TRUE(device->backups()->keep("delete 101"));
  damage();
  ASSERT_TRUE(driver->until([&] { return asks(); }));
  const QString said = driver->accessible(kRestore, kButton)->text(QAccessible::Description);
  EXPECT_TRUE(said.endsWith("before \"delete Charging started\"")) << said.toStdString();
}

TEST_F(DamagedWindow, GoesByItselfOnceAnotherProgramHasMendedIt) {
  openDamaged("PowerSavingListController");
  ASSERT_TRUE(asks());
  QFile::remove(folder.path() + kSettings);
  EXPECT_TRUE(driver->until([&] { return !asks(); }));
  EXPECT_FALSE(driver->itemsOfType("SwitchRow").empty());
}

// What an alert promises and a failed write denies.
class FailingWindow : public BundleWindow {
 protected:
  // A folder in the place of the profile's file can't be replaced.
  void openProfiles() {
    QDir().mkpath(folder.path() + "/var/mobile/Documents/Quorvantis/profile_55.qvx");
    options.state = state.path().toStdString();
    open("ProfilesListController");
  }
  void save() {
    driver->click("Compose", kButton);
    driver->click("Save", kButton);
    driver->click("Save", kButton);
    driver->click("Overwrite", kButton);
  }

  QTemporaryDir state;
};

TEST_F(FailingWindow, AnAlertCarriesTheTruthWithIt) {
  openProfiles();
  save();
  ASSERT_EQ(alerts().back().title, "Success");
  const QString truth = "The profile was not saved: a folder is in its place.\n" +
                        QDir(folder.path()).canonicalPath() +
                        "/var/mobile/Documents/Quorvantis/profile_55.qvx";
  EXPECT_TRUE(driver->shows(truth));
  EXPECT_TRUE(driver->shows(
      "The settings for the battery profile trigger - Battery 55% - were successfully "
      "overwritten!"));
  const QString said =
      driver->accessible("Success", QAccessible::Dialog)->text(QAccessible::Description);
  EXPECT_TRUE(said.endsWith(truth)) << said.toStdString();
}

TEST_F(FailingWindow, NothingIsSaidToBeDone) {
  openProfiles();
  save();
  EXPECT_EQ(bridge().undo()->text(), "");
}

TEST_F(FailingWindow, NoticesStandAboveAnAlert) {
  openProfiles();
  save();
  QQuickItem* notice = driver->itemsOfType("MessageBar").front();
  EXPECT_EQ(driver->itemsOfType("MessageBar").size(), 1u);
  EXPECT_EQ(driver->place(notice).top(), 0);
  driver->click("Dismiss", kButton);
  EXPECT_TRUE(driver->itemsOfType("MessageBar").empty());
  EXPECT_EQ(alerts().back().title, "Success");
}

TEST_F(FailingWindow, AnAlertThatKeepsItsWordSaysNothingElse) {
  open("ProfilesListController");
  driver->click("Compose", kButton);
  driver->click("Save", kButton);
  driver->click("Save", kButton);
  ASSERT_EQ(alerts().back().title, "Success");
  EXPECT_EQ(bridge().alert()->failures(), "");
}

}  // namespace
