#include "services/desktop_books.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <systemd/sd-bus.h>

#include <chrono>

#include "services/address_book.h"
#include "services/data_source.h"
#include "services/services.h"
#include "tests/services/bus_daemon.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr char kRegistry[] = "/usr/libexec/evolution-source-registry";
constexpr char kFactory[] = "/usr/libexec/evolution-addressbook-factory";
constexpr char kFactoryName[] = "org.gnome.evolution.dataserver.AddressBook10";
constexpr char kPersonal[] = "system-address-book";  // the one that every server has

struct ByteCollator : platform::Collator {
  int compare(std::string_view a, std::string_view b) override { return a.compare(b); }
};

std::string card(const std::string& first, const std::string& last, const std::string& phone) {
  return "BEGIN:VCARD\r\nVERSION:3.0\r\nN:" + last + ";" + first + ";;;\r\nFN:" + first + " " +
         last + "\r\nTEL:" + phone + "\r\nEND:VCARD";
}

// Another program that works with an address book.
class Writer {
 public:
  Writer() { sd_bus_open_user(&bus_); }
  ~Writer() { sd_bus_close_unref(bus_); }

  bool isOwned(const char* name) {
    int owned = 0;
    sd_bus_message* reply = nullptr;
    sd_bus_call_method(bus_, "org.freedesktop.DBus", "/org/freedesktop/DBus",
                       "org.freedesktop.DBus", "NameHasOwner", nullptr, &reply, "s", name);
    sd_bus_message_read(reply, "b", &owned);
    sd_bus_message_unref(reply);
    return owned != 0;
  }

  bool add(const char* book, const std::vector<std::string>& cards) {
    sd_bus_message *opened = nullptr, *create = nullptr;
    sd_bus_call_method(bus_, kFactoryName, "/org/gnome/evolution/dataserver/AddressBookFactory",
                       "org.gnome.evolution.dataserver.AddressBookFactory", "OpenAddressBook",
                       nullptr, &opened, "s", book);
    const char *object = "", *service = "";
    if (!opened || sd_bus_message_read(opened, "ss", &object, &service) < 0) return false;
    const char* interface = "org.gnome.evolution.dataserver.AddressBook";
    sd_bus_call_method(bus_, service, object, interface, "Open", nullptr, nullptr, "");
    sd_bus_message_new_method_call(bus_, &create, service, object, interface, "CreateContacts");
    sd_bus_message_open_container(create, 'a', "s");
    for (const auto& card : cards) sd_bus_message_append(create, "s", card.c_str());
    sd_bus_message_close_container(create);
    sd_bus_message_append(create, "u", 0);
    const int status = sd_bus_call(bus_, create, 0, nullptr, nullptr);
    sd_bus_message_unref(create);
    sd_bus_message_unref(opened);
    return status >= 0;
  }

 private:
  sd_bus* bus_ = nullptr;
};

class DesktopBooksTest : public testing::Test {
 protected:
  void SetUp() override {
    for (const char* name :
         {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"})
      setenv(name, folder_.path.c_str(), 1);
    setenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + (folder_.path / "bus").string()).c_str(), 1);
    std::filesystem::create_directories(sources_);
  }
  void startBus() {
    bus_.emplace(folder_);
    ASSERT_TRUE(bus_->running) << "dbus-daemon can't be started";
  }
  void startServer(const char* mode = "") {
    const auto program =
        std::filesystem::read_symlink("/proc/self/exe").parent_path() / "data_server";
    server_.push_back(std::make_unique<Child>(std::vector<std::string>{program, sources_, mode}));
    ASSERT_EQ(server_.back()->line(), "ready");
  }
  void source(const std::string& name, const std::string& keyFile) {
    folder_.write("evolution/sources/" + name + ".source", keyFile);
  }

  // "First Last: 1, 2", the folder's and the desktop's.
  std::vector<std::string> people() {
    std::vector<std::string> people;
    services::MergedAddressBook book(root_, std::nullopt, collator_,
                                     [this](auto& error) { problems_.push_back(error.message()); });
    for (const auto& person : book.peopleSortedByFirstName()) {
      std::string line = person.firstName + " " + person.lastName + ":";
      for (const auto* addresses : {&person.phones, &person.emails})
        for (const auto& address : *addresses) line += " " + address;
      people.push_back(line);
    }
    return people;
  }

  // In a process of its own, since the module leaves alone what was silent.
  [[noreturn]] void endByReadingThreeTimes() {
    const auto began = std::chrono::steady_clock::now();
    bool empty = true;
    for (int i = 0; i < 3; ++i) empty = empty && people().empty();
    const bool quick = std::chrono::steady_clock::now() - began < std::chrono::seconds(5);
    for (const auto& problem : problems_) std::fprintf(stderr, "%s.", problem.c_str());
    std::_Exit(empty && quick ? 0 : 1);
  }

  TemporaryFolder folder_;
  std::string sources_ = (folder_.path / "evolution/sources").string();
  foundation::DeviceRoot root_{(folder_.path / "root").string()};
  ByteCollator collator_;
  std::vector<std::string> problems_;
  std::optional<BusDaemon> bus_;
  std::vector<std::unique_ptr<Child>> server_;
};

