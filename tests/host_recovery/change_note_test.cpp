#include <sys/stat.h>

#include "tests/host_recovery/backed_up_device.h"
#include "tests/platform_foundation/system_calls.h"

namespace {

using namespace recovery_test;
using host::ChangeNote;

// The undo of a save, or the restoring of a snapshot, that was stopped before or after the profile
// was changed, and before the settings were.
class HalfChange : public testing::Test {
 protected:
  HalfChange() {
    device.set("wifi", 1);
    device.save("20");
    change_ = host::reversed((*device.backups->history().next(host::History::Way::Undo))->change);
  }
  void begin(ChangeNote::Kind kind = ChangeNote::Kind::Undo) {
    held_ = device.backups->changeNote().begin(change_, kind, foundation::kLockPatience);
    ASSERT_TRUE(*held_);
  }
  void deleteProfile() { ASSERT_TRUE(device.root.remove(path_)); }
  // Ends the process: the note stays.
  void kill() {
    held_.reset();
    device.startAnew();
  }
  std::string undone() {
    const auto made = host::undo(device.environment, *device.backups);
    return made ? made->what : made.error().problem.message();
  }
  bool exists() { return device.root.exists(path_); }
  bool noted() { return std::filesystem::exists(device.stateFolder() / "change"); }

  BackedUpDevice device;
  const std::string path_ = prefs::profilePath(20);
  host::Change change_;
  std::optional<platform::Result<foundation::Descriptor>> held_;
};

TEST_F(HalfChange, IsFinishedBeforeTheNextChange) {
  begin();
  deleteProfile();
  kill();
  EXPECT_EQ(device.stored("profilepercentage"), Value("20"));
  device.set("vpn", 1);
  EXPECT_EQ(device.stored("profilepercentage"), std::nullopt);
  EXPECT_EQ(device.stored("vpn"), Value(1));
  EXPECT_FALSE(exists());
  EXPECT_FALSE(noted());
}

TEST_F(HalfChange, IsNoPartOfTheChangeThatFinishesIt) {
  begin();
  deleteProfile();
  kill();
  device.set("vpn", 1);
  EXPECT_EQ(undone(), "set vpn");
  EXPECT_EQ(device.stored("vpn"), std::nullopt);
  EXPECT_FALSE(exists());
  EXPECT_EQ(undone(), "set wifi");
}

TEST_F(HalfChange, ThatIsARedoCanBeUndoneOnceItIsFinished) {
  EXPECT_EQ(undone(), "save 20");
  const auto file = *change_.files[0].from;
  change_ = host::reversed(change_);
  begin(ChangeNote::Kind::Redo);
  ASSERT_TRUE(device.root.writeDurably(path_, file));
  kill();
  device.set("vpn", 1);
  EXPECT_EQ(device.stored("profilepercentage"), Value("20"));
  EXPECT_EQ(undone(), "set vpn");
  EXPECT_EQ(undone(), "save 20");
  EXPECT_FALSE(exists());
}

TEST_F(HalfChange, ThatWaitsToBeFinishedKeepsItsNote) {
  begin();
  held_.reset();
  EXPECT_FALSE(device.backups->changeNote().begin(change_, ChangeNote::Kind::Undo,
                                                  foundation::kLockPatience));
}

TEST_F(HalfChange, WhoseNoteIsNotConfirmedOnDiskIsUnderWay) {
  foundation::test::systemCalls().failFsync = 2;  // its folder's
  begin();
  foundation::test::systemCalls() = {};
  EXPECT_TRUE(noted());
}

TEST_F(HalfChange, ThatHasNotBegunIsForgotten) {
  begin();
  kill();
  device.set("vpn", 1);
  EXPECT_TRUE(exists());
  EXPECT_EQ(device.stored("profilepercentage"), Value("20"));
  EXPECT_FALSE(noted());
}

TEST_F(HalfChange, LeavesWhatOthersHaveChangedSince) {
  begin();
  deleteProfile();
  kill();
  device.store("profilepercentage", "30");
  device.backups->prepare();
  EXPECT_EQ(device.stored("profilepercentage"), Value("30"));
}

TEST_F(HalfChange, OfALivingProcessIsItsOwnAffair) {
  begin();
  deleteProfile();
  host::Backups other(device.environment, device.state.path(), foundation::kLockPatience, {});
  other.prepare();
  EXPECT_EQ(device.stored("profilepercentage"), Value("20"));
  EXPECT_TRUE(noted());
}

TEST_F(HalfChange, OfARestoreCanBeUndoneOnceItIsFinished) {
  change_.what = "restore 1";
  begin(ChangeNote::Kind::Restore);
  deleteProfile();
  kill();
  device.backups->prepare();
  EXPECT_FALSE(exists());
  const auto undone = host::undo(device.environment, *device.backups);
  ASSERT_TRUE(undone);
  EXPECT_EQ(undone->what, "restore 1");
  EXPECT_TRUE(exists());
  EXPECT_EQ(device.stored("profilepercentage"), Value("20"));
}

TEST_F(HalfChange, ThatCannotBeFinishedIsNamedAndTriedAgain) {
  begin();
  deleteProfile();
  kill();
  const auto good = device.file(device.kDomainFile);
  device.damageDomain();
  device.backups->prepare();
  EXPECT_THAT(device.warnings,
              testing::Contains(testing::HasSubstr("was stopped half-way and is not finished")));
  EXPECT_TRUE(noted());
  ASSERT_TRUE(device.root.writeDurably(device.kDomainFile, good));
  device.backups->prepare();
  EXPECT_EQ(device.stored("profilepercentage"), std::nullopt);
  EXPECT_FALSE(noted());
}

TEST_F(HalfChange, WhoseNoteIsDamagedIsForgotten) {
  begin();
  deleteProfile();
  kill();
  std::filesystem::resize_file(device.stateFolder() / "change", 40);
  device.backups->prepare();
  EXPECT_EQ(device.stored("profilepercentage"), Value("20"));
  EXPECT_FALSE(noted());
}

// What is deleted can't be brought back on a full disk.
TEST_F(HalfChange, NothingIsDeletedBeforeAllIsWritten) {
  struct stat before {
  }, after{};
  ASSERT_EQ(stat(device.at(path_).c_str(), &before), 0);
  std::ofstream(device.at("/file")) << "no folder";
  change_.files.push_back({"/file/in it", {}, std::vector<std::uint8_t>{1}});
  EXPECT_FALSE(host::apply(device.environment, *device.backups, change_, ChangeNote::Kind::Undo));
  ASSERT_EQ(stat(device.at(path_).c_str(), &after), 0);
  EXPECT_EQ(after.st_ino, before.st_ino);
}

TEST_F(HalfChange, NothingIsNotedOnceItIsDone) {
  ASSERT_TRUE(host::undo(device.environment, *device.backups));
  EXPECT_FALSE(exists());
  EXPECT_FALSE(noted());
}

}  // namespace
