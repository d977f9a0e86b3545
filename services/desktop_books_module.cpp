#include <chrono>
#include <map>
#include <memory>
#include <mutex>
#include <string_view>
#include <vector>

#include "services/bus_connection.h"
#include "services/data_source.h"
#include "services/desktop_books.h"
#include "services/module.h"

namespace services {

namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr auto kPatience = 3s;
constexpr auto kQuarantine = 30s;

// Both names end with the number of their version: "…Sources5", "…AddressBook10".
constexpr std::string_view kRegistry = "org.gnome.evolution.dataserver.Sources";
constexpr std::string_view kFactory = "org.gnome.evolution.dataserver.AddressBook";
constexpr char kSource[] = "org.gnome.evolution.dataserver.Source";
constexpr char kBook[] = "org.gnome.evolution.dataserver.AddressBook";
constexpr char kEveryContact[] = "(contains \"x-evolution-any-field\" \"\")";

struct Unref {
  void operator()(sd_bus_message* message) const { sd_bus_message_unref(message); }
};
using Message = std::unique_ptr<sd_bus_message, Unref>;

struct Method {
  std::string service, object, interface, member;
};

// A conversation that ends at a point in time. What fails sets `status`, and all after it fails
// too.
class Conversation {
 public:
  Conversation() : bus_(connectToBus(status)) {
    if (status < 0) return;
    status = 0;
    while (status >= 0 && sd_bus_is_ready(bus_.get()) <= 0)
      if (status = sd_bus_process(bus_.get(), nullptr); status == 0) status = wait();
  }

  // Arguments and reply are texts.
  Message call(const Method& method, const char* argument = nullptr) {
    if (status < 0) return nullptr;
    sd_bus_message* made = nullptr;
    status = sd_bus_message_new_method_call(bus_.get(), &made, method.service.c_str(),
                                            method.object.c_str(), method.interface.c_str(),
                                            method.member.c_str());
    const Message request(made);
    if (status >= 0) status = sd_bus_message_set_auto_start(request.get(), false);
    if (status >= 0 && argument) status = sd_bus_message_append(request.get(), "s", argument);
    const std::uint64_t patience = left();  // none would be sd-bus's own, of 25 s
    if (status >= 0 && patience == 0) status = -ETIMEDOUT;
    sd_bus_message* reply = nullptr;
    if (status >= 0) status = sd_bus_call(bus_.get(), request.get(), patience, nullptr, &reply);
    return Message(reply);
  }

  bool isBus() const { return bus_ != nullptr; }
  bool isOver() const { return left() == 0; }

  int status = 0;

 private:
  std::uint64_t left() const {
    const auto left = deadline_ - Clock::now();
    return left <= 0s ? 0 : static_cast<std::uint64_t>(left / 1us);
  }
  int wait() {
    const int waited = sd_bus_wait(bus_.get(), left());
    if (isOver()) return -ETIMEDOUT;
    return waited == -EINTR ? 0 : waited;
  }

