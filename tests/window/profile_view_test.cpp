#include "host/undo.h"
#include "tests/window/profile_window.h"

namespace {

using plist::Dictionary;
using plist::Value;

// What is seen of one profile, and what is done with it.
class ProfileView : public ProfileWindow {
 protected:
  // The rows below a heading, "Vibrate: off → on" or "Vibrate: on".
  QStringList below(const QString& heading) const {
    QStringList rows;
    for (QQuickItem* list : driver->itemsOfType("ValueList")) {
      if (list->property("heading").toString() != heading) continue;
      for (QQuickItem* item : list->childItems())
        if (item->isVisible() && item->property("detail").isValid())
          rows << item->property("label").toString() + ": " +
                      (item->property("detail").toString() + item->property("value").toString());
    }
    return rows;
  }
};

TEST_F(ProfileView, SaysWhatALoadWouldChangeAsTheDiffDoes) {
  openWithProfiles("UserNotificationListController");
  set("flashled", true);
  show(kProfile20);
  const QStringList changes = below("A load would change");
  EXPECT_THAT(changes, testing::Contains("Vibrate: off → on"));
  EXPECT_THAT(changes, testing::Contains("Flash LED: on → off"));
  EXPECT_THAT(below("Values"), testing::Contains("Vibrate: on"));
}

TEST_F(ProfileView, LoadsAndThenNothingWouldChange) {
  openWithProfiles("UserNotificationListController");
  show(kProfile20);
  driver->click("Load", kButton);
  EXPECT_EQ(stored("vibrate"), Value(1));
  EXPECT_EQ(below("A load would change"),
            QStringList{"Nothing: the settings are like this already.: "});
  EXPECT_TRUE(driver->shows("Loaded."));
  EXPECT_TRUE(bridge().problems().isEmpty());
  driver->key(Qt::Key_Escape);
  EXPECT_TRUE(row("vibrate").changed) << "the page behind shows it";
}

TEST_F(ProfileView, ComparesWithAnotherProfile) {
  openWithProfiles();
  show(kProfile20);
  driver->click("Compare With…", kButton);
  driver->click("Charging started", kButton);
  const QStringList differences = below("Different in Charging started");
  EXPECT_THAT(differences, testing::Contains("Vibrate: on → off"));
  EXPECT_THAT(differences, testing::Contains("Flash LED: off → on"));
  driver->click("Compare With…", kButton);
  driver->click("The current settings", kButton);
  EXPECT_FALSE(below("A load would change").isEmpty());
}

TEST_F(ProfileView, RenamesTheDescriptionAndKeepsTheValues) {
  openWithProfiles();
  show(kProfile20);
  driver->click("Rename…", kButton);
  driver->key(Qt::Key_A, Qt::ControlModifier);
  driver->type("Day");
  driver->key(Qt::Key_Return);
  EXPECT_EQ(opened().description(), "Day");
  const auto profile = host::Profiles(device->environment()).read(*host::profileNamed(kProfile20));
  ASSERT_TRUE(profile);
  EXPECT_TRUE(Value(*profile) ==
              Value(Dictionary{
                  {"profilepercentage", "20"}, {"profiledescription", "Day"}, {"vibrate", 1}}));
}

TEST_F(ProfileView, DeleteAsksFirstAndTheHarmlessButtonHasTheKeyboard) {
  openWithProfiles();
  show(kProfile20);
  driver->click("Delete…", kButton);
  EXPECT_TRUE(driver->shows("Delete Battery 20%?"));
  EXPECT_EQ(driver->focused(), "Cancel");
  EXPECT_EQ(driver->rings(), 0) << "by mouse";
  driver->key(Qt::Key_Return);
  EXPECT_TRUE(exists(kProfile20));
  driver->click("Delete…", kButton);
  driver->click("Delete", kButton);
  EXPECT_FALSE(exists(kProfile20));
  EXPECT_TRUE(driver->until([&] { return driver->itemsOfType("ProfileView").empty(); }));
}

TEST_F(ProfileView, FollowsWhatOtherProgramsChange) {
  openWithProfiles();
  show(kProfile20);
  ASSERT_THAT(below("A load would change"), testing::Contains("Vibrate: off → on"));
  foundation::DeviceRoot root(folder.path().toStdString());
  ASSERT_TRUE(foundation::Preferences(root).setAppValue("vibrate", 1, prefs::kDomain));
  EXPECT_TRUE(
      driver->until([&] { return !below("A load would change").contains("Vibrate: off → on"); }));
  ASSERT_TRUE(QFile::remove(folder.path() + kProfile20));
  EXPECT_TRUE(driver->until([&] { return driver->itemsOfType("ProfileView").empty(); }));
  EXPECT_TRUE(bridge().problems().isEmpty());
}

TEST_F(ProfileView, StaysWhereTheOneItIsComparedWithIsRemoved) {
  openWithProfiles();
  show(kProfile20);
  opened().compareWith(kProfile101);
  ASSERT_TRUE(QFile::remove(folder.path() + kProfile101));
  EXPECT_TRUE(driver->until([&] { return driver->shows("It can't be compared."); }));
  driver->waitUntilIdle();
  EXPECT_FALSE(driver->itemsOfType("ProfileView").empty());
  EXPECT_THAT(below("Values"), testing::Contains("Vibrate: on"));
}

TEST_F(ProfileView, OpensWhereTheSettingsCantBeRead) {
  openWithProfiles();
  foundation::DeviceRoot root(folder.path().toStdString());
  ASSERT_TRUE(root.writeDurably(foundation::domainPath(prefs::kDomain), {}));
  show(kProfile20);
  EXPECT_TRUE(driver->shows("It can't be compared."));
}

TEST_F(ProfileView, SaysWhatALoadWouldChangeAgainAfterItWasUndone) {
  QTemporaryDir kept;
  options.state = kept.path().toStdString();
  openWithProfiles();
  show(kProfile20);
  const QStringList before = below("A load would change");
  driver->click("Load", kButton);
  ASSERT_NE(below("A load would change"), before);
  driver->key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(driver->until([&] { return below("A load would change") == before; }));
  closeAll();
}

TEST_F(ProfileView, WhatWasDoneIsNotSaidAfterItWasUndone) {
  QTemporaryDir kept;
  options.state = kept.path().toStdString();
  openWithProfiles();
  show(kProfile20);
  driver->click("Load", kButton);
  ASSERT_TRUE(driver->shows("Loaded."));
  driver->key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(driver->until([&] { return !driver->shows("Loaded."); }));
  closeAll();
}

TEST_F(ProfileView, ADamagedProfileIsReportedAndNotShown) {
  openWithProfiles();
  QFile file(folder.path() + kProfile20);
  ASSERT_TRUE(file.open(QFile::WriteOnly));
  file.write("damaged");
  file.close();
  emit bridge().tools()->profileWanted(kProfile20);
  driver->waitUntilIdle();
  EXPECT_TRUE(driver->itemsOfType("ProfileView").empty());
  EXPECT_EQ(bridge().problems().size(), 1);
}

TEST_F(ProfileView, EachChangeIsOneStepOfTheHistory) {
  QTemporaryDir kept;
  options.state = kept.path().toStdString();
  openWithProfiles();
  show(kProfile20);
  ASSERT_TRUE(opened().load());
  ASSERT_TRUE(opened().describe("Day"));
  ASSERT_TRUE(opened().remove());
  host::Backups& backups = *device->backups();
  for (const char* what : {"delete Battery 20%", "describe Battery 20%", "load Battery 20%"}) {
    const auto last = backups.history().next(host::History::Way::Undo);
    ASSERT_TRUE(last && *last);
    EXPECT_EQ((*last)->change.what, what);
    ASSERT_TRUE(host::undo(device->environment(), backups));
  }
  EXPECT_TRUE(exists(kProfile20));
  closeAll();
}

}  // namespace
