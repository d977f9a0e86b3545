#include "platform/foundation/folder_watch.h"

#include <gmock/gmock.h>
#include <poll.h>

#include "tests/platform_foundation/temporary_root.h"

namespace {

using namespace foundation::test;
using foundation::DeviceRoot;
using foundation::FolderWatch;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr char kSettings[] = "/var/mobile/Library/Preferences";
constexpr char kDocuments[] = "/var/mobile/Documents/Quorvantis/";

class FolderWatching : public testing::Test {
 protected:
  bool isReadable() {
    pollfd queue{watch().descriptor(), POLLIN, 0};
    return poll(&queue, 1, 0) == 1;
  }
  FolderWatch& watch() {
    if (!watch_) watch_.emplace(root_, std::vector<std::string>{kSettings, kDocuments});
    return *watch_;
  }
  void makeFolders() {
    fs::create_directories(folder_.at(kSettings));
    fs::create_directories(folder_.at(kDocuments));
  }

  TemporaryRoot folder_;
  DeviceRoot root_{folder_.path()};
  std::optional<FolderWatch> watch_;
};

TEST_F(FolderWatching, SeesAFileThatIsPutInPlace) {
  makeFolders();
  watch();
  EXPECT_FALSE(isReadable());
  folder_.write(std::string(kSettings) + "/new", "1");
  fs::rename(folder_.at(kSettings) / "new", folder_.at(kSettings) / "x.plist");
  EXPECT_TRUE(isReadable());
  EXPECT_THAT(watch().takeChanges(), ElementsAre(kSettings));
  EXPECT_FALSE(isReadable());
  EXPECT_THAT(watch().takeChanges(), IsEmpty());
}

TEST_F(FolderWatching, SeesAFileThatIsWrittenInPlaceOrRemoved) {
  makeFolders();
  folder_.write(std::string(kDocuments) + "log", "1");
  watch();
  folder_.write(std::string(kDocuments) + "log", "2");
  EXPECT_THAT(watch().takeChanges(), ElementsAre(kDocuments));
  fs::remove(folder_.at(kDocuments) / "log");
  EXPECT_THAT(watch().takeChanges(), ElementsAre(kDocuments));
}

TEST_F(FolderWatching, AFileThatIsBeingWrittenHasNotChangedYet) {
  makeFolders();
  folder_.write(std::string(kDocuments) + "log", "1");
  watch();
  std::ofstream file(folder_.at(kDocuments) / "log");
  file << "half" << std::flush;
  EXPECT_THAT(watch().takeChanges(), IsEmpty());
  file.close();
  EXPECT_THAT(watch().takeChanges(), ElementsAre(kDocuments));
}

TEST_F(FolderWatching, ANewFileThatIsEmptyStillHasNotChangedYet) {
  makeFolders();
  watch();
  std::ofstream file(folder_.at(kDocuments) / "log");
  EXPECT_THAT(watch().takeChanges(), IsEmpty());
  file << "half" << std::flush;
  EXPECT_THAT(watch().takeChanges(), IsEmpty());
  file.close();
  EXPECT_THAT(watch().takeChanges(), ElementsAre(kDocuments));
}

TEST_F(FolderWatching, FollowsAFolderThatWasPutInPlaceWhileEventsWereLost) {
  makeFolders();
  folder_.write(std::string(kDocuments) + "a", "1");
  watch();
  int limit = 0;
  ASSERT_TRUE(std::ifstream("/proc/sys/fs/inotify/max_queued_events") >> limit);
  if (limit > 1 << 17) GTEST_SKIP() << "the queue of events is too long to be filled";
  const auto a = folder_.at(kDocuments) / "a", b = folder_.at(kDocuments) / "b";
  for (int i = 0; i <= limit; i += 4) {
    fs::rename(a, b);
    fs::rename(b, a);
  }
  const auto documents = folder_.at(kDocuments).parent_path();
  fs::rename(documents, folder_.at("/old"));
  fs::create_directories(documents);
  EXPECT_THAT(watch().takeChanges(), ElementsAre(kDocuments, kSettings));
  watch().takeChanges();
  folder_.write(std::string(kDocuments) + "log", "1");
  EXPECT_THAT(watch().takeChanges(), ElementsAre(kDocuments));
}

TEST_F(FolderWatching, SeesALinkAndASecondName) {
  makeFolders();
  folder_.write("/file", "1");
  watch();
  fs::create_symlink("/file", folder_.at(kDocuments) / "log");
  EXPECT_THAT(watch().takeChanges(), ElementsAre(kDocuments));
  fs::create_hard_link(folder_.at("/file"), folder_.at(kSettings) / "x.plist");
  EXPECT_THAT(watch().takeChanges(), ElementsAre(kSettings));
}

TEST_F(FolderWatching, LocksAndFilesWithoutTheirNameYetAreNoChange) {
  makeFolders();
  watch();
  folder_.write(std::string(kSettings) + "/.x.plist.lock", "");
  folder_.write(std::string(kSettings) + "/.x.plist.0123", "1");
  EXPECT_THAT(watch().takeChanges(), IsEmpty());
  fs::rename(folder_.at(kSettings) / ".x.plist.0123", folder_.at(kSettings) / "x.plist");
  EXPECT_THAT(watch().takeChanges(), ElementsAre(kSettings));
}

TEST_F(FolderWatching, ReadingIsNoChange) {
  makeFolders();
  folder_.write(std::string(kDocuments) + "log", "1");
  watch();
  EXPECT_EQ(folder_.contents(std::string(kDocuments) + "log"), "1");
  EXPECT_FALSE(isReadable());
}

TEST_F(FolderWatching, FollowsFoldersThatAreMadeLater) {
  watch();
  folder_.write(std::string(kDocuments) + "log", "1");
  EXPECT_THAT(watch().takeChanges(), testing::Contains(kDocuments));
  folder_.write(std::string(kDocuments) + "log", "2");
  EXPECT_THAT(watch().takeChanges(), ElementsAre(kDocuments));
  folder_.write(std::string(kSettings) + "/x.plist", "1");
  EXPECT_THAT(watch().takeChanges(), testing::Contains(kSettings));
  folder_.write(std::string(kSettings) + "/x.plist", "2");
  EXPECT_THAT(watch().takeChanges(), ElementsAre(kSettings));
}

TEST_F(FolderWatching, FollowsTheFolderThatTakesAnothersPlace) {
  makeFolders();
  watch();
  fs::rename(folder_.at("/var/mobile"), folder_.at("/var/before"));
  makeFolders();
  EXPECT_THAT(watch().takeChanges(), ElementsAre(kDocuments, kSettings));
  folder_.write(std::string(kSettings) + "/x.plist", "1");
  EXPECT_THAT(watch().takeChanges(), ElementsAre(kSettings));
}

TEST_F(FolderWatching, LeavesTheFolderWhosePlaceIsTaken) {
  makeFolders();
  watch();
  fs::rename(folder_.at("/var/mobile"), folder_.at("/var/before"));
  makeFolders();
  EXPECT_THAT(watch().takeChanges(), ElementsAre(kDocuments, kSettings));
  EXPECT_THAT(watch().takeChanges(), IsEmpty());
  folder_.write("/var/before/Library/Preferences/x.plist", "1");
  fs::rename(folder_.at("/var/before/Library"), folder_.at("/var/before/else"));
  EXPECT_FALSE(isReadable());
}

TEST_F(FolderWatching, LeavesTheFolderAboveTheRootOnceThatIsMade) {
  const fs::path above = folder_.at("/above");
  fs::create_directories(above);
  DeviceRoot root((above / "root").string());
  watch_.emplace(root, std::vector<std::string>{kSettings});
  fs::create_directories(above / "root");
  EXPECT_THAT(watch().takeChanges(), ElementsAre(kSettings));
  EXPECT_THAT(watch().takeChanges(), IsEmpty());
  fs::create_directories(above / "another");
  EXPECT_FALSE(isReadable());
  fs::remove_all(above / "root");
  EXPECT_THAT(watch().takeChanges(), ElementsAre(kSettings));
  fs::create_directories(above / "root/var/mobile/Library/Preferences");
  EXPECT_THAT(watch().takeChanges(), ElementsAre(kSettings));
  std::ofstream(above / "root/var/mobile/Library/Preferences/x.plist") << "1";
  EXPECT_THAT(watch().takeChanges(), ElementsAre(kSettings));
}

TEST_F(FolderWatching, FollowsAFolderThatIsRemovedAndMadeAnew) {
  makeFolders();
  watch();
  fs::remove_all(folder_.at(kSettings));
  EXPECT_THAT(watch().takeChanges(), ElementsAre(kSettings));
  makeFolders();
  EXPECT_THAT(watch().takeChanges(), ElementsAre(kSettings));
  folder_.write(std::string(kSettings) + "/x.plist", "1");
  EXPECT_THAT(watch().takeChanges(), ElementsAre(kSettings));
}

TEST_F(FolderWatching, LinksInsideTheRootAreFollowedAsTheRootTakesThem) {
  fs::create_directories(folder_.at("/private/var/mobile/Library/Preferences"));
  fs::create_symlink("/private/var", folder_.at("/var"));
  watch();
  folder_.write("/private/var/mobile/Library/Preferences/x.plist", "1");
  EXPECT_THAT(watch().takeChanges(), ElementsAre(kSettings));
}

TEST_F(FolderWatching, OtherFoldersAreNotFollowed) {
  makeFolders();
  watch();
  folder_.write("/var/mobile/Documents/another", "1");
  folder_.write("/var/mobile/Library/Preferences/deeper/x", "1");
  watch().takeChanges();
  folder_.write("/var/mobile/Documents/another", "2");
  folder_.write("/var/mobile/Library/Preferences/deeper/x", "2");
  EXPECT_THAT(watch().takeChanges(), IsEmpty());
}

}  // namespace
