// Listing 108 saved profiles against the bare reading of their files (open, read, close): medians
// of interleaved rounds, in one run.
#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <functional>
#include <vector>

#include "platform/archive/keyed_archive.h"
#include "prefs/core/names.h"
#include "prefs/profiles/saved_profiles.h"
#include "prefs/profiles/triggers.h"
#include "services/lazy_services.h"
#include "tests/support/environment.h"

namespace {

constexpr int kRounds = 61;
constexpr int kListingsPerRound = 10;

// As many settings as a real profile holds, and a description on every third.
plist::Dictionary profile(const std::string& trigger, int number) {
  plist::Dictionary values{{"profilepercentage", trigger}};
  if (number % 3 == 0) values.set("profiledescription", "Night " + std::to_string(number));
  for (int key = 0; key < 44; ++key) values.set("setting" + std::to_string(key), key % 3);
  values.set("custbright", 50.0);
  values.set("alertmsg", "Current battery level %BAT%");
  values.set("msgtext", "Current battery level on device %DNAME%: %BAT%");
  values.set("playsound", "Disabled");
  return values;
}

int readAll(const char* folder) {
  static char buffer[65536];
  int files = 0;
  DIR* open = opendir(folder);
  while (dirent* entry = readdir(open)) {
    std::size_t length = std::strlen(entry->d_name);
    if (length < 4 || std::strcmp(entry->d_name + length - 4, ".qvx") != 0) continue;
    int file = openat(dirfd(open), entry->d_name, O_RDONLY | O_CLOEXEC);
    if (file >= 0 && read(file, buffer, sizeof buffer) > 0) ++files;
    close(file);
  }
  closedir(open);
  return files;
}

double microseconds(const std::function<void()>& work) {
  auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < kListingsPerRound; ++i) work();
  std::chrono::duration<double, std::micro> spent = std::chrono::steady_clock::now() - start;
  return spent.count() / kListingsPerRound;
}

double median(std::vector<double> values) {
  std::ranges::sort(values);
  return values[values.size() / 2];
}

}  // namespace

int main() {
  const preferences::Bundle none{};
  testing_support::TestDevice device(none);
  services::UserCollator collator;
  preferences::Environment environment{
      device.root, device.preferences, device.center, device.queue, device.darwin, collator,
      device.urls, device.addressBook, device.sounds, device.xml,   none};
  int number = 0;
  for (const plist::Value& trigger : prefs::triggerValues()) {
    auto bytes = archive::archive(profile(*trigger.text(), number++), archive::Mutability::Mutable);
    auto path = std::string(prefs::kDocuments) + "profile_" + *trigger.text() + ".qvx";
    if (!bytes || !device.root.writeDurably(path, *bytes)) return 1;
  }
  std::string folder = device.folder.path() + std::string(prefs::kDocuments);

  std::size_t listed = 0;
  int read = 0;
  std::vector<double> bare, ours;
  for (int round = 0; round < kRounds; ++round) {
    bare.push_back(microseconds([&] { read = readAll(folder.c_str()); }));
    ours.push_back(microseconds([&] {
      listed = prefs::savedProfiles(environment, prefs::TitleForm::WithDescription).titles.size();
    }));
  }
  if (read != 108 || listed != 108) return std::fprintf(stderr, "listed %zu\n", listed), 1;
  std::printf("listing of 108 profiles, median of %d rounds\n", kRounds);
  std::printf("  bare open-read-close  %8.1f us\n", median(bare));
  std::printf("  saved profiles        %8.1f us\n", median(ours));
  std::printf("  ratio                 %8.2f\n", median(ours) / median(bare));
}
