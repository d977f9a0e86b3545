// Stands in for an Evolution Data Server (3.46): its two names on the session bus, and those
// methods of its address books that are used here, as its introspection has them. "data_server
// FOLDER": the sources are FOLDER/*.source, and an empty address book of its own. Prints "ready".
// With "dies" it ends where the contacts of the address book "work" are asked for, with "counts" it
// replies their number.

#include <systemd/sd-bus.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

namespace {

struct Book {
  std::string keyFile;
  std::vector<std::string> cards;
  std::string opener;  // whom it is open for
};
std::map<std::string, Book> books;
std::string mode;

constexpr char kBookInterface[] = "org.gnome.evolution.dataserver.AddressBook";
constexpr char kEveryContact[] = "(contains \"x-evolution-any-field\" \"\")";
constexpr char kPersonal[] =
    "[Data Source]\nDisplayName[de]=Pers\xC3\xB6nlich\nDisplayName=Personal\nEnabled=true\n"
    "Parent=local-stub\n\n[Address Book]\nBackendName=local\n";

// sd-bus has no tables for this interface.
int managedObjects(sd_bus_message* call, void*, sd_bus_error*) {
  if (sd_bus_message_is_method_call(call, "org.freedesktop.DBus.ObjectManager",
                                    "GetManagedObjects") <= 0)
    return 0;
  sd_bus_message* reply = nullptr;
  sd_bus_message_new_method_return(call, &reply);
  sd_bus_message_open_container(reply, 'a', "{oa{sa{sv}}}");
  int number = 0;
  for (const auto& [uid, book] : books) {
    sd_bus_message_open_container(reply, 'e', "oa{sa{sv}}");
    const std::string path =
        "/org/gnome/evolution/dataserver/SourceManager/Source_" + std::to_string(++number);
    sd_bus_message_append(reply, "o", path.c_str());
    sd_bus_message_append(reply, "a{sa{sv}}", 3, "org.freedesktop.DBus.Peer", 0,
                          "org.gnome.evolution.dataserver.Source", 3, "UID", "s", uid.c_str(),
                          "Data", "s", book.keyFile.c_str(), "ConnectionStatus", "s", "",
                          "org.gnome.evolution.dataserver.Source.Writable", 0);
    sd_bus_message_close_container(reply);
  }
  sd_bus_message_close_container(reply);
  const int status = sd_bus_send(nullptr, reply, nullptr);
  sd_bus_message_unref(reply);
  return status < 0 ? status : 1;
}

std::string objectOf(const std::string& uid) {
  std::string path = "/org/gnome/evolution/dataserver/Subprocess/1/";
  for (const char c : uid) path += c == '-' ? '_' : c;
  return path;
}

int replyTexts(sd_bus_message* call, const std::vector<std::string>& texts) {
  sd_bus_message* reply = nullptr;
  sd_bus_message_new_method_return(call, &reply);
  sd_bus_message_open_container(reply, 'a', "s");
  for (const auto& text : texts) sd_bus_message_append(reply, "s", text.c_str());
  sd_bus_message_close_container(reply);
  const int status = sd_bus_send(nullptr, reply, nullptr);
  sd_bus_message_unref(reply);
  return status < 0 ? status : 1;
}

int fail(sd_bus_error* error) {
  return sd_bus_error_set(error, "org.gnome.evolution.dataserver.AddressBook.Failed", "no");
}

int open(sd_bus_message* call, void* book, sd_bus_error*) {
  static_cast<Book*>(book)->opener = sd_bus_message_get_sender(call);
  return replyTexts(call, {"loaded", "true"});
}

bool isOpen(sd_bus_message* call, void* book) {
  return static_cast<Book*>(book)->opener == sd_bus_message_get_sender(call);
}

int create(sd_bus_message* call, void* book, sd_bus_error* error) {
  if (!isOpen(call, book)) return fail(error);
  const char* card = nullptr;
  sd_bus_message_enter_container(call, 'a', "s");
  while (sd_bus_message_read(call, "s", &card) > 0)
    static_cast<Book*>(book)->cards.emplace_back(card);
  return replyTexts(call, {});
}

int list(sd_bus_message* call, void* book, sd_bus_error* error) {
  const char* query = nullptr;
  sd_bus_message_read(call, "s", &query);
  if (!isOpen(call, book) || std::string(query) != kEveryContact) return fail(error);
  if (mode == "dies" && book == &books["work"]) std::_Exit(0);
  return replyTexts(call, static_cast<Book*>(book)->cards);
}

// The table below would hold the reply to its type.
int count(sd_bus_message* call, void*, sd_bus_error*) {
  if (sd_bus_message_is_method_call(call, kBookInterface, "GetContactList") <= 0) return 0;
  return sd_bus_reply_method_return(call, "u", 1);
}

constexpr sd_bus_vtable kBook[] = {SD_BUS_VTABLE_START(0), SD_BUS_METHOD("Open", "", "as", open, 0),
                                   SD_BUS_METHOD("CreateContacts", "asu", "as", create, 0),
                                   SD_BUS_METHOD("GetContactList", "s", "as", list, 0),
                                   SD_BUS_VTABLE_END};

int openAddressBook(sd_bus_message* call, void*, sd_bus_error* error) {
  const char* uid = nullptr;
  sd_bus_message_read(call, "s", &uid);
  if (!books.contains(uid)) return fail(error);
  return sd_bus_reply_method_return(call, "ss", objectOf(uid).c_str(),
                                    "org.gnome.evolution.dataserver.AddressBook10");
}
constexpr sd_bus_vtable kFactory[] = {
    SD_BUS_VTABLE_START(0), SD_BUS_METHOD("OpenAddressBook", "s", "ss", openAddressBook, 0),
    SD_BUS_VTABLE_END};

}  // namespace

int main(int, char** arguments) {
  if (arguments[2]) mode = arguments[2];
  books["system-address-book"].keyFile = kPersonal;
  for (const auto& file : std::filesystem::directory_iterator(arguments[1])) {
    std::ifstream source(file.path());
    books[file.path().stem()].keyFile = {std::istreambuf_iterator<char>(source), {}};
  }
  sd_bus* bus = nullptr;
  if (sd_bus_open_user(&bus) < 0) return 1;
  const std::string root = "/org/gnome/evolution/dataserver/";
  sd_bus_add_object(bus, nullptr, (root + "SourceManager").c_str(), managedObjects, nullptr);
  sd_bus_add_object_vtable(bus, nullptr, (root + "AddressBookFactory").c_str(),
                           "org.gnome.evolution.dataserver.AddressBookFactory", kFactory, nullptr);
  for (auto& [uid, book] : books)
    sd_bus_add_object_vtable(bus, nullptr, objectOf(uid).c_str(), kBookInterface, kBook, &book);
  if (mode == "counts") sd_bus_add_object(bus, nullptr, objectOf("work").c_str(), count, nullptr);
  sd_bus_request_name(bus, "org.gnome.evolution.dataserver.Sources5", 0);
  sd_bus_request_name(bus, "org.gnome.evolution.dataserver.AddressBook10", 0);
  std::puts("ready");
  std::fflush(stdout);
  for (;;) {
    const int moved = sd_bus_process(bus, nullptr);
    if (moved < 0) return 1;
    if (moved == 0) sd_bus_wait(bus, UINT64_MAX);
  }
}
