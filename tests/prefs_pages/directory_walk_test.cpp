#include "platform/foundation/directory_walk.h"

#include <dirent.h>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "tests/support/environment.h"

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class DirectoryWalk : public testing::Test {
 protected:
  DirectoryWalk() { fs::create_directories(folder_); }

  void file(const std::string& name) {
    fs::create_directories((folder_ / name).parent_path());
    std::ofstream(folder_ / name) << "x";
  }

  std::vector<std::string> walk(const std::string& path = "/s") {
    std::vector<std::string> urls;
    foundation::walkDirectory(root_, {}, path, [&](std::string_view url, bool isDirectory) {
      EXPECT_EQ(url.ends_with('/'), isDirectory);
      urls.emplace_back(url);
    });
    return urls;
  }

  testing_support::TemporaryFolder temporary_;
  foundation::DeviceRoot root_{temporary_.path()};
  fs::path folder_ = fs::path(temporary_.path()) / "s";
};

TEST_F(DirectoryWalk, AFolderComesBeforeWhatItHolds) {
  file("a/b/c.caf");
  EXPECT_THAT(walk(), ElementsAre("file:///s/a/", "file:///s/a/b/", "file:///s/a/b/c.caf"));
}

TEST_F(DirectoryWalk, ListsHiddenFilesAndPackages) {
  file(".hidden");
  file("x.bundle/y");
  EXPECT_THAT(walk(), UnorderedElementsAre("file:///s/.hidden", "file:///s/x.bundle/",
                                           "file:///s/x.bundle/y"));
}

TEST_F(DirectoryWalk, KeepsTheOrderOfTheFileSystem) {
  for (int i = 0; i < 300; ++i) file(std::to_string(i * 7919 % 1000));
  std::vector<std::string> expected;
  DIR* stream = opendir(folder_.c_str());
  while (const dirent* entry = readdir(stream))
    if (entry->d_name[0] != '.') expected.push_back(std::string("file:///s/") + entry->d_name);
  closedir(stream);
  EXPECT_EQ(walk(), expected);
}

TEST_F(DirectoryWalk, EscapesNames) {
  file("a b%\u00E9#?;.caf");
  EXPECT_THAT(walk(), ElementsAre("file:///s/a%20b%25%C3%A9%23%3F%3B.caf"));
}

TEST_F(DirectoryWalk, LinksAreNotFoldersAndNeverEntered) {
  file("d/f");
  fs::create_directory_symlink("d", folder_ / "link");
  fs::create_symlink("nowhere", folder_ / "dangling");
  fs::create_directory_symlink("..", folder_ / "up");
  EXPECT_THAT(walk(), UnorderedElementsAre("file:///s/d/", "file:///s/d/f", "file:///s/link",
                                           "file:///s/dangling", "file:///s/up"));
}

TEST_F(DirectoryWalk, ALinkAsItsRootYieldsNothing) {
  file("d/f");
  fs::create_directory_symlink("s", fs::path(temporary_.path()) / "t");
  EXPECT_THAT(walk("/t"), IsEmpty());
}

TEST_F(DirectoryWalk, ALinkOnTheWayToItsRootIsFollowed) {
  file("d/f");
  fs::create_directory_symlink("/s", fs::path(temporary_.path()) / "t");
  EXPECT_THAT(walk("/t/d"), ElementsAre("file:///t/d/f"));
}

TEST_F(DirectoryWalk, AMissingRootYieldsNothing) {
  EXPECT_THAT(walk("/none"), IsEmpty());
}

TEST_F(DirectoryWalk, AFileAsItsRootYieldsNothing) {
  file("f");
  EXPECT_THAT(walk("/s/f"), IsEmpty());
}

TEST_F(DirectoryWalk, AnEmptyFolderYieldsNothing) {
  EXPECT_THAT(walk(), IsEmpty());
}

TEST_F(DirectoryWalk, OtherKindsOfFilesAreEntriesToo) {
  ASSERT_EQ(mkfifo((folder_ / "fifo").c_str(), 0600), 0);
  EXPECT_THAT(walk(), ElementsAre("file:///s/fifo"));
}

TEST_F(DirectoryWalk, AnUnreadableFolderIsSkipped) {
  file("closed/f");
  file("open/f");
  fs::permissions(folder_ / "closed", fs::perms::none);
  // Where permissions don't count, it is read.
  const bool readable = access((folder_ / "closed").c_str(), R_OK) == 0;
  auto urls = walk();
  fs::permissions(folder_ / "closed", fs::perms::owner_all);
  EXPECT_THAT(urls,
              testing::IsSupersetOf({"file:///s/closed/", "file:///s/open/", "file:///s/open/f"}));
  EXPECT_EQ(urls.size(), readable ? 4u : 3u);
}

TEST_F(DirectoryWalk, AFolderRemovedDuringTheWalkIsSkipped) {
  file("d/f");
  std::vector<std::string> urls;
  foundation::walkDirectory(root_, {}, "/s", [&](std::string_view url, bool) {
    urls.emplace_back(url);
    fs::remove_all(folder_ / "d");
  });
  EXPECT_THAT(urls, ElementsAre("file:///s/d/"));
}

const std::string kLongName(60, 'd');

// A chain of folders, each with a file.
class DeepTree {
 public:
  DeepTree(const fs::path& folder, int levels) : levels_(levels) {
    int at = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY);
    for (int i = 0; i < levels; ++i) {
      mkdirat(at, kLongName.c_str(), 0700);
      const int next = openat(at, kLongName.c_str(), O_RDONLY | O_DIRECTORY);
      close(at);
      close(openat(next, "f", O_CREAT | O_WRONLY, 0600));
      at = next;
    }
    bottom_ = at;
  }
  ~DeepTree() {
    for (int i = 0; i < levels_; ++i) {
      unlinkat(bottom_, "f", 0);
      const int up = openat(bottom_, "..", O_RDONLY | O_DIRECTORY);
      close(bottom_);
      unlinkat(up, kLongName.c_str(), AT_REMOVEDIR);
      bottom_ = up;
    }
    close(bottom_);
  }

 private:
  int levels_, bottom_;
};

TEST_F(DirectoryWalk, ReachesFoldersDeeperThanFilesCanBeOpen) {
  constexpr int kLevels = 150;  // a path of 9000 bytes
  const DeepTree tree(folder_, kLevels);
  rlimit before{};
  getrlimit(RLIMIT_NOFILE, &before);
  const rlimit few{96, before.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &few), 0);
  int files = 0, folders = 0;
  foundation::walkDirectory(root_, {}, "/s", [&](std::string_view, bool isDirectory) {
    ++(isDirectory ? folders : files);
  });
  setrlimit(RLIMIT_NOFILE, &before);
  EXPECT_EQ(folders, kLevels);
  EXPECT_EQ(files, kLevels);
}

TEST_F(DirectoryWalk, ContinuesInTheFoldersOnTheWayBackUp) {
  fs::path at = folder_;
  for (int i = 0; i < 90; ++i) {
    fs::create_directories(at / "d");
    fs::create_directories(at / "e");
    std::ofstream(at / "e" / "f") << "x";
    at /= "d";
  }
  const auto urls = walk();
  EXPECT_EQ(std::ranges::count_if(urls, [](auto& url) { return url.ends_with("/e/f"); }), 90);
}

}  // namespace
