#include <QFile>
#include <QGuiApplication>

#include "tests/window/bundle_window.h"

namespace {

using plist::Array;
using plist::Dictionary;
using plist::Value;

constexpr const char* kDocuments = "/var/mobile/Documents/Quorvantis/";
constexpr const char* kStore = "/var/mobile/Library/Preferences/com.zorvek.quorvantis.plist";

TEST_F(BundleWindow, TheFirstPageHasTheRowsOfItsList) {
  open();
  auto& rows = host->shownList()->specifiers();
  ASSERT_FALSE(rows.empty());
  for (const auto& row : rows)
    EXPECT_TRUE(row->name().empty() || driver->shows(QString::fromStdString(row->name())));
  EXPECT_TRUE(driver->shows(QString::fromStdString(host->shownPage()->title)));
}

TEST_F(BundleWindow, EveryPageOfTheBundleIsShownWithoutError) {
  for (const auto& page : prefs::bundle().pages) {
    if (page.list.empty()) continue;
    open();
    ASSERT_TRUE(host->launch(page.name));
    driver->buildVisibleRows();
    EXPECT_EQ(settings->bridge().shown()->error().toStdString(), "") << page.name;
    EXPECT_GT(settings->bridge().shown()->rows()->rowCount(), 0) << page.name;
    settings.reset();
    host.reset();
    device->setProblemHandler({});
    device.reset();
  }
}

TEST_F(BundleWindow, SavedProfilesAreListed) {
  write(std::string(kDocuments) + "profile_20.qvx",
        Dictionary{{"profilepercentage", "20"}, {"profiledescription", "Night"}});
  write(std::string(kDocuments) + "profile_101.qvx", Dictionary{{"profilepercentage", "101"}});
  open();
  driver->click("Saved Profiles");
  EXPECT_TRUE(driver->shows("Battery 20% - Night"));
  EXPECT_TRUE(driver->shows("Charging started"));
}

TEST_F(BundleWindow, TheBatteryLogIsListedNewestFirst) {
  write(std::string(kDocuments) + "quorvantis.log", Array{"first", "second"});
  open();
  driver->click("Battery Log");
  ASSERT_TRUE(driver->shows("first") && driver->shows("second"));
  EXPECT_LT(driver->place(driver->find("second")).top(),
            driver->place(driver->find("first")).top());
}

TEST_F(BundleWindow, AnEmptyLogIsACalmSentence) {
  open();
  driver->click("Battery Log");
  EXPECT_TRUE(driver->shows("No entries"));
}

TEST_F(BundleWindow, AStoreThatCantBeReadIsToldOnScreen) {
  foundation::DeviceRoot root(folder.path().toStdString());
  std::string rubbish = "no property list";
  ASSERT_TRUE(root.writeDurably(
      kStore, plist::Bytes(reinterpret_cast<const std::uint8_t*>(rubbish.data()), rubbish.size())));
  open();
  driver->click("General");
  driver->click("Enabled");
  ASSERT_FALSE(driver->itemsOfType("Banner").empty());
  EXPECT_TRUE(settings->bridge().problems().first().contains("com.zorvek.quorvantis.plist"));
}

TEST_F(BundleWindow, AWriteThatFailsIsToldOnScreen) {
  open();
  driver->click("General");
  // The folder of the store can't be made where a file stands.
  QFile file(folder.filePath("var"));
  ASSERT_TRUE(file.open(QFile::WriteOnly));
  driver->click("Enabled");
  EXPECT_FALSE(driver->itemsOfType("Banner").empty());
}

// What rows say of themselves to a screen reader while a rule dims them.
QStringList reasons(const Driver& driver) {
  QStringList told;
  for (QQuickItem* item : driver.items())
    if (QAccessibleInterface* face = QAccessible::queryAccessibleInterface(item))
      for (const QString& part : face->text(QAccessible::Description).split(", "))
        if (part.startsWith("dimmed") && !told.contains(part)) told << part;
  return told;
}

TEST_F(BundleWindow, ADimmedRowSaysWhichSwitchToTurnOn) {
  open("UserNotificationListController");
  const auto name = [this](const char* id) {
    return QString::fromStdString((*host->row(std::string(id)))->name());
  };
  const QString reason = QString("dimmed: switch on %1 first").arg(name("vibrate"));
  EXPECT_TRUE(driver->until([&] { return reasons(*driver).contains(reason); }));
  ASSERT_TRUE(host->set(std::string("vibrate"), true));
  EXPECT_TRUE(driver->until([&] { return !reasons(*driver).contains(reason); }));
}

TEST_F(BundleWindow, ARowThatLagsBehindItsSwitchSaysHowItIsGot) {
  open("UserNotificationListController");
  const auto dimmed = [this] {
    return !host::isUsable(**host->row(std::string("flashledduration")));
  };
  ASSERT_TRUE(driver->until(dimmed));
  ASSERT_TRUE(host->set(std::string("flashled"), true));
  const QString lagging = "dimmed until you come back to this page";
  EXPECT_TRUE(driver->until([&] { return reasons(*driver).contains(lagging); }));
  host->activate();
  EXPECT_TRUE(driver->until([&] { return !reasons(*driver).contains(lagging); }));
}

TEST_F(BundleWindow, ASoundIsFoundByItsNameAndStoredAsItsUrl) {
  const std::string sounds = "/System/Library/Audio/UISounds/";
  foundation::DeviceRoot root(folder.path().toStdString());
  const std::uint8_t byte = 'x';
  for (int i = 0; i < 30; ++i)
    ASSERT_TRUE(root.writeDurably(sounds + "a b " + std::to_string(i) + ".caf", {&byte, 1}));
  ASSERT_TRUE(root.writeDurably(sounds + "gru\u00DF.caf", {&byte, 1}));
  ASSERT_TRUE(root.writeDurably(sounds + "tu\u0308r.caf", {&byte, 1}));
  open("UserNotificationListController");
  driver->click("Sound", QAccessible::Button);
  driver->clickItem(driver->itemsOfType("FilterField").front());
  for (const char16_t* typed : {u"A B 17", u"a%20b%2017", u"RU\u00DF", u"T\u00DCR"}) {
    driver->type(QString::fromUtf16(typed));
    ASSERT_EQ(driver->itemsOfType("ChoiceRow").size(), 1u)
        << QString::fromUtf16(typed).toStdString();
    driver->key(Qt::Key_Escape);
  }
  driver->type("b 17");
  driver->click("a%20b%2017.caf", QAccessible::RadioButton);
  EXPECT_EQ(stored("playsound"), Value("file://" + sounds + "a%20b%2017.caf"));
}

TEST_F(BundleWindow, RulesAreEvaluatedWhenTheApplicationBecomesActive) {
  open("UserNotificationListController");
  const auto dimmed = [this] {
    return !host::isUsable(**host->row(std::string("vibrateduration")));
  };
  ASSERT_TRUE(driver->until(dimmed));
  ASSERT_TRUE(host->set(std::string("vibrate"), true));
  emit qApp->applicationStateChanged(Qt::ApplicationInactive);
  EXPECT_TRUE(dimmed());
  emit qApp->applicationStateChanged(Qt::ApplicationActive);
  EXPECT_FALSE(dimmed());
}

TEST_F(BundleWindow, ADimmedTextSaysWhichSwitchToTurnOn) {
  open("UserNotificationListController");
  const auto named = [this](const char* id) {
    return QString::fromStdString((*host->row(std::string(id)))->name());
  };
  const QString reason = QString("dimmed: switch on %1 first").arg(named("sendmessage"));
  for (const char* id : {"msgrecipient", "msgtext"})
    EXPECT_TRUE(driver->until([&] {
      QAccessibleInterface* face = driver->accessible(named(id), QAccessible::EditableText);
      return face && face->text(QAccessible::Description) == reason;
    })) << id;
}

TEST_F(BundleWindow, ADimmedRowSaysWhichSwitchToTurnOff) {
  open("LowPowerListController");
  ASSERT_TRUE(host->set(std::string("lowpowermodeenabled"), true));
  const std::string name = (*host->row(std::string("lowpowermodeenabled")))->name();
  const QString reason = QString("dimmed: switch off %1 first").arg(QString::fromStdString(name));
  EXPECT_TRUE(driver->until([&] { return reasons(*driver).contains(reason); }));
}

TEST_F(BundleWindow, TheReasonShowsWhereThePointerRests) {
  open("UserNotificationListController");
  const auto dimmed = [this] {
    return !host::isUsable(**host->row(std::string("vibrateduration")));
  };
  ASSERT_TRUE(driver->until(dimmed));
  driver->buildVisibleRows();
  for (QQuickItem* item : driver->itemsOfType("SliderRow")) {
    QTest::mouseMove(window, driver->place(item).center().toPoint());
    break;
  }
  const std::string name = (*host->row(std::string("vibrate")))->name();
  const QString reason = QString("dimmed: switch on %1 first").arg(QString::fromStdString(name));
  EXPECT_TRUE(driver->until([&] { return driver->shows(reason); }));
}

}  // namespace
