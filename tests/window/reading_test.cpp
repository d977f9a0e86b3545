#include <QElapsedTimer>
#include <algorithm>

#include "apps/window/tools.h"
#include "prefs/core/names.h"
#include "tests/services/bus_daemon.h"
#include "tests/window/bundle_window.h"

namespace {

constexpr char kCard[] =
    "BEGIN:VCARD\r\nVERSION:3.0\r\nN:Lovelace;Ada;;;\r\nTEL:+44 1\r\nEND:VCARD\r\n";
constexpr char kContact[] = "Ada Lovelace (+44 1)";

// A contact in the folder, and a desktop whose address book answers when the test wants.
class Reading : public BundleWindow {
 protected:
  Reading() {
    patience = host::ListReader::kPatience;
    setenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + (bus_.path / "bus").string()).c_str(), 1);
    std::filesystem::create_directories(bus_.path / "sources");
    foundation::DeviceRoot root(folder.path().toStdString());
    const std::string text = kCard;
    EXPECT_TRUE(
        root.writeDurably("/var/mobile/Library/AddressBook/ada.vcf",
                          {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}));
    daemon_.emplace(bus_);
    const auto program =
        std::filesystem::read_symlink("/proc/self/exe").parent_path() / "data_server";
    server_.emplace(std::vector<std::string>{program, (bus_.path / "sources").string()});
    EXPECT_EQ(server_->line(), "ready");
  }
  ~Reading() override {
    server_->proceed();
    closeAll();
    unsetenv("DBUS_SESSION_BUS_ADDRESS");
  }

  void openNotifications() {
    open("UserNotificationListController");
    set("sendmessage", true);
    driver->waitUntilIdle();
  }
  QString contacts() { return labelOf("adressbook"); }
  // What must not stop the window.
  template <class Act>
  qint64 millisecondsFor(const Act& act) {
    QElapsedTimer timer;
    timer.start();
    act();
    return timer.elapsed();
  }

  TemporaryFolder bus_;
  std::optional<BusDaemon> daemon_;
  std::optional<Child> server_;
};

TEST_F(Reading, AListThatIsThereInTimeIsShownAtOnce) {
  openNotifications();
  driver->click(contacts());
  EXPECT_TRUE(driver->shows(kContact));
  EXPECT_TRUE(driver->itemsOfType("BusyWheel").empty());
}

TEST_F(Reading, AListThatTakesLongSaysSoAndComesInWhenItIsRead) {
  openNotifications();
  server_->stop();
  EXPECT_LT(millisecondsFor([&] { driver->click(contacts()); }), 2000);
  EXPECT_TRUE(driver->shows("Reading contacts…"));
  EXPECT_EQ(driver->itemsOfType("BusyWheel").size(), 1u);
  EXPECT_FALSE(driver->shows("No entries"));
  server_->proceed();
  EXPECT_TRUE(driver->until([&] { return driver->shows(kContact); }));
  EXPECT_FALSE(driver->shows("Reading contacts…"));
  driver->click(kContact, kRadioButton);
  EXPECT_EQ(stored("msgrecipient"), plist::Value("+44 1"));
}

TEST_F(Reading, AListThatTakesLongBeginsAtItsTickedEntryWithTheKeyboard) {
  foundation::DeviceRoot root(folder.path().toStdString());
  for (int i = 10; i < 70; ++i) {
    const std::string number = std::to_string(i);
    const std::string text = "BEGIN:VCARD\r\nVERSION:3.0\r\nN:Family" + number +
                             ";Ann;;;\r\nTEL:" + number + "\r\nEND:VCARD\r\n";
    ASSERT_TRUE(
        root.writeDurably("/var/mobile/Library/AddressBook/" + number + ".vcf",
                          {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}));
  }
  ASSERT_TRUE(foundation::Preferences(root).setAppValue("msgrecipient", "40", prefs::kDomain));
  openNotifications();
  server_->stop();
  driver->find(contacts(), kButton)->forceActiveFocus();
  driver->key(Qt::Key_Return);
  ASSERT_TRUE(driver->shows("Reading contacts…"));
  server_->proceed();
  ASSERT_TRUE(driver->until([&] { return !driver->shows("Reading contacts…"); }));
  driver->waitUntilIdle();
  EXPECT_EQ(driver->focused(), "Ann Family40 (40)");
  const double middle = driver->place(window->activeFocusItem()).center().y();
  EXPECT_NEAR(middle, window->height() / 2, 100);
}

