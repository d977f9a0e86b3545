// How work grows with what it is done on: each way of a race is one size.
#include <unistd.h>

#include "benchmarks/race.h"
#include "host/battery_log.h"
#include "platform/archive/keyed_archive.h"
#include "prefs/core/names.h"
#include "prefs/profiles/saved_profiles.h"
#include "services/lazy_services.h"
#include "tests/support/environment.h"

namespace {

const preferences::Bundle none{};

// `first`, and up from about there to `last`, each twice the one before.
std::vector<int> sizes(int first, int last) {
  std::vector<int> all;
  for (double size = last; size > 1.4 * first; size /= 2)
    all.push_back(static_cast<int>(size + 0.5));
  all.push_back(first);
  return {all.rbegin(), all.rend()};
}

// As settings are: numbers mostly, and some texts.
plist::Dictionary settings(int size) {
  plist::Dictionary values;
  for (int i = 0; i < size; ++i) {
    const std::string number = std::to_string(i);
    if (i % 4 == 0)
      values.set("setting_" + number, "value " + number);
    else
      values.set("setting_" + number, i);
  }
  return values;
}

void race(bench::Race& race) {
  race.run(bench::Clock::Processor, 2);
}

void decode(bench::Race& grown) {
  for (const int size : sizes(10, 100'000)) {
    const auto bytes = *archive::archive(settings(size), archive::Mutability::Mutable);
    grown.add(std::to_string(size), [bytes] {
      const auto root = archive::unarchive(plist::Bytes(bytes));
      bench::keep(&root);
    });
  }
  race(grown);
}

void encode(bench::Race& grown) {
  for (const int size : sizes(10, 100'000))
    grown.add(std::to_string(size), [values = plist::Value(settings(size))] {
      const auto bytes = archive::archive(values, archive::Mutability::Mutable);
      bench::keep(&bytes);
    });
  race(grown);
}

// A device with a domain of so many keys.
std::shared_ptr<testing_support::TestDevice> deviceWithKeys(int size) {
  auto device = std::make_shared<testing_support::TestDevice>(none);
  bench::expect(bool(device->preferences.setMultiple(settings(size), {}, prefs::kDomain)),
                "a stored domain");
  return device;
}

// One key, by a store that hasn't read the domain before.
void get(bench::Race& grown) {
  for (const int size : sizes(10, 100'000))
    grown.add(std::to_string(size), [device = deviceWithKeys(size)] {
      foundation::Preferences preferences(device->root);
      bench::expect(preferences.copyAppValue("setting_7", prefs::kDomain).has_value(), "a value");
    });
  race(grown);
}

void set(bench::Race& grown) {
  for (const int size : sizes(10, 100'000))
    grown.add(std::to_string(size), [device = deviceWithKeys(size), turn = 0]() mutable {
      bench::expect(bool(device->preferences.setAppValue("setting_7", ++turn, prefs::kDomain)) &&
                        bool(device->preferences.synchronize()),
                    "a set");
    });
  race(grown);
}

void list(bench::Race& grown) {
  static services::UserCollator collator;
  for (const int size : sizes(1, 100'000)) {
    auto device = std::make_shared<testing_support::TestDevice>(none);
    const auto bytes =
        archive::archive(plist::Dictionary{{std::string(prefs::kProfilePercentage), "55"}},
                         archive::Mutability::Mutable);
    const std::string folder(prefs::kDocuments);
    std::string file;
    for (int i = 0; i < size; ++i) {
      const std::string name = folder + "profile_" + std::to_string(i + 1) + ".qvx";
      if (i % 1000 == 0) {  // a file system bounds the links of a file
        bench::expect(bool(device->root.writeDurably(name, *bytes)), "a written file");
        file = name;
      } else {
        bench::expect(link((device->folder.path() + file).c_str(),
                           (device->folder.path() + name).c_str()) == 0,
                      "a link");
      }
    }
    grown.add(std::to_string(size), [device, size] {
      const preferences::Environment user{
          device->root, device->preferences, device->center,      device->queue,  device->darwin,
          collator,     device->urls,        device->addressBook, device->sounds, device->xml,
          none};
      bench::expect(prefs::profileFiles(user).files.size() == static_cast<std::size_t>(size),
                    "all files listed");
    });
  }
  race(grown);
}

void log(bench::Race& grown) {
  for (const int size : sizes(10, 1'000'000)) {
    auto device = std::make_shared<testing_support::TestDevice>(none);
    plist::Array entries;
    for (int i = 0; i < size; ++i) entries.push_back("entry " + std::to_string(i));
    const auto bytes = archive::archive(entries, archive::Mutability::Mutable);
    bench::expect(bytes && device->root.writeDurably(prefs::kBatteryLog, *bytes), "a written log");
    grown.add(std::to_string(size), [device, size] {
      const auto entries = host::readBatteryLog(device->environment);
      bench::expect(entries && entries->size() == static_cast<std::size_t>(size), "all entries");
    });
  }
  race(grown);
}

}  // namespace

int main(int count, char** arguments) {
  return bench::runRow(count, arguments,
                       {{"decode", decode},
                        {"encode", encode},
                        {"get", get},
                        {"set", set},
                        {"list", list},
                        {"log", log}});
}