// Once with the stand-in, once with the real server.
class EachServer : public DesktopBooksTest, public testing::WithParamInterface<const char*> {
 protected:
  void start() {
    ASSERT_NO_FATAL_FAILURE(startBus());
    if (GetParam() == std::string("stand_in")) return startServer();
    if (!std::filesystem::exists(kFactory))
      GTEST_SKIP() << "evolution-data-server is not installed";
    setenv("GSETTINGS_BACKEND", "memory", 1);
    setenv("GIO_USE_VFS", "local", 1);
    Writer writer;
    for (const auto& [program, name] :
         {std::pair(kRegistry, "org.gnome.evolution.dataserver.Sources5"),
          std::pair(kFactory, kFactoryName)}) {
      server_.push_back(std::make_unique<Child>(std::vector<std::string>{program}));
      for (int tries = 0; tries < 600 && !writer.isOwned(name); ++tries) usleep(50'000);
      ASSERT_TRUE(writer.isOwned(name));
    }
  }
};

INSTANTIATE_TEST_SUITE_P(DesktopBooks, EachServer, testing::Values("stand_in", "evolution"),
                         [](auto& info) { return info.param; });

}  // namespace

#define START() \
  start();      \
  if (HasFatalFailure() || IsSkipped()) return

TEST_P(EachServer, AnEmptyBookHasNobody) {
  START();
  EXPECT_THAT(people(), IsEmpty());
  EXPECT_THAT(problems_, IsEmpty());
}
TEST_P(EachServer, NamesKeepTheirAccents) {
  START();
  ASSERT_TRUE(Writer().add(kPersonal, {card("Jörg", "Müller", "+49 1"), card("愛", "李", "2"),
                                       card("Zoë 😀", "Å", "3")}));
  EXPECT_THAT(people(), ElementsAre("Jörg Müller: +49 1", "Zoë 😀 Å: 3", "愛 李: 2"));
}
TEST_P(EachServer, EveryBookThatIsEnabledCounts) {
  for (const auto& [name, more] : {std::pair("work", ""), std::pair("off", "Enabled=false\n"),
                                   std::pair("below", "Parent=account\n")})
    source(name, std::string("[Data Source]\nDisplayName=Work\n") + more +
                     "\n[Address Book]\nBackendName=local\n");
  source("account", "[Data Source]\nDisplayName=Account\nEnabled=false\n");
  START();
  Writer writer;
  ASSERT_TRUE(writer.add(kPersonal, {card("Bob", "B", "1")}));
  ASSERT_TRUE(writer.add("work", {card("Ada", "A", "2"), card("Cy", "C", "3")}));
  ASSERT_TRUE(writer.add("off", {card("Off", "O", "4")}));
  ASSERT_TRUE(writer.add("below", {card("Below", "O", "5")}));
  EXPECT_THAT(people(), ElementsAre("Ada A: 2", "Bob B: 1", "Cy C: 3"));
}
TEST_P(EachServer, ContactsComeBesideTheFolder) {
  START();
  folder_.write("root/var/mobile/Library/AddressBook/a.vcf", card("Bob", "Folder", "1"));
  ASSERT_TRUE(Writer().add(kPersonal, {card("Bob", "Desktop", "2"), card("Ada", "Desktop", "3")}));
  EXPECT_THAT(people(), ElementsAre("Ada Desktop: 3", "Bob Folder: 1", "Bob Desktop: 2"));
}
TEST_P(EachServer, WhatTheFolderHasIsNotRepeated) {
  START();
  folder_.write("root/var/mobile/Library/AddressBook/a.vcf",
                card("Ada", "A", "+49 30 12") + "\n" + card("Bob", "B", "1"));
  ASSERT_TRUE(Writer().add(
      kPersonal, {card("Ada", "A", "+49 (30) 1-2"), card("Bob", "B", "2"), card("Bob", "C", "1")}));
  EXPECT_THAT(people(), ElementsAre("Ada A: +49 30 12", "Bob B: 1", "Bob B: 2", "Bob C: 1"));
}
TEST_P(EachServer, ACardWithoutNumberIsPassedOverAndOneWithoutNameStays) {
  START();
  ASSERT_TRUE(Writer().add(
      kPersonal, {"BEGIN:VCARD\r\nVERSION:3.0\r\nN:Mute;Max;;;\r\nFN:Max Mute\r\nEND:VCARD",
                  "BEGIN:VCARD\r\nVERSION:3.0\r\nEMAIL:nobody@example.org\r\nEND:VCARD"}));
  EXPECT_THAT(people(), ElementsAre(testing::EndsWith(": nobody@example.org")));
}
TEST_P(EachServer, FiveThousandContactsAreRead) {
  START();
  std::vector<std::string> cards;
  for (int i = 0; i < 5000; ++i) cards.push_back(card("P" + std::to_string(i), "L", "1"));
  ASSERT_TRUE(Writer().add(kPersonal, cards));
  EXPECT_THAT(people(), testing::SizeIs(5000));
  EXPECT_THAT(problems_, IsEmpty());
}
TEST_P(EachServer, AServerThatDoesNotAnswerIsLeftAloneAndReported) {
  START();
  for (auto& server : server_) server->stop();
  EXPECT_EXIT(endByReadingThreeTimes(), testing::ExitedWithCode(0),
              "^(the desktop's address book doesn't answer.){3}$");
}

