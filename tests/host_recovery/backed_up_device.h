#pragma once

#include "host/backups.h"
#include "host/change_making.h"
#include "host/profiles.h"
#include "host/recovery.h"
#include "host/undo.h"
#include "prefs/core/archive_file.h"
#include "tests/prefs_profiles/profiles_device.h"

namespace recovery_test {

using plist::Value;
using Names = std::vector<std::string>;

// In place: a file that is cut first is flushed by some file systems when it is closed.
inline void overwrite(const std::filesystem::path& path, const std::string& bytes) {
  std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
  file << bytes;
}

// A device whose changes are remembered in a folder of its own, and whose date is set by hand.
class BackedUpDevice : public profiles_test::ProfilesDevice {
 public:
  BackedUpDevice() { startAnew(); }

  // As if the program was started anew.
  void startAnew() {
    backups = std::make_unique<host::Backups>(
        environment, state.path(), foundation::kLockPatience,
        [this](const platform::Error& error) { warnings.push_back(error.message()); },
        [this] { return now; });
    preferences.setChangeObserver(backups.get());
    preferences.setXmlReader(prefs::readerOf(realXml));
    preferences.setKeptHandler([this] { backups->rememberKept(); });
    environment.profileGuard = [this](const ::preferences::ProfileStep& step) {
      return backups->guard(step);
    };
  }

  // A change of the user's, and one by another process.
  void set(const std::string& key, const Value& value) {
    const host::UserChange change(backups.get(), "set " + key);
    EXPECT_TRUE(preferences.setAppValue(key, value, prefs::kDomain));
  }
  using ProfilesDevice::store;

  // From now on no change can be stored, and sets are kept; until it can be again.
  void forbid() {
    preferences.setFailedSets(foundation::Preferences::FailedSets::Keep);
    std::filesystem::remove(at(kLock));
    std::filesystem::create_directories(at(kLock));
  }
  void allow() { std::filesystem::remove(at(kLock)); }
  static constexpr std::string_view kLock =
      "/var/mobile/Library/Preferences/.com.zorvek.quorvantis.plist.lock";

  host::Trigger trigger(const std::string& id) { return *host::findTrigger(id); }
  host::Profiles profiles{environment};
  void save(const std::string& id) {
    const host::UserChange change(backups.get(), "save " + id);
    EXPECT_TRUE(profiles.save(trigger(id), host::Profiles::Existing::Overwrite));
  }
  void load(const std::string& id) {
    const host::UserChange change(backups.get(), "load " + id);
    EXPECT_TRUE(profiles.load(trigger(id)));
  }
  void remove(const std::string& id) {
    const host::UserChange change(backups.get(), "delete " + id);
    EXPECT_TRUE(profiles.remove(trigger(id), host::Profiles::Folders::Refuse));
  }
  std::vector<std::uint8_t> file(std::string_view path) {
    auto bytes = root.read(path);
    return bytes ? *bytes : std::vector<std::uint8_t>();
  }

  // What each snapshot was taken before.
  Names snapshots() {
    Names names;
    const auto list = recovery().snapshots();
    EXPECT_TRUE(list);
    if (!list) return names;
    for (const auto& entry : list->entries) names.push_back(entry.before);
    return names;
  }
  host::Recovery recovery() { return {environment, *backups}; }
  std::filesystem::path stateFolder() const {
    return std::filesystem::directory_iterator(state.path())->path();
  }

  testing_support::TemporaryFolder state;
  std::chrono::system_clock::time_point now{std::chrono::hours(24 * 20000)};
  Names warnings;
  std::unique_ptr<host::Backups> backups;
};

}  // namespace recovery_test
