#include "platform/foundation/durable_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>

#include "tests/platform_foundation/preferences_fixture.h"
#include "tests/platform_foundation/system_calls.h"

namespace foundation::test {
namespace {

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

TEST_F(Durability, SetFlushesNothing) {
  ASSERT_TRUE(preferences.setAppValue("a", 1, kDomain));
  ASSERT_TRUE(preferences.setMultiple({{"b", 1}}, {}, kDomain));
  EXPECT_THAT(takeLog(), ElementsAre("rename * com.zorvek.quorvantis.plist",
                                     "rename * com.zorvek.quorvantis.plist"));
}

TEST_F(Durability, SynchroniseFlushesTheFileThenTheFolderOnce) {
  ASSERT_TRUE(preferences.setAppValue("a", 1, kDomain));
  ASSERT_TRUE(preferences.setAppValue("b", 1, kDomain));
  takeLog();
  ASSERT_TRUE(preferences.synchronize());
  EXPECT_THAT(takeLog(), ElementsAre(std::string("fsync ") + kFileName, "fsync Preferences"));
  ASSERT_TRUE(preferences.synchronize());
  ASSERT_TRUE(preferences.appSynchronize(kDomain));
  EXPECT_THAT(takeLog(), IsEmpty());
}

TEST_F(Durability, SynchroniseOfAnotherDomainFlushesThisOne) {
  ASSERT_TRUE(preferences.setAppValue("a", 1, kDomain));
  takeLog();
  ASSERT_TRUE(preferences.appSynchronize("com.example.other"));
  EXPECT_THAT(takeLog(), ElementsAre(std::string("fsync ") + kFileName, "fsync Preferences"));
}

TEST_F(Durability, RemovalOfTheLastKeyIsFlushed) {
  ASSERT_TRUE(preferences.setAppValue("a", 1, kDomain));
  ASSERT_TRUE(preferences.setAppValue("a", Value(), kDomain));
  takeLog();
  ASSERT_TRUE(preferences.synchronize());
  EXPECT_THAT(takeLog(), ElementsAre("fsync Preferences"));
}

TEST_F(Durability, ReadsFlushNothing) {
  ASSERT_TRUE(preferences.setAppValue("a", 1, kDomain));
  takeLog();
  preferences.copyAppValue("a", kDomain);
  preferences.copyMultiple(preferences.copyKeyList(kDomain), kDomain);
  EXPECT_THAT(takeLog(), IsEmpty());
}

TEST_F(Durability, FlushThatFailsIsReportedAndTriedAgain) {
  ASSERT_TRUE(preferences.setAppValue("a", 1, kDomain));
  systemCalls().failFsync = 1;
  const auto flushed = preferences.synchronize();
  ASSERT_FALSE(flushed);
  EXPECT_EQ(flushed.error().message(), std::string(kFile) + ": flush: Input/output error");
  EXPECT_THAT(problems, ElementsAre(flushed.error().message()));
  takeLog();
  EXPECT_TRUE(preferences.synchronize());
  EXPECT_THAT(takeLog(), SizeIs(2));
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
