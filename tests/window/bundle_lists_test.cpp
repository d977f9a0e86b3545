#include <QDir>
#include <QFile>

#include "tests/window/bundle_window.h"

namespace {

using plist::Array;
using plist::Dictionary;
using plist::Value;

constexpr const char* kDocuments = "/var/mobile/Documents/Quorvantis/";

// The lists that rows of the bundle lead to.
class BundleLists : public BundleWindow {};

TEST_F(BundleLists, SavedProfilesAreListed) {
  write(std::string(kDocuments) + "profile_20.qvx",
        Dictionary{{"profilepercentage", "20"}, {"profiledescription", "Night"}});
  write(std::string(kDocuments) + "profile_101.qvx", Dictionary{{"profilepercentage", "101"}});
  open();
  driver->click("Saved Profiles");
  EXPECT_TRUE(driver->shows("Battery 20% - Night"));
  EXPECT_TRUE(driver->shows("Charging started"));
}

TEST_F(BundleLists, TheBatteryLogIsListedNewestFirst) {
  write(std::string(kDocuments) + "quorvantis.log", Array{"first", "second"});
  open();
  driver->click("Battery Log");
  ASSERT_TRUE(driver->shows("first") && driver->shows("second"));
  EXPECT_LT(driver->place(driver->find("second")).top(),
            driver->place(driver->find("first")).top());
}

TEST_F(BundleLists, AnEntryOfTheLogIsPlainTextThatTheKeyboardReaches) {
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

TEST_F(BundleLists, TheSavedProfileCanBeUnset) {
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

TEST_F(BundleLists, WithoutProfilesTheSavedProfileIsNoneAndItsListSaysWhatFillsIt) {
  open("GeneralSettingsController");
  driver->click(labelOf("profile"), kButton);
  EXPECT_TRUE(driver->accessible("None", kRadioButton)->state().checked);
  EXPECT_TRUE(driver->shows("The profile manager, below Manage Profiles, saves profiles."));
}

TEST_F(BundleLists, AnEmptyLogSaysThatItHasNoEntries) {
  open();
  driver->click("Battery Log");
  EXPECT_TRUE(driver->shows("No entries"));
}

TEST_F(BundleLists, ASoundIsFoundByItsNameAndStoredAsItsUrl) {
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

TEST_F(BundleLists, AChosenContactIsTakenBackAsTheRecipient) {
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

TEST_F(BundleLists, AChosenContactIsTicked) {
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

}  // namespace
