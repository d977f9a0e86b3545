#include "platform/foundation/durable_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>

#include "tests/platform_foundation/preferences_fixture.h"
#include "tests/platform_foundation/system_calls.h"

namespace foundation::test {
namespace {

using platform::ErrorKind;
using plist::Value;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr char kFileName[] = "com.zorvek.quorvantis.plist";

struct Durability : PreferencesTest {
  Durability() {
    folder.write(kFile, "");
    fs::remove(folder.at(kFile));
    systemCalls() = {};
  }
  ~Durability() override { systemCalls() = {}; }

  std::vector<std::string> takeLog() { return std::exchange(systemCalls().log, {}); }
};

TEST_F(Durability, DurableWriteFlushesTheFileBeforeAndTheFolderAfterTheRename) {
  folder.write("/folder/file", "old");
  ASSERT_TRUE(root.writeDurably("/folder/file", bytesOf("new")));
  EXPECT_THAT(takeLog(), ElementsAre("fsync *", "rename * file", "fsync folder"));
}

TEST_F(Durability, DurableWriteFlushesTheFoldersItMakes) {
  ASSERT_TRUE(root.writeDurably("/a/b/file", bytesOf("new")));
  EXPECT_THAT(takeLog(),
              ElementsAre("fsync root", "fsync a", "fsync *", "rename * file", "fsync b"));
}

TEST_F(Durability, FailedFlushOfTheFileLeavesTheOldOneAndNothingElse) {
  folder.write("/folder/file", "old");
  systemCalls().failFsync = 1;
  const auto written = root.writeDurably("/folder/file", bytesOf("new"));
  ASSERT_FALSE(written);
  EXPECT_EQ(written.error().message(), "/folder/file: flush: Input/output error");
  EXPECT_EQ(folder.contents("/folder/file"), "old");
  EXPECT_THAT(folder.names("/folder"), ElementsAre("file"));
}

TEST_F(Durability, FailedRenameLeavesTheOldFileAndNothingElse) {
  folder.write("/folder/file", "old");
  systemCalls().failRename = 1;
  const auto written = root.writeDurably("/folder/file", bytesOf("new"));
  ASSERT_FALSE(written);
  EXPECT_EQ(written.error().message(), "/folder/file: rename: Input/output error");
  EXPECT_EQ(folder.contents("/folder/file"), "old");
  EXPECT_THAT(folder.names("/folder"), ElementsAre("file"));
}

TEST_F(Durability, FailedFlushOfTheFolderIsReportedThoughTheNewFileIsThere) {
  folder.write("/folder/file", "old");
  systemCalls().failFsync = 2;
  const auto written = root.writeDurably("/folder/file", bytesOf("new"));
  ASSERT_FALSE(written);
  EXPECT_EQ(written.error().message(), "/folder: flush: Input/output error");
  EXPECT_EQ(folder.contents("/folder/file"), "new");
}

TEST_F(Durability, TemporaryNamesAreRandom) {
  folder.write("/folder/file", "");
  const auto directory = root.openDirectory("/folder");
  const auto first = PendingFile::write(*directory, "file", bytesOf("1"));
  const auto second = PendingFile::write(*directory, "file", bytesOf("2"));
  ASSERT_TRUE(first && second);
  const auto names = folder.names("/folder");
  EXPECT_THAT(names, SizeIs(3));
  EXPECT_THAT(names,
              testing::Contains(testing::ContainsRegex("^\\.file\\.[0-9a-f]{16}$")).Times(2));
}

TEST_F(Durability, PendingFileThatIsGivenUpIsRemoved) {
  folder.write("/folder/file", "old");
  const auto directory = root.openDirectory("/folder");
  {
    const auto pending = PendingFile::write(*directory, "file", bytesOf("new"));
    ASSERT_TRUE(pending);
    EXPECT_THAT(folder.names("/folder"), SizeIs(2));
  }
  EXPECT_THAT(folder.names("/folder"), ElementsAre("file"));
  EXPECT_EQ(folder.contents("/folder/file"), "old");
}

TEST_F(Durability, NameThatIsTakenMeanwhileStaysWithItsFile) {
  folder.write("/folder/other", "");
  const auto directory = root.openDirectory("/folder");
  auto pending = PendingFile::write(*directory, "file", bytesOf("new"));
  ASSERT_TRUE(pending && pending->flush());
  folder.write("/folder/file", "theirs");
  EXPECT_EQ(pending->takeName().error().code, EEXIST);
  EXPECT_EQ(folder.contents("/folder/file"), "theirs");
  EXPECT_EQ(root.writeDurably("/folder/file", bytesOf("new"), Existing::Keep).error().code, EEXIST);
  EXPECT_EQ(folder.contents("/folder/file"), "theirs");
}

TEST_F(Durability, NameThatIsFreeIsTaken) {
  ASSERT_TRUE(root.writeDurably("/folder/file", bytesOf("new"), Existing::Keep));
  EXPECT_EQ(folder.contents("/folder/file"), "new");
  EXPECT_THAT(folder.names("/folder"), ElementsAre("file"));
}

TEST_F(Durability, LeftoversAreRemovedButNotAWritersOwn) {
  folder.write("/folder/.file.0123456789abcdef", "left");
  folder.write("/folder/.other.0123456789abcdef", "left");
  const auto directory = root.openDirectory("/folder");
  auto pending = PendingFile::write(*directory, "file", bytesOf("new"));
  ASSERT_TRUE(pending);
  removeLeftovers(*directory, "file");
  EXPECT_THAT(folder.names("/folder"), SizeIs(2));
  removeLeftovers(*directory);
  EXPECT_THAT(folder.names("/folder"), SizeIs(1));
  ASSERT_TRUE(pending->flush() && pending->replaceTarget());
  EXPECT_THAT(folder.names("/folder"), ElementsAre("file"));
}

TEST_F(Durability, FileIsTheOwnersAloneBeforeItIsInPlace) {
  folder.write("/folder/file", "old");
  const auto directory = root.openDirectory("/folder");
  const auto pending = PendingFile::write(*directory, "other", bytesOf("new"));
  ASSERT_TRUE(pending);
  auto names = folder.names("/folder");
  std::erase(names, "file");
  ASSERT_THAT(names, SizeIs(1));
  EXPECT_EQ(modeOf(folder.at("/folder/" + names.front())), 0600u);
}

TEST_F(Durability, RemovalIsFlushed) {
  folder.write("/folder/file", "old");
  ASSERT_TRUE(root.remove("/folder/file"));
  EXPECT_THAT(takeLog(), ElementsAre("fsync folder"));
}

TEST_F(Durability, RenameFlushesWhatItNamesThoughNobodyAsksForIt) {
  folder.write("/folder/file", "old");
  const auto directory = root.openDirectory("/folder");
  auto pending = PendingFile::write(*directory, "file", bytesOf("new"));
  ASSERT_TRUE(pending && pending->replaceTarget());
  EXPECT_THAT(takeLog(), ElementsAre("fsync *", "rename * file"));
}

TEST_F(Durability, FailedFlushKeepsTheFileFromBeingRenamed) {
  folder.write("/folder/file", "old");
  const auto directory = root.openDirectory("/folder");
  {
    auto pending = PendingFile::write(*directory, "file", bytesOf("new"));
    systemCalls().failFsync = 1;
    EXPECT_FALSE(pending->replaceTarget());
  }
  EXPECT_THAT(takeLog(), ElementsAre("fsync *"));
  EXPECT_EQ(folder.contents("/folder/file"), "old");
  EXPECT_THAT(folder.names("/folder"), ElementsAre("file"));
}

TEST_F(Durability, MadeFolderThatCanNotBeFlushedIsMadeAgain) {
  systemCalls().failFsync = 1;
  EXPECT_FALSE(root.writeDurably("/a/file", bytesOf("new")));
  takeLog();
  EXPECT_TRUE(root.writeDurably("/a/file", bytesOf("new")));
  EXPECT_THAT(takeLog(), ElementsAre("fsync root", "fsync *", "rename * file", "fsync a"));
}

TEST_F(Durability, FlushOfTheFolderThatFailsIsSaidToBeStored) {
  folder.write("/folder/file", "old");
  systemCalls().failFsync = 2;
  EXPECT_EQ(root.writeDurably("/folder/file", bytesOf("new")).error().kind, ErrorKind::Unconfirmed);
  systemCalls().failFsync = 1;
  EXPECT_EQ(root.writeDurably("/folder/file", bytesOf("new")).error().kind, ErrorKind::Failed);
  systemCalls().failFsync = 1;
  EXPECT_EQ(root.remove("/folder/file").error().kind, ErrorKind::Unconfirmed);
  EXPECT_THAT(folder.names("/folder"), IsEmpty());
}

TEST_F(Durability, SetFlushesTheFileBeforeItIsRenamed) {
  ASSERT_TRUE(preferences.setAppValue("a", 1, kDomain));
  ASSERT_TRUE(preferences.setMultiple({{"b", 1}}, {}, kDomain));
  const std::string rename = std::string("rename * ") + kFileName;
  EXPECT_THAT(takeLog(), ElementsAre("fsync *", rename, "fsync *", rename));
}

TEST_F(Durability, SetThatCanNotBeFlushedFailsAndLeavesTheOldValue) {
  storeElsewhere("a", 1);
  systemCalls().failFsync = 1;
  const auto set = preferences.setAppValue("a", 2, kDomain);
  ASSERT_FALSE(set);
  EXPECT_EQ(set.error().kind, ErrorKind::Failed);
  EXPECT_EQ(stored("a"), Value(1));
  EXPECT_THAT(otherNames(), IsEmpty());
}

TEST_F(Durability, SynchroniseFlushesTheFolderOnce) {
  ASSERT_TRUE(preferences.setAppValue("a", 1, kDomain));
  ASSERT_TRUE(preferences.setAppValue("b", 1, kDomain));
  EXPECT_TRUE(preferences.unfinished());
  takeLog();
  ASSERT_TRUE(preferences.synchronize());
  EXPECT_THAT(takeLog(), ElementsAre("fsync Preferences"));
  EXPECT_FALSE(preferences.unfinished());
  ASSERT_TRUE(preferences.synchronize());
  ASSERT_TRUE(preferences.appSynchronize(kDomain));
  ASSERT_TRUE(preferences.finish(kLockPatience));
  EXPECT_THAT(takeLog(), IsEmpty());
}

TEST_F(Durability, SynchroniseOfAnotherDomainFlushesThisOne) {
  ASSERT_TRUE(preferences.setAppValue("a", 1, kDomain));
  takeLog();
  ASSERT_TRUE(preferences.appSynchronize("com.example.other"));
  EXPECT_THAT(takeLog(), ElementsAre("fsync Preferences"));
}

TEST_F(Durability, RemovalOfTheLastKeyIsFlushed) {
  ASSERT_TRUE(preferences.setAppValue("a", 1, kDomain));
  ASSERT_TRUE(preferences.setAppValue("a", Value(), kDomain));
  takeLog();
  ASSERT_TRUE(preferences.synchronize());
  EXPECT_THAT(takeLog(), ElementsAre("fsync Preferences"));
}

TEST_F(Durability, ReplacedDomainIsDurable) {
  folder.write(kFile, "garbage");
  takeLog();
  ASSERT_TRUE(preferences.replaceDomain({{"a", 1}}, kDomain));
  EXPECT_THAT(takeLog(),
              ElementsAre("fsync *", std::string("rename * ") + kFileName, "fsync Preferences"));
}

// So no reader sees half of it.
TEST_F(Durability, CreatedFileIsPutInPlaceOnceItIsWhole) {
  const std::uint8_t bytes[] = {'n', 'e', 'w'};
  const auto directory = root.openOrCreateDirectory("/records");
  ASSERT_TRUE(directory);
  takeLog();
  ASSERT_TRUE(PendingFile::write(*directory, "1", bytes)->takeNameUnflushed());
  EXPECT_THAT(takeLog(), ElementsAre("rename * 1"));
  EXPECT_EQ(folder.contents("/records/1"), "new");
  const auto again = PendingFile::write(*directory, "1", {})->takeNameUnflushed();
  ASSERT_FALSE(again);
  EXPECT_EQ(again.error().code, EEXIST);
  EXPECT_EQ(folder.contents("/records/1"), "new");
  EXPECT_THAT(folder.names("/records"), ElementsAre("1"));
}

TEST_F(Durability, SetAsksOnceForItsFlush) {
  int asked = 0;
  preferences.setUnfinishedHandler([&] { ++asked; });
  ASSERT_TRUE(preferences.setAppValue("a", 1, kDomain));
  EXPECT_EQ(asked, 1);
  ASSERT_TRUE(preferences.finish(kLockPatience));
  EXPECT_EQ(asked, 1);
}

TEST_F(Durability, ReadsFlushNothing) {
  ASSERT_TRUE(preferences.setAppValue("a", 1, kDomain));
  takeLog();
  preferences.copyAppValue("a", kDomain);
  preferences.copyMultiple(preferences.copyKeyList(kDomain), kDomain);
  EXPECT_THAT(takeLog(), IsEmpty());
}

TEST_F(Durability, FlushThatFailsIsReportedAndTheDomainIsWrittenAnew) {
  ASSERT_TRUE(preferences.setAppValue("a", 1, kDomain));
  std::vector<std::string> recovered;
  preferences.setRecoveryHandler(
      [&](const platform::Error& error) { recovered.push_back(error.message()); });
  systemCalls().failFsync = 1;
  const auto flushed = preferences.synchronize();
  ASSERT_FALSE(flushed);
  EXPECT_EQ(flushed.error().message(), std::string(kFolder) + ": flush: Input/output error");
  EXPECT_EQ(flushed.error().kind, ErrorKind::Unconfirmed);
  EXPECT_THAT(problems, ElementsAre(flushed.error().message()));
  EXPECT_THAT(recovered, IsEmpty());
  storeElsewhere("b", 2);
  takeLog();
  EXPECT_TRUE(preferences.synchronize());
  EXPECT_THAT(takeLog(),
              ElementsAre("fsync *", std::string("rename * ") + kFileName, "fsync Preferences"));
  EXPECT_THAT(recovered, ElementsAre(flushed.error().message()));
  EXPECT_EQ(stored("a"), Value(1));
  EXPECT_EQ(stored("b"), Value(2));
}

TEST_F(Durability, FlushThatGoesOnFailingIsNeverSaidToBeDone) {
  ASSERT_TRUE(preferences.setAppValue("a", 1, kDomain));
  for (const int which : {1, 1, 2, 1}) {
    systemCalls().failFsync = which;
    const auto flushed = preferences.finish(kLockPatience);
    ASSERT_FALSE(flushed);
    EXPECT_EQ(flushed.error().kind, ErrorKind::Unconfirmed);
    EXPECT_EQ(stored("a"), Value(1));
  }
  EXPECT_TRUE(preferences.finish(kLockPatience));
  EXPECT_THAT(otherNames(), IsEmpty());
}

TEST_F(Durability, RemovalWhoseFlushFailsIsFlushedWithAChangeOfTheFolder) {
  ASSERT_TRUE(preferences.setAppValue("a", 1, kDomain));
  ASSERT_TRUE(preferences.setAppValue("a", Value(), kDomain));
  systemCalls().failFsync = 1;
  EXPECT_FALSE(preferences.synchronize());
  takeLog();
  EXPECT_TRUE(preferences.synchronize());
  EXPECT_THAT(takeLog(), ElementsAre("fsync *", "fsync Preferences"));
  EXPECT_FALSE(fs::exists(folder.at(kFile)));
  EXPECT_THAT(otherNames(), IsEmpty());
}

TEST_F(Durability, SetWhoseLockFileCanNotBeLookedAtFailsAtOnce) {
  storeElsewhere("a", 1);
  systemCalls().failFstat = true;
  const auto set = preferences.setAppValue("a", 2, kDomain);
  systemCalls().failFstat = false;
  ASSERT_FALSE(set);
  EXPECT_EQ(set.error().message(),
            std::string(kFolder) + "/.com.zorvek.quorvantis.plist.lock: lock: Input/output error");
  EXPECT_EQ(stored("a"), Value(1));
}

TEST_F(Durability, RewriteInPlaceWithinATickIsSeen) {
  systemCalls().coarseClock = true;
  storeElsewhere("a", 1);
  const std::string one = folder.contents(kFile);
  storeElsewhere("a", 2);
  const std::string two = folder.contents(kFile);
  for (int round = 0; round < 10; ++round) {
    folder.write(kFile, round % 2 ? two : one);
    ASSERT_TRUE(preferences.appSynchronize(kDomain));
    ASSERT_EQ(preferences.copyAppValue("a", kDomain), Value(round % 2 ? 2 : 1));
  }
}

TEST_F(Durability, SetWhoseRenameFailsLeavesTheOldValue) {
  storeElsewhere("a", 1);
  EXPECT_EQ(preferences.copyAppValue("a", kDomain), Value(1));
  systemCalls().failRename = 1;
  EXPECT_FALSE(preferences.setAppValue("a", 2, kDomain));
  EXPECT_EQ(preferences.copyAppValue("a", kDomain), Value(1));
  EXPECT_EQ(stored("a"), Value(1));
  EXPECT_THAT(otherNames(), IsEmpty());
  EXPECT_THAT(problems, SizeIs(1));
}

}  // namespace
}  // namespace foundation::test
