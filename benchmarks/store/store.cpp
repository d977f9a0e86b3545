// The store on a domain of 200 keys: a durable set, a read that is checked for freshness, and a
// copy of all of it.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <thread>

#include "benchmarks/race.h"
#include "benchmarks/store/folder.h"
#include "prefs/core/names.h"
#include "prefs/core/preference_store.h"
#include "tests/support/environment.h"
#ifdef PEER_SQLITE
#include "benchmarks/peers/sqlite.h"
#endif

namespace {

constexpr int kKeys = 200;
const std::string kKey = "lowpower_option_7";

std::string keyOf(int number) {
  return "lowpower_option_" + std::to_string(number);
}

std::string valueOf(int number) {
  return "Some text value " + std::to_string(number);
}

struct Store {
  Store() {
    plist::Dictionary values;
    for (int i = 0; i < kKeys; ++i) values.set(keyOf(i), valueOf(i));
    bench::expect(bool(preferences.setMultiple(values, {}, prefs::kDomain)) &&
                      bool(preferences.synchronize()),
                  "200 keys stored");
    file =
        folder.path + "/var/mobile/Library/Preferences/" + std::string(prefs::kDomain) + ".plist";
  }

  void set() {
    turn = !turn;
    (void)preferences.setAppValue(kKey, turn ? "Some text value A" : "Some text value B",
                                  prefs::kDomain);
    (void)preferences.synchronize();
  }

  bench::Folder folder;
  foundation::DeviceRoot root{folder.path};
  foundation::Preferences preferences{root};
  std::string file;
  bool turn = false;
};

// The least that is durable: a new file, flushed, renamed into place, and its folder flushed.
class Replacement {
 public:
  explicit Replacement(std::size_t size)
      : bytes_(size, 'x'), folder_(open(place_.path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {}
  ~Replacement() { close(folder_); }

  void replace() {
    bytes_[0] = static_cast<char>(bytes_[0] ^ 1);
    const int file = openat(folder_, "new", O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    const bool done =
        write(file, bytes_.data(), bytes_.size()) == static_cast<ssize_t>(bytes_.size()) &&
        fsync(file) == 0 && close(file) == 0 && renameat(folder_, "new", folder_, "file") == 0 &&
        fsync(folder_) == 0;
    bench::expect(done, "a durable replacement");
  }

 private:
  bench::Folder place_;
  std::string bytes_;
  int folder_;
};

void set(bench::Race& race) {
  Store store;
  Replacement bare(std::filesystem::file_size(store.file));
  race.add("ours", [&] { store.set(); });
  race.add("write, fsync, rename, fsync", [&] { bare.replace(); });
  race.run(bench::Clock::Wall, 0);
  bench::expect(store.preferences.copyAppValue(kKey, prefs::kDomain) ==
                    plist::Value(store.turn ? "Some text value A" : "Some text value B"),
                "the value that was set");
}

// To be run by strace: what happens between the two marks is one set.
void setOnce(bench::Race&) {
  Store store;
  store.set();
  access("/mark", F_OK);
  store.set();
  access("/mark", F_OK);
}

void replaceOnce(bench::Race&) {
  Replacement bare(8000);
  bare.replace();
  access("/mark", F_OK);
  bare.replace();
  access("/mark", F_OK);
}

void readOne(bench::Race& race, Store& store, const std::function<void()>& between) {
  const std::string domain(prefs::kDomain);
  bench::expect(prefs::singleValueRead(store.preferences, kKey, domain).has_value(), "a value");
  race.add("ours", [&store, domain] {
    const auto value = prefs::singleValueRead(store.preferences, kKey, domain);
    bench::keep(&value);
  });
  race.add("one stat", [&store] {
    struct stat status;
    stat(store.file.c_str(), &status);
    bench::keep(&status);
  });
  race.run(bench::Clock::Processor, 1, between);
}

// A file that was changed a moment ago may change again without another time stamp.
void settle() {
  std::this_thread::sleep_for(std::chrono::seconds(4));
}

void read(bench::Race& race) {
  Store store;
  settle();
  readOne(race, store, [] {});
}

// Another process has changed the file less than a second ago.
void readChanged(bench::Race& race) {
  Store store;
  foundation::Preferences other{store.root};
  double changed = 0;
  int turn = 0;
  readOne(race, store, [&] {
    const double now = bench::nanoseconds(bench::Clock::Wall);
    if (now - changed < 0.5e9) return;
    changed = now;
    bench::expect(bool(other.setAppValue("turn", ++turn, prefs::kDomain)), "another's set");
    (void)prefs::singleValueRead(store.preferences, kKey, std::string(prefs::kDomain));
  });
}

void copyAll(bench::Race& race) {
  Store store;
  settle();
  bench::expect(prefs::wholeDomainRead(store.preferences).size() == kKeys, "200 keys copied");
  race.add("ours", [&] {
    const auto values = prefs::wholeDomainRead(store.preferences);
    bench::keep(&values);
  });
  std::vector<std::pair<std::string, std::string>> pairs;
  for (int i = 0; i < kKeys; ++i) pairs.emplace_back(keyOf(i), valueOf(i));
#ifdef PEER_SQLITE
  bench::Folder folder;
  Database database(folder.path + "/keys.db", pairs);
  bench::expect(database.selectAll() == kKeys && database.copyAll() == kKeys, "200 rows selected");
  race.add("SQLite select", [&] { (void)database.selectAll(); });
  race.add("SQLite into pairs", [&] { (void)database.copyAll(); });
#endif
  race.add("copy of the pairs", [pairs] {
    const auto copy = pairs;
    bench::keep(copy.data());
  });
  race.run();
}

}  // namespace

int main(int count, char** arguments) {
  return bench::runRow(count, arguments,
                       {{"set", set},
                        {"set-once", setOnce},
                        {"replace-once", replaceOnce},
                        {"read", read},
                        {"read-changed", readChanged},
                        {"copy", copyAll}});
}
