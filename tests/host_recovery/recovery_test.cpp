#include <future>

#include "tests/host_recovery/backed_up_device.h"

namespace {

using namespace recovery_test;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

struct HostRecovery : testing::Test {
  std::vector<std::uint8_t> aside(int number) {
    return device.file(std::string(device.kDomainFile) + ".unreadable-" + std::to_string(number));
  }
  BackedUpDevice device;
};

TEST_F(HostRecovery, SaysThatNothingIsWrong) {
  device.set("wifi", 1);
  const auto state = device.recovery().state();
  EXPECT_FALSE(state.damage);
  EXPECT_EQ(state.settings, 1u);
  EXPECT_FALSE(state.changedOutside);
  EXPECT_FALSE(state.seen->outside);
}

TEST_F(HostRecovery, SaysWhyTheSettingsCannotBeRead) {
  device.damageDomain();
  const auto state = device.recovery().state();
  ASSERT_TRUE(state.damage);
  EXPECT_EQ(state.damage->path, device.kDomainFile);
}

TEST_F(HostRecovery, FindsEachBitFlipThatYieldsOtherSettings) {
  device.set("wifi", 1);
  device.set("msgtext", "Level %BAT%");
  const auto bytes = device.file(device.kDomainFile);
  int good = 0;
  for (std::size_t bit = 0; bit < bytes.size() * 8; ++bit) {
    auto flipped = bytes;
    flipped[bit / 8] ^= 1 << bit % 8;
    if (!foundation::decodeDomain(flipped, {})) continue;
    overwrite(device.at(device.kDomainFile), {flipped.begin(), flipped.end()});
    EXPECT_TRUE(device.recovery().state().changedOutside) << bit;
    ++good;
  }
  EXPECT_GT(good, 100);
  ASSERT_TRUE(device.root.writeDurably(device.kDomainFile, bytes));
  EXPECT_FALSE(device.recovery().state().changedOutside);
}

TEST_F(HostRecovery, AccusesNobodyWhereItsOwnLatestSightingIsLost) {
  device.set("wifi", 1);
  device.set("vpn", 1);
  std::filesystem::resize_file(device.stateFolder() / "seen" / "2", 0);
  EXPECT_FALSE(device.recovery().state().changedOutside);
}

TEST_F(HostRecovery, NamesProfilesThatOthersHaveChanged) {
  device.save("20");
  device.save("30");
  EXPECT_THAT(device.recovery().state().profilesOutside, IsEmpty());
  auto bytes = device.file(prefs::profilePath(30));
  for (std::size_t bit = 0; bit < bytes.size() * 8; ++bit) {
    auto flipped = bytes;
    flipped[bit / 8] ^= 1 << bit % 8;
    overwrite(device.at(prefs::profilePath(30)), {flipped.begin(), flipped.end()});
    ASSERT_THAT(device.recovery().state().profilesOutside, ElementsAre(prefs::profilePath(30)));
  }
  ASSERT_TRUE(device.root.remove(prefs::profilePath(30)));
  EXPECT_THAT(device.recovery().state().profilesOutside, IsEmpty());
}

TEST_F(HostRecovery, NamesNoProfilesWhereItsOwnLatestSightingIsLost) {
  device.save("20");
  device.set("wifi", 2);
  device.save("20");
  std::filesystem::resize_file(device.stateFolder() / "profiles" / "2", 0);
  EXPECT_THAT(device.recovery().state().profilesOutside, IsEmpty());
}

TEST_F(HostRecovery, SettingsThatCannotBeReadNowAreNotRestored) {
  device.set("wifi", 1);
  device.save("20");
  ASSERT_TRUE(device.backups->keep("reset"));
  device.remove("20");
  device.set("wifi", 2);
  device.startAnew();
  const auto folder = device.at(foundation::kDomainFolder);
  std::filesystem::rename(folder, folder.string() + " away");
  std::filesystem::create_symlink(folder.filename(), folder);  // leads to itself
  ASSERT_TRUE(device.backups->open());
  const auto restored = device.recovery().restore(3);
  ASSERT_FALSE(restored);
  EXPECT_EQ(restored.error().reason, host::Failure::Failed);
  EXPECT_TRUE(device.recovery().state().damage);
  EXPECT_FALSE(device.root.exists(prefs::profilePath(20)));
}

TEST_F(HostRecovery, AChangeFromOutsideIsSaidAfterTheNextChangeToo) {
  device.set("wifi", 1);
  const auto first = device.recovery().state().seen->time;
  device.now += 10s;
  device.store("vpn", 1);
  EXPECT_TRUE(device.recovery().state().changedOutside);
  device.now += 10s;
  device.set("wifi", 2);
  const auto state = device.recovery().state();
  EXPECT_FALSE(state.changedOutside);
  EXPECT_EQ(state.seen->outsideSince, first);
  EXPECT_EQ(state.seen->outside->seconds, first.seconds + 20);
}

TEST_F(HostRecovery, RestoresTheLastGoodSnapshot) {
  device.store("wifi", 1);
  ASSERT_TRUE(device.backups->keep("reset"));
  device.store("wifi", 2);
  ASSERT_TRUE(device.backups->keep("import"));
  device.store("wifi", 3);
  std::filesystem::resize_file(device.stateFolder() / "snapshots" / "2", 50);
  device.damageDomain();
  const auto damaged = device.file(device.kDomainFile);
  const auto restored = device.recovery().restoreLast();
  ASSERT_TRUE(restored);
  EXPECT_EQ(restored->number, 1);
  EXPECT_EQ(device.stored("wifi"), Value(1));
  EXPECT_EQ(aside(1), damaged);
  EXPECT_FALSE(device.recovery().state().damage);
  EXPECT_FALSE(device.recovery().state().changedOutside);
}

// What the system can't read now may be whole, and an earlier one in its place a loss.
TEST(HostRecords, AreLostOnlyWhereReadingThemLaterIsOfNoUse) {
  for (const int code : {0, ENOENT, EISDIR, ELOOP, ENXIO, EFBIG})
    EXPECT_TRUE(host::isLost({"/snapshots/1", code})) << code;
  for (const int code : {EIO, EMFILE, ENFILE, ENOMEM, EACCES, EINTR})
    EXPECT_FALSE(host::isLost({"/snapshots/1", code})) << code;
}

TEST_F(HostRecovery, WithoutASnapshotSaysSoAndChangesNothing) {
  device.damageDomain();
  const auto damaged = device.file(device.kDomainFile);
  const auto restored = device.recovery().restoreLast();
  ASSERT_FALSE(restored);
  EXPECT_NE(restored.error().problem.words.find("--start-anew"), std::string::npos);
  EXPECT_EQ(device.file(device.kDomainFile), damaged);
  EXPECT_TRUE(aside(1).empty());
}

TEST_F(HostRecovery, StartsAnew) {
  device.damageDomain();
  const auto damaged = device.file(device.kDomainFile);
  ASSERT_TRUE(device.recovery().startAnew());
  EXPECT_TRUE(device.domain().empty());
  EXPECT_EQ(aside(1), damaged);
  device.set("wifi", 1);
  EXPECT_EQ(device.stored("wifi"), Value(1));
}

TEST_F(HostRecovery, GoodSettingsAreNotReplaced) {
  device.store("wifi", 1);
  ASSERT_TRUE(device.backups->keep("reset"));
  device.store("wifi", 2);
  EXPECT_EQ(device.recovery().startAnew().error().reason, host::Failure::Refused);
  EXPECT_EQ(device.recovery().restoreLast().error().reason, host::Failure::Refused);
  EXPECT_EQ(device.stored("wifi"), Value(2));
  EXPECT_TRUE(aside(1).empty());
}

TEST_F(HostRecovery, OneSnapshotThatCannotBeReadHidesNoOther) {
  device.store("wifi", 1);
  for (const char* before : {"reset", "import", "restore"})
    ASSERT_TRUE(device.backups->keep(before));
  const auto folder = device.stateFolder() / "snapshots";
  std::filesystem::resize_file(folder / "1", std::uintmax_t{1} << 30);
  std::filesystem::remove(folder / "3");
  std::filesystem::create_directory(folder / "3");
  device.damageDomain();
  EXPECT_THAT(device.snapshots(), ElementsAre("import"));
  const auto list = device.recovery().snapshots();
  ASSERT_EQ(list->unreadable.size(), 2u);
  EXPECT_THAT(list->unreadable.front().message(), testing::HasSubstr("snapshots/1: "));
  const auto restored = device.recovery().restoreLast();
  ASSERT_TRUE(restored);
  EXPECT_EQ(restored->number, 2);
  EXPECT_EQ(device.stored("wifi"), Value(1));
}

// While another process holds the lock no change comes between one and its record.
TEST_F(HostRecovery, ChangesOfTwoProcessesOfThisProgramAreNotFromOutside) {
  BackedUpDevice* const one = &device;
  host::Backups other(device.environment, device.state.path(), foundation::kLockPatience, {});
  one->set("wifi", 1);
  ASSERT_TRUE(other.store().setAppValue("wifi", 2, prefs::kDomain));
  one->set("wifi", 3);
  const auto state = one->recovery().state();
  EXPECT_FALSE(state.changedOutside);
  EXPECT_FALSE(state.seen->outside);
}

// The file is changed, and that is noted, while the lock is held.
TEST_F(HostRecovery, AChangeThatIsNotNotedYetIsNotFromOutside) {
  struct Changing : foundation::ChangeObserver {
    explicit Changing(BackedUpDevice& changed) : device(changed) {}
    void willChange(std::string_view) override {}
    void didChange(std::string_view domain, const foundation::DomainChange& change) override {
      state = std::async(std::launch::async, [this] { return device.recovery().state(); });
      EXPECT_EQ(state.wait_for(100ms), std::future_status::timeout);
      host::Backups(device.environment, device.state.path(), foundation::kLockPatience, {})
          .didChange(domain, change);
    }
    BackedUpDevice& device;
    std::future<host::Recovery::State> state;
  } changing(device);
  device.set("wifi", 1);
  foundation::Preferences another(device.root);
  another.setChangeObserver(&changing);
  ASSERT_TRUE(another.setAppValue("wifi", 2, prefs::kDomain));
  EXPECT_FALSE(changing.state.get().changedOutside);
}

TEST_F(HostRecovery, RestoresASnapshotWhole) {
  device.store("wifi", 1);
  seed::profile(device, "7", "Old");
  seed::profile(device, "8");
  ASSERT_TRUE(device.backups->keep("reset"));
  const auto settings = device.domain();
  const auto seven = device.file(prefs::profilePath(7)), eight = device.file(prefs::profilePath(8));
  device.store("wifi", 2);
  device.store("vpn", 1);
  seed::profile(device, "7", "New");
  seed::profile(device, "9");
  std::filesystem::remove(device.at(prefs::profilePath(8)));
  device.events.clear();

  const auto restored = device.recovery().restore(1);
  ASSERT_TRUE(restored);
  EXPECT_THAT(restored->left, IsEmpty());
  EXPECT_THAT(restored->deleted, ElementsAre(prefs::profilePath(9)));
  EXPECT_EQ(Value(device.domain()), Value(settings));
  EXPECT_EQ(device.file(prefs::profilePath(7)), seven);
  EXPECT_EQ(device.file(prefs::profilePath(8)), eight);
  EXPECT_FALSE(device.root.hasEntry(prefs::profilePath(9)));
  EXPECT_EQ(device.events, (Names{"darwin com.zorvek.quorvantis.prefs"}));

  EXPECT_EQ(device.snapshots().back(), "restore");
  const auto undone = host::undo(device.environment, *device.backups);
  ASSERT_TRUE(undone);
  EXPECT_EQ(undone->what, "restore 1");
  EXPECT_EQ(device.stored("vpn"), Value(1));
  EXPECT_TRUE(device.root.hasEntry(prefs::profilePath(9)));
}

TEST_F(HostRecovery, SaysWhatARestoreWouldChange) {
  device.store("wifi", 1);
  seed::archive(device, "profile_7.qvx", plist::Dictionary{{"profilepercentage", "7"}});
  ASSERT_TRUE(device.backups->keep("reset"));
  EXPECT_THAT(*device.recovery().changesOfRestore(1), IsEmpty());
  device.store("wifi", 2);
  std::filesystem::remove(device.at(prefs::profilePath(7)));
  const auto changes = device.recovery().changesOfRestore(1);
  ASSERT_TRUE(changes);
  ASSERT_EQ(changes->size(), 2u);
  EXPECT_EQ(changes->at(0).key, "wifi");
  EXPECT_EQ(changes->at(0).from, Value(2));
  EXPECT_EQ(changes->at(0).to, Value(1));
  EXPECT_EQ(changes->at(1).key, prefs::profilePath(7));
  EXPECT_EQ(changes->at(1).from, std::nullopt);
  EXPECT_EQ(changes->at(1).to, Value(plist::Dictionary{{"profilepercentage", "7"}}));
}

TEST_F(HostRecovery, ASnapshotThatIsNotThereIsNotFound) {
  const auto restored = device.recovery().restore(3);
  ASSERT_FALSE(restored);
  EXPECT_EQ(restored.error().reason, host::Failure::NotFound);
}

}  // namespace
