#include <QMimeData>

#include "apps/window/tools.h"
#include "host/undo.h"
#include "prefs/core/names.h"
#include "tests/window/bundle_window.h"

namespace {

using plist::Dictionary;
using plist::Value;

constexpr const char* kProfile20 = "/var/mobile/Documents/Quorvantis/profile_20.qvx";
constexpr const char* kProfile101 = "/var/mobile/Documents/Quorvantis/profile_101.qvx";

class ProfileView : public BundleWindow {
 protected:
  void openWithProfiles(const char* pageClass = nullptr) {
    write(kProfile20,
          Dictionary{{"profilepercentage", "20"}, {"profiledescription", "Night"}, {"vibrate", 1}});
    write(kProfile101, Dictionary{{"profilepercentage", "101"}, {"flashled", 1}});
    open(pageClass);
  }
  void show(const char* path) {
    emit bridge().tools()->profileWanted(path);
    driver->waitUntilIdle();
    ASSERT_FALSE(driver->itemsOfType("ProfileView").empty());
  }
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
  ::window::ProfileTool& opened() { return *bridge().tools()->profiles()->opened(); }
  QString exported(const char* name) { return folder.filePath(name); }
  void drop(const QString& file) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(file)});
    const QPoint at(100, 300);
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(window, &enter);
    QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(window, &drop);
    driver->waitUntilIdle();
  }
  int questions() const {
    int count = 0;
    for (const QObject* each : window->findChildren<QObject*>())
      count += QByteArray(each->metaObject()->className()).startsWith("AskPopup_QML");
    return count;
  }
};

TEST_F(ProfileView, TheMenuListsTheSavedProfilesAndTheStripFillsTheirTriggers) {
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

TEST_F(ProfileView, WithoutProfilesTheListSaysWhatWouldFillIt) {
  open();
  emit bridge().tools()->profilesWanted();
  driver->waitUntilIdle();
  EXPECT_TRUE(driver->shows("No saved profiles"));
}

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

TEST_F(ProfileView, WhatIsExportedIsImportedAgain) {
  openWithProfiles();
  show(kProfile20);
  ASSERT_TRUE(opened().exportTo(exported("p.plist"), false));
  ASSERT_TRUE(opened().remove());
  ASSERT_FALSE(exists(kProfile20));
  bridge().tools()->profiles()->importFile(exported("p.plist"), false);
  EXPECT_TRUE(exists(kProfile20));
}

TEST_F(ProfileView, AnExportAsksBeforeItReplacesAFile) {
  openWithProfiles();
  show(kProfile20);
  QFile file(exported("p.plist"));
  ASSERT_TRUE(file.open(QFile::WriteOnly));
  file.write("mine");
  file.close();
  const auto content = [&] {
    return file.open(QFile::ReadOnly) ? QFile::decodeName(file.readAll()) : QString();
  };
  EXPECT_FALSE(opened().exportTo(exported("p.plist"), false));
  driver->waitUntilIdle();
  ASSERT_TRUE(driver->shows("Replace This File?") && driver->shows(exported("p.plist")));
  EXPECT_EQ(driver->focused(), "Cancel");
  EXPECT_EQ(content(), "mine");
  file.close();
  driver->click("Replace", kButton);
  EXPECT_TRUE(content().startsWith("<?xml"));
  EXPECT_TRUE(driver->shows("Exported to " + exported("p.plist")));
  EXPECT_TRUE(bridge().problems().isEmpty());
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

TEST_F(ProfileView, KeysLeadThroughALongMenuOfProfiles) {
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

TEST_F(ProfileView, OfSeveralDroppedFilesTheFirstIsImportedAndThatIsSaid) {
  openWithProfiles();
  show(kProfile101);
  ASSERT_TRUE(opened().exportTo(exported("one.plist"), false));
  ASSERT_TRUE(opened().remove());
  driver->waitUntilIdle();
  bridge().tools()->profiles()->importUrls(
      {QUrl::fromLocalFile(exported("one.plist")), QUrl::fromLocalFile(exported("other.plist"))});
  EXPECT_TRUE(exists(kProfile101));
  EXPECT_EQ(bridge().problems(), QStringList{"One file is imported at a time: one.plist."});
}

TEST_F(ProfileView, TheTicksOfAListStandBelowOneAnother) {
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

TEST_F(ProfileView, ADroppedFileIsImportedAndAsksBeforeItReplacesOne) {
  openWithProfiles();
  show(kProfile20);
  ASSERT_TRUE(opened().exportTo(exported("p.plist"), false));
  ASSERT_TRUE(opened().describe("Other"));
  driver->key(Qt::Key_Escape);

  drop(exported("p.plist"));
  ASSERT_TRUE(driver->shows("Replace Battery 20%?"));
  EXPECT_EQ(driver->focused(), "Cancel");
  driver->click("Replace", kButton);
  driver->waitUntilIdle();
  EXPECT_FALSE(driver->itemsOfType("ProfileView").empty());
  EXPECT_EQ(opened().description(), "Night");
  EXPECT_TRUE(bridge().problems().isEmpty()) << "the question said it";
}

TEST_F(ProfileView, AFileThatIsDroppedOnAQuestionAsksNoOther) {
  openWithProfiles();
  show(kProfile20);
  ASSERT_TRUE(opened().exportTo(exported("p.plist"), false));
  drop(exported("p.plist"));
  ASSERT_EQ(questions(), 1);
  drop(exported("p.plist"));
  EXPECT_EQ(questions(), 1);
}

TEST_F(ProfileView, AFileThatIsNoProfileIsReported) {
  openWithProfiles();
  QFile file(exported("x.plist"));
  ASSERT_TRUE(file.open(QFile::WriteOnly));
  file.write("no property list");
  file.close();
  bridge().tools()->profiles()->importFile(exported("x.plist"), false);
  EXPECT_EQ(bridge().problems().size(), 1);
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

TEST_F(ProfileView, AProfileOfTheFirstPagesListOpens) {
  openWithProfiles();
  driver->click("Saved Profiles", kButton);
  driver->click("Battery 20% - Night", kButton);
  EXPECT_EQ(opened().title(), "Battery 20%");
  EXPECT_FALSE(driver->itemsOfType("ProfileView").empty());
}

TEST_F(ProfileView, AnEntryOfTheFirstPagesListLeadsOnAndIsNoChoice) {
  openWithProfiles();
  driver->click("Saved Profiles", kButton);
  EXPECT_FALSE(driver->find("Battery 20% - Night", kRadioButton));
  EXPECT_FALSE(driver->find("Details of Charging started", kButton));
  driver->key(Qt::Key_End);
  EXPECT_EQ(driver->focused(), "Charging started");
  driver->key(Qt::Key_Return);
  EXPECT_EQ(opened().title(), "Charging started");
}

TEST_F(ProfileView, AListThatStoresKeepsItsMeaningAndHasAButtonForTheDetails) {
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
