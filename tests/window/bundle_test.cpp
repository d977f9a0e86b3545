#include <QDir>
#include <QFile>
#include <QGuiApplication>

#include "tests/window/bundle_window.h"

namespace {

using plist::Array;
using plist::Dictionary;
using plist::Value;

constexpr const char* kDocuments = "/var/mobile/Documents/Quorvantis/";

TEST_F(BundleWindow, TheFirstPageHasTheRowsOfItsList) {
  open();
  const host::PageView shown = page();
  ASSERT_FALSE(shown.rows.empty());
  for (const host::RowView& row : shown.rows)
    EXPECT_TRUE(row.label.empty() || driver->shows(QString::fromStdString(row.label)));
  EXPECT_TRUE(driver->shows(title()));
}

TEST_F(BundleWindow, EveryPageOfTheBundleIsShownWithoutError) {
  std::size_t shown = 0;
  for (const auto& known : prefs::bundle().pages) {
    if (known.list.empty()) continue;
    open();
    ASSERT_TRUE(application->perform(host::Launch{std::string(known.name)}));
    driver->waitUntilIdle();
    EXPECT_EQ(bridge().shown()->error().toStdString(), "") << known.name;
    EXPECT_GT(bridge().shown()->rows()->rowCount(), 0) << known.name;
    closeAll();
    ++shown;
  }
  EXPECT_EQ(shown, 9u);
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

TEST_F(BundleWindow, AnEntryOfTheLogIsPlainTextThatTheKeyboardReaches) {
  write(std::string(kDocuments) + "quorvantis.log", Array{"first", "second"});
  open();
  driver->click("Battery Log");
  for (const char* entry : {"first", "second"}) {
    ASSERT_TRUE(driver->find(entry)) << entry;
    const QAccessibleInterface* said = driver->accessible(entry);
    EXPECT_EQ(said->role(), QAccessible::StaticText);
    EXPECT_FALSE(said->state().checkable);
  }
  driver->click("first");
  EXPECT_EQ(page().chosen, -1);
  for (const char* entry : {"second", "first"}) {
    driver->key(Qt::Key_Down);
    EXPECT_EQ(driver->focused(), entry);
    EXPECT_EQ(driver->rings(), 1);
  }
}

TEST_F(BundleWindow, TheSavedProfileCanBeUnset) {
  const std::string path = std::string(kDocuments) + "profile_20.qvx";
  write(path, Dictionary{{"profilepercentage", "20"}, {"profiledescription", "Night"}});
  open("GeneralSettingsController");
  driver->click(labelOf("profile"), kButton);
  const auto ticked = [this](const char* choice) {
    return driver->accessible(choice, kRadioButton)->state().checked;
  };
  EXPECT_LT(driver->place(driver->find("None")).top(),
            driver->place(driver->find("Battery 20% - Night")).top());
  EXPECT_TRUE(ticked("None"));
  driver->click("Battery 20% - Night", kRadioButton);
  EXPECT_EQ(stored("profile"), Value(path));
  EXPECT_FALSE(ticked("None"));
  driver->click("None", kRadioButton);
  EXPECT_EQ(stored("profile"), Value(""));
  EXPECT_TRUE(ticked("None"));
  EXPECT_FALSE(ticked("Battery 20% - Night"));
  driver->key(Qt::Key_Escape);
  EXPECT_EQ(driver->accessible(labelOf("profile"), kButton)->text(QAccessible::Description),
            "None");
}

TEST_F(BundleWindow, WithoutProfilesTheSavedProfileIsNoneAndItsListSaysWhatFillsIt) {
  open("GeneralSettingsController");
  driver->click(labelOf("profile"), kButton);
  EXPECT_TRUE(driver->accessible("None", kRadioButton)->state().checked);
  EXPECT_TRUE(driver->shows("The profile manager, below Manage Profiles, saves profiles."));
}

TEST_F(BundleWindow, AnEmptyLogSaysThatItHasNoEntries) {
  open();
  driver->click("Battery Log");
  EXPECT_TRUE(driver->shows("No entries"));
}

TEST_F(BundleWindow, AWriteThatFailsIsReportedOnScreen) {
  open();
  driver->click("General");
  // The folder of the store can't be made where a file stands.
  QFile file(folder.filePath("var"));
  ASSERT_TRUE(file.open(QFile::WriteOnly));
  driver->click("Enabled");
  EXPECT_FALSE(driver->itemsOfType("MessageBar").empty());
}

TEST_F(BundleWindow, AWriteThatFailsIsMadeUpForAndItsBannerGoesOnceTheFaultHasGone) {
  open();
  driver->click("General");
  QFile file(folder.filePath("var"));
  ASSERT_TRUE(file.open(QFile::WriteOnly));
  const plist::Value before = stored("enabled");
  driver->click("Enabled");
  ASSERT_FALSE(bridge().problems().isEmpty());
  const plist::Value shown = stored("enabled");
  EXPECT_FALSE(shown == before);
  ASSERT_TRUE(file.remove());
  EXPECT_TRUE(driver->until([&] { return bridge().problems().isEmpty(); }));
  foundation::DeviceRoot root(folder.path().toStdString());
  EXPECT_EQ(foundation::Preferences(root).copyAppValue("enabled", "com.zorvek.quorvantis"), shown);
}

// What a screen reader says of the rows that are dimmed.
QStringList reasons(const Driver& driver) {
  QStringList found;
  for (QQuickItem* item : driver.items())
    if (QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(item))
      for (const QString& part : accessible->text(QAccessible::Description).split(", "))
        if (part.startsWith("dimmed") && !found.contains(part)) found << part;
  return found;
}

TEST_F(BundleWindow, ADimmedRowSaysWhichSwitchToTurnOn) {
  open("UserNotificationListController");
  const QString reason = QString("dimmed: switch on %1 first").arg(labelOf("vibrate"));
  EXPECT_TRUE(driver->until([&] { return reasons(*driver).contains(reason); }));
  set("vibrate", true);
  EXPECT_TRUE(driver->until([&] { return !reasons(*driver).contains(reason); }));
}

TEST_F(BundleWindow, ARowThatLagsBehindItsSwitchSaysHowItBecomesUsable) {
  open("UserNotificationListController");
  const auto dimmed = [this] { return !row("flashledduration").usable; };
  ASSERT_TRUE(driver->until(dimmed));
  set("flashled", true);
  const QString lagging = "dimmed until you come back to this page";
  EXPECT_TRUE(driver->until([&] { return reasons(*driver).contains(lagging); }));
  EXPECT_TRUE(application->perform(host::Activate{}));
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
  driver->clickItem(driver->itemsOfType("InputField").front());
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
  const auto dimmed = [this] { return !row("vibrateduration").usable; };
  ASSERT_TRUE(driver->until(dimmed));
  set("vibrate", true);
  emit qApp->applicationStateChanged(Qt::ApplicationInactive);
  EXPECT_TRUE(dimmed());
  emit qApp->applicationStateChanged(Qt::ApplicationActive);
  EXPECT_FALSE(dimmed());
}

class LargeFont : public BundleWindow {
 protected:
  LargeFont() {
    QFont large = before_;
    large.setPointSize(16);
    QGuiApplication::setFont(large);
  }
  ~LargeFont() override { QGuiApplication::setFont(before_); }

 private:
  QFont before_ = QGuiApplication::font();
};

TEST_F(LargeFont, RowsThatMustBeDimmedAreInALowWindow) {
  open(nullptr, 390, 600);
  driver->scrollTo(420);
  driver->click("Notifications", kButton);
  ASSERT_EQ(page().pageClass, "UserNotificationListController");
  QTest::qWait(300);  // the page applies its rules 0.1 s after it appears
  for (const char* id : {"adressbook", "msgrecipient", "msgtext"})
    EXPECT_FALSE(row(id).usable) << id;
  driver->scrollTo(300);
  for (const char* id : {"adressbook", "msgrecipient", "msgtext"})
    EXPECT_TRUE(driver->accessible(labelOf(id))->state().disabled) << id;
}

TEST_F(BundleWindow, ADimmedTextSaysWhichSwitchToTurnOn) {
  open("UserNotificationListController");
  const QString reason = QString("dimmed: switch on %1 first").arg(labelOf("sendmessage"));
  for (const char* id : {"msgrecipient", "msgtext"})
    EXPECT_TRUE(driver->until([&] {
      QAccessibleInterface* accessible = driver->accessible(labelOf(id), QAccessible::EditableText);
      return accessible && accessible->text(QAccessible::Description) == reason;
    })) << id;
}

TEST_F(BundleWindow, ADimmedTextIsReadAndNotEdited) {
  open("UserNotificationListController");
  ASSERT_TRUE(driver->until([this] { return !row("msgtext").usable; }));
  driver->waitUntilIdle();
  QAccessibleInterface* field = driver->accessible(labelOf("msgtext"), kText);
  ASSERT_TRUE(field && field->textInterface());
  EXPECT_EQ(field->textInterface()->text(0, field->textInterface()->characterCount()),
            "Current battery level on device %DNAME%: %BAT%");
  EXPECT_FALSE(field->state().editable);
}

TEST_F(BundleWindow, ADimmedRowSaysWhichSwitchToTurnOff) {
  open("LowPowerListController");
  set("lowpowermodeenabled", true);
  const QString reason = QString("dimmed: switch off %1 first").arg(labelOf("lowpowermodeenabled"));
  EXPECT_TRUE(driver->until([&] { return reasons(*driver).contains(reason); }));
}

TEST_F(BundleWindow, TheReasonShowsWhereThePointerRests) {
  open("UserNotificationListController");
  const auto dimmed = [this] { return !row("vibrateduration").usable; };
  ASSERT_TRUE(driver->until(dimmed));
  driver->waitUntilIdle();
  for (QQuickItem* item : driver->itemsOfType("SliderRow")) {
    QTest::mouseMove(window, driver->place(item).center().toPoint());
    break;
  }
  const QString reason = QString("dimmed: switch on %1 first").arg(labelOf("vibrate"));
  EXPECT_TRUE(driver->until([&] { return driver->shows(reason); }));
}

TEST_F(BundleWindow, TheReasonGoesWithThePointer) {
  open("UserNotificationListController");
  ASSERT_TRUE(driver->until([this] { return !row("vibrateduration").usable; }));
  driver->waitUntilIdle();
  const QString reason = QString("dimmed: switch on %1 first").arg(labelOf("vibrate"));
  const QPoint slider = driver->place(driver->itemsOfType("SliderRow").front()).center().toPoint();
  // A pointer that another window has left there would not move.
  QTest::mouseMove(window, QPoint(10, 10));
  QTest::mouseMove(window, slider);
  driver->waitUntilIdle();
  QTest::mouseClick(window, Qt::LeftButton, {}, slider);
  ASSERT_TRUE(driver->until([&] { return driver->shows(reason); }));
  QTest::mouseMove(window, QPoint(10, 10));
  EXPECT_TRUE(driver->until([&] { return !driver->shows(reason); }));
  QTest::mouseMove(window, slider);
  ASSERT_TRUE(driver->until([&] { return driver->shows(reason); }));
  QEvent leave(QEvent::Leave);
  QCoreApplication::sendEvent(window, &leave);
  EXPECT_TRUE(driver->until([&] { return !driver->shows(reason); }));
}

TEST_F(BundleWindow, AChosenContactIsTakenBackAsTheRecipient) {
  QTemporaryDir state;
  options.state = state.path().toStdString();
  const std::string card =
      "BEGIN:VCARD\r\nVERSION:3.0\r\nN:;Ann;;;\r\nFN:Ann\r\nTEL:12345\r\nEND:VCARD\r\n";
  foundation::DeviceRoot root(folder.path().toStdString());
  ASSERT_TRUE(root.writeDurably("/var/mobile/Library/AddressBook/ann.vcf",
                                {reinterpret_cast<const std::uint8_t*>(card.data()), card.size()}));
  open("UserNotificationListController");
  set("sendmessage", true);
  driver->until([this] { return row("adressbook").usable; });
  const QString recipient = labelOf("msgrecipient");
  driver->click(labelOf("adressbook"), kButton);
  driver->click(QString::fromStdString(page().choices->titles.front()), kRadioButton);
  EXPECT_EQ(stored("msgrecipient"), plist::Value("12345"));
  EXPECT_EQ(bridge().undo()->nextUndo(), "set " + recipient);
  closeAll();
}

TEST_F(BundleWindow, TabIntoATextPutsTheCursorAtItsEnd) {
  open("UserNotificationListController");
  set("alertmsg", "Come home");
  driver->waitUntilIdle();
  for (int i = 0; i < 40 && driver->focused() != labelOf("alertmsg"); ++i) driver->key(Qt::Key_Tab);
  ASSERT_EQ(driver->focused(), labelOf("alertmsg"));
  driver->type("!");
  driver->key(Qt::Key_Tab);
  EXPECT_EQ(stored("alertmsg"), plist::Value("Come home!"));
}

TEST_F(BundleWindow, AChosenContactIsTicked) {
  const QString book = folder.path() + "/var/mobile/Library/AddressBook";
  QDir().mkpath(book);
  QFile card(book + "/ann.vcf");
  ASSERT_TRUE(card.open(QFile::WriteOnly));
  card.write("BEGIN:VCARD\r\nVERSION:3.0\r\nN:;Ann;;;\r\nFN:Ann\r\nTEL:12345\r\nEND:VCARD\r\n");
  card.close();
  open("UserNotificationListController");
  set("sendmessage", true);
  driver->until([this] { return row("adressbook").usable; });
  driver->click(labelOf("adressbook"), kButton);
  ASSERT_FALSE(page().choices->titles.empty());
  const QString contact = QString::fromStdString(page().choices->titles.front());
  ASSERT_TRUE(driver->find(contact, kRadioButton)) << title().toStdString();
  EXPECT_FALSE(driver->accessible(contact, kRadioButton)->state().checked);
  driver->click(contact, kRadioButton);
  EXPECT_EQ(stored("msgrecipient"), plist::Value("12345"));
  EXPECT_TRUE(driver->accessible(contact, kRadioButton)->state().checked);
  EXPECT_TRUE(stored("adressbook").isNothing());
}

TEST_F(BundleWindow, TheReasonOffersTheWayOut) {
  open("PowerSavingListController");
  ASSERT_TRUE(driver->until([this] { return !row("custbright").usable; }));
  driver->waitUntilIdle();
  const QString offer = "Switch on " + labelOf("custbrightenabled");
  EXPECT_FALSE(driver->find(offer, kButton));
  driver->click(labelOf("custbright"));
  ASSERT_TRUE(driver->until([&] { return driver->find(offer, kButton) != nullptr; }));
  driver->waitUntilIdle();
  driver->click(offer, kButton);
  EXPECT_EQ(stored("custbrightenabled"), Value(true));
  EXPECT_TRUE(row("custbright").usable);
  EXPECT_TRUE(driver->until([&] { return !driver->find(offer, kButton); }));
}

TEST_F(BundleWindow, ReturnAndKeypadEnterTakeTheWayOut) {
  open("PowerSavingListController");
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
    set("custbrightenabled", false);
    driver->waitUntilIdle();
    ASSERT_FALSE(row("custbright").usable);
    driver->find(labelOf("custbright"), kSlider)->forceActiveFocus();
    driver->key(key);
    EXPECT_TRUE(row("custbright").usable) << key;
  }
}

TEST_F(BundleWindow, TheSwitchOfTheWayOutMayBeOffScreen) {
  open("LowPowerListController", 390, 600);
  set("lowpowermodeenabled", true);
  driver->scrollTo(100000);
  const auto rows = page().rows;
  const auto last = std::ranges::find_if(rows.rbegin(), rows.rend(), [](const auto& each) {
    return each.whyNot && !each.whyNot->wayOut().empty();
  });
  ASSERT_NE(last, rows.rend());
  bridge().shown()->takeWayOut(static_cast<int>(rows.rend() - last) - 1);
  EXPECT_EQ(stored("lowpowermodeenabled"), Value(false));
}

}  // namespace