  Clock::time_point deadline_ = Clock::now() + kPatience;
  BusConnection bus_;
};

std::vector<std::string> textsIn(sd_bus_message* message) {
  std::vector<std::string> texts;
  if (!message || sd_bus_message_enter_container(message, 'a', "s") < 0) return texts;
  const char* text = nullptr;
  while (sd_bus_message_read(message, "s", &text) > 0) texts.emplace_back(text);
  return texts;
}

// The name of the latest version that begins so; empty where there is none.
std::string latest(const std::vector<std::string>& names, std::string_view prefix) {
  std::string found;
  for (const std::string& name : names) {
    const bool versioned = name.size() > prefix.size() && name.starts_with(prefix) &&
                           name.find_first_not_of("0123456789", prefix.size()) == name.npos;
    if (versioned && std::pair(name.size(), name) > std::pair(found.size(), found)) found = name;
  }
  return found;
}

// The texts among the properties a{sv} of one interface.
std::map<std::string, std::string> propertiesIn(sd_bus_message* message) {
  std::map<std::string, std::string> properties;
  sd_bus_message_enter_container(message, 'a', "{sv}");
  while (sd_bus_message_enter_container(message, 'e', "sv") > 0) {
    const char *name = "", *text = "", *type = "";
    sd_bus_message_read(message, "s", &name);
    sd_bus_message_peek_type(message, nullptr, &type);
    if (type && std::string_view(type) == "s" && sd_bus_message_read(message, "v", "s", &text) > 0)
      properties.emplace(name, text);
    else
      sd_bus_message_skip(message, "v");
    sd_bus_message_exit_container(message);
  }
  sd_bus_message_exit_container(message);
  return properties;
}

// Of a{oa{sa{sv}}}, the reply of an object manager.
DataSources sourcesIn(sd_bus_message* message) {
  DataSources sources;
  if (!message || sd_bus_message_enter_container(message, 'a', "{oa{sa{sv}}}") < 0) return sources;
  while (sd_bus_message_enter_container(message, 'e', "oa{sa{sv}}") > 0) {
    sd_bus_message_skip(message, "o");
    sd_bus_message_enter_container(message, 'a', "{sa{sv}}");
    while (sd_bus_message_enter_container(message, 'e', "sa{sv}") > 0) {
      const char* interface = "";
      sd_bus_message_read(message, "s", &interface);
      if (std::string_view(interface) == kSource) {
        auto properties = propertiesIn(message);
        sources[properties["UID"]] = readDataSource(properties["Data"]);
      } else {
        sd_bus_message_skip(message, "a{sv}");
      }
      sd_bus_message_exit_container(message);
    }
    sd_bus_message_exit_container(message);
    sd_bus_message_exit_container(message);
  }
  return sources;
}

// The server closes a book when the connection ends that has opened it.
std::string cardsOf(Conversation& server, const std::string& factory, const std::string& book) {
  const auto opened =
      server.call({factory, "/org/gnome/evolution/dataserver/AddressBookFactory",
                   "org.gnome.evolution.dataserver.AddressBookFactory", "OpenAddressBook"},
                  book.c_str());
  const char *object = nullptr, *service = nullptr;
  if (opened && sd_bus_message_read(opened.get(), "ss", &object, &service) < 0)
    server.status = -EBADMSG;
  if (server.status < 0) return {};
  server.call({service, object, kBook, "Open"});
  std::string cards;
  const auto contacts = server.call({service, object, kBook, "GetContactList"}, kEveryContact);
  if (contacts && sd_bus_message_has_signature(contacts.get(), "as") <= 0) server.status = -EBADMSG;
  for (const std::string& card : textsIn(contacts.get())) (cards += card) += '\n';
  return cards;
}

// `"Personal", "Work"`
std::string quoted(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "\"" : ", \"") + name + "\"";
  return text;
}

class EvolutionBooks : public DesktopBooks {
 public:
  Cards cards() override {
    const std::lock_guard lock(mutex_);
    if (Clock::now() < leaveAloneUntil_) return {{}, silence_};
    Conversation server;
    if (!server.isBus()) return {};
    const auto names = server.call(
        {"org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "ListNames"});
    if (server.status < 0) return {{}, failure(server, "the session bus")};
    const auto running = textsIn(names.get());
    const auto registry = latest(running, kRegistry), factory = latest(running, kFactory);
    if (registry.empty() || factory.empty()) return {};
    const auto listed = server.call({registry, "/org/gnome/evolution/dataserver/SourceManager",
                                     "org.freedesktop.DBus.ObjectManager", "GetManagedObjects"});
    if (server.status < 0) return {{}, failure(server, "the desktop's address book")};
    return cardsOfAll(server, factory, sourcesIn(listed.get()));
  }

 private:
  Cards cardsOfAll(Conversation& server, const std::string& factory, const DataSources& sources) {
    Cards found;
    std::vector<std::string> unread;
    for (const std::string& book : enabledAddressBooks(sources)) {
      server.status = 0;
      found.text += cardsOf(server, factory, book);
      if (server.status < 0) unread.push_back(sources.at(book).name);
    }
    if (!unread.empty())
      found.failure = failure(server, "the desktop's address book " + quoted(unread));
    return found;
  }

  platform::Error failure(const Conversation& server, const std::string& what) {
    if (!server.isOver()) return {.what = what + " can't be read"};
    leaveAloneUntil_ = Clock::now() + kQuarantine;
    return silence_ = {.what = what + " doesn't answer"};
  }

  std::mutex mutex_;
  Clock::time_point leaveAloneUntil_{};
  platform::Error silence_;  // why it is left alone
};

}  // namespace

}  // namespace services

QUORVANTIS_SERVICE {
  (void)reason;
  return static_cast<services::DesktopBooks*>(new services::EvolutionBooks);
}
