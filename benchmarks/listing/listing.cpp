// Listing 108 saved profiles against the bare reading of their files (open, read, close), and what
// the first page opens to show them.
#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include "benchmarks/codec/profile.h"
#include "benchmarks/race.h"
#include "host/application.h"
#include "host/describe.h"
#include "platform/archive/keyed_archive.h"
#include "prefs/core/names.h"
#include "prefs/profiles/saved_profiles.h"
#include "prefs/profiles/triggers.h"
#include "prefs/resources/bundle.h"
#include "services/lazy_services.h"
#include "tests/support/environment.h"

namespace {

constexpr int kProfiles = 108;

// A profile for each trigger, with a description on every third, and a battery log.
class Device : public testing_support::TestDevice {
 public:
  Device() : TestDevice(prefs::bundle()) {
    int number = 0;
    for (const plist::Value& trigger : prefs::triggerValues()) {
      plist::Dictionary profile = typicalProfile();
      profile.set(prefs::kProfilePercentage, trigger);
      if (number % 3 == 0)
        profile.set(prefs::kProfileDescription, "Night " + std::to_string(number));
      write(std::string(prefs::kDocuments) + "profile_" + *trigger.text() + ".qvx", profile);
      ++number;
    }
    bench::expect(number == kProfiles, "108 triggers");
    write(std::string(prefs::kBatteryLog), plist::Array{"one", "two", "three"});
    user.screen = &screen;
  }

  services::UserCollator userCollator;
  preferences::Environment user{root, preferences, center, queue, darwin,         userCollator,
                                urls, addressBook, sounds, xml,   prefs::bundle()};

 private:
  void write(const std::string& path, const plist::Value& value) {
    const auto bytes = archive::archive(value, archive::Mutability::Mutable);
    bench::expect(bytes && root.writeDurably(path, *bytes), "a written file");
  }
};

int readAll(const char* folder) {
  static char buffer[65536];
  int files = 0;
  DIR* open = opendir(folder);
  while (dirent* entry = readdir(open)) {
    const std::size_t length = std::strlen(entry->d_name);
    if (length < 4 || std::strcmp(entry->d_name + length - 4, ".qvx") != 0) continue;
    const int file = openat(dirfd(open), entry->d_name, O_RDONLY | O_CLOEXEC);
    if (file >= 0 && read(file, buffer, sizeof buffer) > 0) ++files;
    close(file);
  }
  closedir(open);
  return files;
}

std::size_t list(const preferences::Environment& environment) {
  return prefs::savedProfiles(environment, prefs::TitleForm::WithDescription).titles.size();
}

void listing(bench::Race& race) {
  Device device;
  const std::string folder = device.folder.path() + std::string(prefs::kDocuments);
  bench::expect(readAll(folder.c_str()) == kProfiles, "108 files read");
  bench::expect(list(device.user) == kProfiles, "108 titles");
  race.add("ours", [&] { (void)list(device.user); });
  race.add("open, read, close", [&] { (void)readAll(folder.c_str()); });
  race.run(bench::Clock::Processor, 3);
}

// To be run by strace: what happens between the two marks shows the first page.
void rootPage(bench::Race&) {
  Device device;
  host::Application application(device.user, 40);
  access("/mark", F_OK);
  const auto done = application.perform(host::Launch{});
  const host::Scene scene = host::describe(application);
  access("/mark", F_OK);
  bench::expect(done && !scene.pages.empty(), "the first page");
}

}  // namespace

int main(int count, char** arguments) {
  return bench::runRow(count, arguments, {{"list", listing}, {"root", rootPage}});
}