TEST_F(Reading, EscapeLeavesAListThatTakesLongAtOnce) {
  openNotifications();
  server_->stop();
  driver->click(contacts());
  ASSERT_TRUE(driver->shows("Reading contacts…"));
  EXPECT_LT(millisecondsFor([&] { driver->key(Qt::Key_Escape); }), 1500);
  EXPECT_EQ(page().pageClass, "UserNotificationListController");
  // What comes later is for nobody; the next opening has a list of its own.
  server_->proceed();
  EXPECT_TRUE(driver->until([&] {
    return !lists->isReading("UserNotificationListController", **application->row("adressbook"));
  }));
  driver->click(contacts());
  EXPECT_TRUE(driver->until([&] { return driver->shows(kContact); }));
}

TEST_F(Reading, AnAddressBookThatStaysSilentIsReportedOnItsPage) {
  openNotifications();
  EXPECT_TRUE(bridge().problems().isEmpty());
  server_->stop();
  driver->click(contacts());
  EXPECT_TRUE(driver->until([&] { return driver->shows(kContact); }));
  EXPECT_TRUE(driver->shows("The desktop's address book doesn't answer"));
  driver->key(Qt::Key_Escape);
  EXPECT_FALSE(driver->shows("The desktop's address book doesn't answer"));
  EXPECT_TRUE(bridge().problems().isEmpty());
}

class Notices : public BundleWindow {
 protected:
  void writeText(const std::string& path, const std::string& text) {
    foundation::DeviceRoot root(folder.path().toStdString());
    ASSERT_TRUE(
        root.writeDurably(path, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}));
  }
  bool says(const QString& words) {
    for (QQuickItem* item : driver->itemsOfType("QQuickText"))
      if (item->property("text").toString().contains(words)) return true;
    return false;
  }
};

TEST_F(Notices, ADamagedLogIsSaidWhereItIsListed) {
  writeText("/var/mobile/Documents/Quorvantis/quorvantis.log", "no log");
  open();
  EXPECT_TRUE(driver->shows("Can't be read"));
  EXPECT_FALSE(says("The battery log can't be read"));
  driver->click(labelOf("batterylog"));
  EXPECT_TRUE(driver->shows("The battery log can't be read: " + folder.path() +
                            "/var/mobile/Documents/Quorvantis/quorvantis.log"));
  EXPECT_FALSE(driver->shows("No entries"));
  EXPECT_TRUE(bridge().problems().isEmpty());
}

TEST_F(Notices, DamagedProfilesAreSaidWhereTheyAreListed) {
  for (const char* number : {"10", "20", "30", "40"})
    writeText(std::string("/var/mobile/Documents/Quorvantis/profile_") + number + ".qvx", "no");
  write("/var/mobile/Documents/Quorvantis/profile_50.qvx",
        plist::Dictionary{{"profile", "50"}, {"enabled", true}});
  open();
  EXPECT_FALSE(says("No profile can be read"));
  driver->click(labelOf("savedprofiles"));
  EXPECT_TRUE(says(
      "No profile can be read from profile_10.qvx, profile_20.qvx, profile_30.qvx and 1 more in " +
      folder.path()));
  EXPECT_EQ(driver->itemsOfType("ProfileRow").size(), 1u);
  driver->key(Qt::Key_Escape);
  EXPECT_FALSE(says("No profile can be read"));
  EXPECT_TRUE(bridge().problems().isEmpty());
}

// One sentence for all of them, until they are gone.
TEST_F(Notices, DamagedProfilesAreOneProblemOfASearchUntilTheyAreGone) {
  for (int number = 10; number <= 20; ++number)
    writeText("/var/mobile/Documents/Quorvantis/profile_" + std::to_string(number) + ".qvx", "no");
  open();
  driver->key(Qt::Key_F, Qt::ControlModifier);
  driver->type("vib");
  ASSERT_EQ(bridge().problems().size(), 1);
  EXPECT_TRUE(bridge().problems()[0].startsWith(
      "No profile can be read from profile_10.qvx, profile_11.qvx, profile_12.qvx and 8 more.\n" +
      folder.path()));
  emit bridge().tools()->profilesWanted();
  driver->waitUntilIdle();
  EXPECT_EQ(bridge().problems().size(), 1);
  driver->key(Qt::Key_Escape);
  for (int number = 10; number <= 20; ++number)
    ASSERT_TRUE(QFile::remove(folder.path() + "/var/mobile/Documents/Quorvantis/profile_" +
                              QString::number(number) + ".qvx"));
  EXPECT_TRUE(driver->until([&] { return bridge().problems().isEmpty(); }));
}

