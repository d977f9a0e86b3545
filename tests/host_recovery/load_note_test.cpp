#include "tests/host_recovery/backed_up_device.h"

namespace {

using namespace recovery_test;

// A load that was stopped after its first change of the settings, or before it.
class HalfLoad : public testing::Test {
 protected:
  HalfLoad() {
    seed::archive(device, "profile_20.qvx",
                  plist::Dictionary{{"profilepercentage", "20"}, {"wifi", 2}, {"vpn", 1}});
    device.store("wifi", 1);
    device.store("profileactive", 0.0f);
  }
  void begin() {
    guarded_ = device.backups->guard({::preferences::ProfileStep::Load, path_});
    ASSERT_TRUE(guarded_);
  }
  void laySettings() { EXPECT_TRUE(prefs::loadProfile(device.environment, path_)); }
  // Ends the process: what it holds is gone without being given back.
  void kill() {
    guarded_.reset();
    std::ofstream(note_(), std::ios::binary)
        .write(reinterpret_cast<const char*>(kept_.data()), std::ssize(kept_));
    device.startAnew();
    device.events.clear();
  }
  void keepNote() {
    std::ifstream file(note_(), std::ios::binary);
    kept_.assign(std::istreambuf_iterator<char>(file.rdbuf()), {});
    ASSERT_FALSE(kept_.empty());
  }
  std::string note_() const { return (device.stateFolder() / "load").string(); }
  bool noted() const { return std::filesystem::exists(note_()); }

  BackedUpDevice device;
  const std::string path_ = prefs::profilePath(20);
  std::shared_ptr<void> guarded_;
  std::string kept_;
};

TEST_F(HalfLoad, IsFinishedBeforeTheNextChange) {
  begin();
  laySettings();
  keepNote();
  kill();
  EXPECT_EQ(device.stored("profileactive"), Value(1));
  device.set("ringer", 1);
  EXPECT_EQ(device.stored("profileactive"), Value(1.0f));
  EXPECT_EQ(device.stored("wifi"), Value(2));
  EXPECT_EQ(device.events, (Names{"darwin com.zorvek.quorvantis.prefs"}));
  EXPECT_FALSE(noted());
}

TEST_F(HalfLoad, LeavesWhatOthersHaveChangedSince) {
  begin();
  laySettings();
  keepNote();
  kill();
  device.store("wifi", 1);
  device.store("profileactive", 0);
  device.backups->prepare();
  EXPECT_EQ(device.stored("wifi"), Value(1));
  EXPECT_EQ(device.stored("profileactive"), Value(0));
  EXPECT_EQ(device.stored("vpn"), Value(1));
}

TEST_F(HalfLoad, ThatHasNotBegunIsForgotten) {
  begin();
  keepNote();
  kill();
  const auto before = device.file(device.kDomainFile);
  device.backups->prepare();
  EXPECT_EQ(device.file(device.kDomainFile), before);
  EXPECT_TRUE(device.events.empty());
  EXPECT_FALSE(noted());
}

TEST_F(HalfLoad, IsFinishedBeforeAnotherLoadByAnOlderProcess) {
  seed::archive(device, "profile_30.qvx",
                plist::Dictionary{{"profilepercentage", "30"}, {"profileactive", 0}});
  host::Backups older(device.environment, device.state.path(), foundation::kLockPatience, {});
  older.prepare();
  begin();
  laySettings();
  keepNote();
  kill();
  older.guard({::preferences::ProfileStep::Load, prefs::profilePath(30)});
  EXPECT_EQ(device.stored("profileactive"), Value(1.0f));
}

// By another process that was stopped after this one had looked for the first time.
TEST_F(HalfLoad, ThatBeganLaterIsFinishedByAProcessThatRunsOn) {
  device.set("ringer", 1);
  host::Backups running(device.environment, device.state.path(), foundation::kLockPatience, {});
  running.prepare();
  begin();
  laySettings();
  keepNote();
  kill();
  ASSERT_TRUE(running.store().setAppValue("ringer", 2, prefs::kDomain));
  running.prepare();
  EXPECT_EQ(device.stored("profileactive"), Value(1.0f));
  EXPECT_FALSE(noted());
}

TEST_F(HalfLoad, ThatCouldNotBeFinishedIsTriedAgain) {
  begin();
  laySettings();
  keepNote();
  kill();
  const auto good = device.file(device.kDomainFile);
  device.damageDomain();
  device.backups->prepare();
  EXPECT_TRUE(noted());
  ASSERT_TRUE(device.root.writeDurably(device.kDomainFile, good));
  device.backups->prepare();
  EXPECT_EQ(device.stored("profileactive"), Value(1.0f));
}

TEST_F(HalfLoad, IsNoPartOfTheUsersChangeThatFinishesIt) {
  begin();
  laySettings();
  keepNote();
  kill();
  const auto before = device.stored("ringer");
  device.set("ringer", 77);
  ASSERT_TRUE(host::undo(device.environment, *device.backups));
  EXPECT_EQ(device.stored("ringer"), before);
  EXPECT_EQ(device.stored("profileactive"), Value(1.0f));
}

// Its switch is what the load makes of it from the beginning.
TEST_F(HalfLoad, AWholeOneOfAProfileWithTheSwitchsOwnFormLeavesNoNote) {
  seed::archive(
      device, "profile_20.qvx",
      plist::Dictionary{{"profilepercentage", "20"}, {"wifi", 2}, {"profileactive", 1.0f}});
  device.load("20");
  EXPECT_FALSE(noted());
  device.store("wifi", 1);
  device.store("profileactive", 0.0f);
  begin();
  keepNote();
  laySettings();
  kill();
  device.backups->prepare();
  EXPECT_FALSE(noted());
}

TEST_F(HalfLoad, OfALivingProcessIsLeftToIt) {
  begin();
  laySettings();
  host::Backups other(device.environment, device.state.path(), foundation::kLockPatience, {});
  other.prepare();
  EXPECT_EQ(device.stored("profileactive"), Value(1));
  EXPECT_TRUE(noted());
}

TEST_F(HalfLoad, WhoseSwitchFailedKeepsItsNote) {
  begin();
  laySettings();
  guarded_.reset();
  EXPECT_TRUE(noted());
  device.startAnew();
  device.backups->prepare();
  EXPECT_EQ(device.stored("profileactive"), Value(1.0f));
}

TEST_F(HalfLoad, WithADamagedNoteIsForgotten) {
  begin();
  laySettings();
  keepNote();
  kept_.resize(20);
  kill();
  device.backups->prepare();
  EXPECT_EQ(device.stored("wifi"), Value(2));
  EXPECT_FALSE(noted());
}

TEST_F(HalfLoad, AWholeOneLeavesNoNote) {
  device.load("20");
  EXPECT_EQ(device.stored("profileactive"), Value(1.0f));
  EXPECT_FALSE(noted());
}

}  // namespace