TEST_F(DesktopBooksTest, WithoutABusThereIsNobodyAndNoProblem) {
  EXPECT_THAT(people(), IsEmpty());
  EXPECT_THAT(problems_, IsEmpty());
}
TEST_F(DesktopBooksTest, AServerThatIsNotRunningIsNeverStarted) {
  const auto program =
      folder_.write("start", "#!/bin/sh\n>>" + (folder_.path / "started").string() + "\nexit 1");
  std::filesystem::permissions(program, std::filesystem::perms::owner_all);
  for (const char* name : {"Sources5", "AddressBook10"}) {
    const std::string service = std::string("org.gnome.evolution.dataserver.") + name;
    folder_.write("services/" + service + ".service",
                  "[D-BUS Service]\nName=" + service + "\nExec=" + program.string() + "\n");
  }
  ASSERT_NO_FATAL_FAILURE(startBus());
  EXPECT_THAT(people(), IsEmpty());
  EXPECT_THAT(problems_, IsEmpty());
  EXPECT_FALSE(std::filesystem::exists(folder_.path / "started"));
  // They would be, by whoever asks for it.
  EXPECT_FALSE(Writer().add(kPersonal, {}));
  EXPECT_TRUE(std::filesystem::exists(folder_.path / "started"));
}
TEST_F(DesktopBooksTest, AServerThatDiesCostsWhatWasNotReadYet) {
  source("work", "[Data Source]\nDisplayName=Work\n[Address Book]\n");
  ASSERT_NO_FATAL_FAILURE(startBus());
  ASSERT_NO_FATAL_FAILURE(startServer("dies"));
  ASSERT_TRUE(Writer().add(kPersonal, {card("Ada", "A", "1")}));
  EXPECT_THAT(people(), ElementsAre("Ada A: 1"));
  EXPECT_THAT(problems_, ElementsAre("the desktop's address book \"Work\" can't be read"));
}
TEST_F(DesktopBooksTest, AReplyThatHoldsSomethingElseIsNoEmptyBook) {
  source("work", "[Data Source]\nDisplayName=Work\n[Address Book]\n");
  ASSERT_NO_FATAL_FAILURE(startBus());
  ASSERT_NO_FATAL_FAILURE(startServer("counts"));
  ASSERT_TRUE(Writer().add(kPersonal, {card("Ada", "A", "1")}));
  EXPECT_THAT(people(), ElementsAre("Ada A: 1"));
  EXPECT_THAT(problems_, ElementsAre("the desktop's address book \"Work\" can't be read"));
}
TEST_F(DesktopBooksTest, ABusThatNeverAnswersIsLeftAloneAndReported) {
  const int server = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_un address{AF_UNIX, {}};
  (folder_.path / "bus").string().copy(address.sun_path, sizeof address.sun_path - 1);
  ASSERT_EQ(bind(server, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
  ASSERT_EQ(listen(server, 100), 0);
  EXPECT_EXIT(endByReadingThreeTimes(), testing::ExitedWithCode(0),
              "^(the session bus doesn't answer.){3}$");
  close(server);
}
TEST_F(DesktopBooksTest, WhatIsHeldStaysTheSame) {
  ASSERT_NO_FATAL_FAILURE(startBus());
  ASSERT_NO_FATAL_FAILURE(startServer());
  services::MergedAddressBook book(root_, std::nullopt, collator_, {});
  auto held = book.hold();
  EXPECT_THAT(book.peopleSortedByFirstName(), IsEmpty());
  ASSERT_TRUE(Writer().add(kPersonal, {card("Ada", "A", "1")}));
  EXPECT_THAT(book.peopleSortedByFirstName(), IsEmpty());
  held.reset();
  EXPECT_THAT(book.peopleSortedByFirstName(), testing::SizeIs(1));
}

TEST(DataSource, IsReadFromItsKeyFile) {
  EXPECT_EQ(services::readDataSource("\n[Data Source]\nDisplayName[de]=x\nDisplayName = Mine \r\n"
                                     "Enabled=false\nParent=p\n[Address Book]\nEnabled=true\n"),
            (services::DataSource{"Mine", "p", false, true}));
  EXPECT_EQ(services::readDataSource("no key file"), services::DataSource());
}
TEST(DataSource, ThatBelongsToItselfIsNotEnabled) {
  EXPECT_THAT(services::enabledAddressBooks({{"a", {"", "b", true, true}},
                                             {"b", {"", "a", true, true}},
                                             {"c", {"", "elsewhere", true, true}}}),
              ElementsAre("c"));
}