TEST_F(Notices, DamagedProfilesAreOneNoticeOfTheProfileManager) {
  const QString folderOfThem = folder.path() + "/var/mobile/Documents/Quorvantis/";
  for (int number = 10; number <= 14; ++number)
    writeText("/var/mobile/Documents/Quorvantis/profile_" + std::to_string(number) + ".qvx", "no");
  open("ProfilesListController");
  const QString notice =
      "No profile can be read from profile_10.qvx, profile_11.qvx, profile_12.qvx and 2 more.\n" +
      folderOfThem;
  for (int i = 0; i < 2; ++i) {
    driver->click("Compose");
    driver->click("Load");
    EXPECT_EQ(bridge().problems(), QStringList{notice});
    driver->click("Cancel");
  }
  // A list of them finds the same, and looks again.
  emit bridge().tools()->profilesWanted();
  driver->waitUntilIdle();
  EXPECT_EQ(bridge().problems(), QStringList{notice});
  for (int number = 10; number <= 14; ++number)
    ASSERT_TRUE(QFile::remove(folderOfThem + "profile_" + QString::number(number) + ".qvx"));
  EXPECT_TRUE(driver->until([&] { return bridge().problems().isEmpty(); }));
}

TEST_F(Notices, AProfileThatIsDamagedBeforeItIsLoadedIsReportedInPlainWords) {
  const char* path = "/var/mobile/Documents/Quorvantis/profile_10.qvx";
  write(path, plist::Dictionary{{"profilepercentage", "10"}});
  open("ProfilesListController");
  driver->click("Compose");
  driver->click("Load");
  writeText(path, "no");
  driver->click("Load");
  EXPECT_EQ(bridge().problems(), QStringList{"The profile can't be read: its file is damaged.\n" +
                                             folder.path() + path});
}

TEST_F(Notices, ADamagedProfileIsReportedInPlainWords) {
  writeText("/var/mobile/Documents/Quorvantis/profile_10.qvx", "no");
  open();
  emit bridge().tools()->profileWanted("/var/mobile/Documents/Quorvantis/profile_10.qvx");
  EXPECT_EQ(bridge().problems(),
            QStringList{"The profile can't be read: its file is damaged.\n" + folder.path() +
                        "/var/mobile/Documents/Quorvantis/profile_10.qvx"});
}

TEST_F(Notices, ManyTakeLessThanHalfOfTheWindowAndTheLatestIsInSight) {
  open(nullptr, 320, 480);
  for (int i = 1; i <= 11; ++i) application->report({.words = "Problem " + std::to_string(i)});
  driver->waitUntilIdle();
  QQuickItem* notices = driver->itemsOfType("Notices").front();
  EXPECT_LE(notices->height(), 480 * 0.4);
  const QRectF latest = driver->place(driver->itemsOfType("MessageBar").back());
  EXPECT_LE(latest.bottom(), 480);
  driver->key(Qt::Key_F, Qt::ControlModifier);
  driver->waitUntilIdle();
  EXPECT_LE(driver->itemsOfType("Notices").front()->height(), 480 * 0.4);
  EXPECT_LT(driver->place(driver->itemsOfType("SearchView").front()).top(), 300);
}

TEST_F(Notices, AMissingBusIsReportedOnceAndOnlyAfterAChange) {
  options.state = folder.filePath("state").toStdString();
  open("PowerSavingListController");
  bridge().setAnnounces(false);
  EXPECT_TRUE(bridge().problems().isEmpty());
  const auto rows = page().rows;
  const auto isSwitch = [](auto& row) { return row.kind == host::RowKind::Switch && row.usable; };
  const auto row = std::ranges::find_if(rows, isSwitch);
  ASSERT_NE(row, rows.end());
  const QString name = QString::fromStdString(row->label);
  driver->click(name, kCheckBox);
  ASSERT_EQ(bridge().problems().size(), 1);
  EXPECT_TRUE(bridge().problems()[0].contains("this session has no message bus"));
  driver->click("Dismiss");
  EXPECT_TRUE(bridge().problems().isEmpty());
  driver->click(name, kCheckBox);
  EXPECT_TRUE(bridge().problems().isEmpty());
}

}  // namespace
