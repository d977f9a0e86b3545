#include "platform/foundation/directory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>

#include "platform/foundation/device_root.h"
#include "tests/platform_foundation/temporary_root.h"

namespace foundation::test {
namespace {

using ::testing::UnorderedElementsAre;

struct DirectoryTest : ::testing::Test {
  TemporaryRoot folder;
  DeviceRoot root{folder.path()};

  Directory open(std::string_view path) { return std::move(*root.openDirectory(path)); }
};

TEST_F(DirectoryTest, ListsItsNamesEachTimeAnew) {
  folder.write("/folder/a", "");
  const Directory directory = open("/folder/");
  EXPECT_EQ(directory.path(), "/folder");
  EXPECT_THAT(*directory.names(), UnorderedElementsAre("a"));
  folder.write("/folder/b", "");
  EXPECT_THAT(*directory.names(), UnorderedElementsAre("a", "b"));
}

TEST_F(DirectoryTest, ReadsOneFileAfterTheOther) {
  folder.write("/folder/long", std::string(10'000, 'x'));
  folder.write("/folder/short", "text");
  folder.write("/folder/empty", "");
  Directory directory = open("/folder");
  EXPECT_EQ(textOf(*directory.read("long")), std::string(10'000, 'x'));
  EXPECT_EQ(textOf(*directory.read("short")), "text");
  EXPECT_EQ(textOf(*directory.read("empty")), "");
}

TEST_F(DirectoryTest, LinkInsideTheFolderIsFollowed) {
  folder.write("/folder/file", "text");
  fs::create_symlink("file", folder.at("/folder/link"));
  EXPECT_EQ(textOf(*open("/folder").read("link")), "text");
}

TEST_F(DirectoryTest, LinkOutOfTheFolderIsRefused) {
  folder.write("/other", "other");
  folder.write("/folder/file", "text");
  fs::create_symlink("../other", folder.at("/folder/relative"));
  fs::create_symlink("/other", folder.at("/folder/absolute"));
  Directory directory = open("/folder");
  EXPECT_EQ(directory.read("relative").error().code, EXDEV);
  EXPECT_THAT(directory.read("relative").error().message(),
              testing::EndsWith("/relative: a link that leads out of its folder"));
  EXPECT_EQ(directory.read("absolute").error().code, EXDEV);
  EXPECT_EQ(directory.read("../other").error().code, EXDEV);
}

TEST_F(DirectoryTest, FifoAndFolderAreErrorsAndDoNotBlock) {
  folder.write("/folder/sub/file", "");
  ASSERT_EQ(mkfifo(folder.at("/folder/fifo").c_str(), 0600), 0);
  Directory directory = open("/folder");
  EXPECT_EQ(directory.read("fifo").error().message(), "/folder/fifo: not a regular file");
  EXPECT_EQ(directory.read("sub").error().code, EISDIR);
}

TEST_F(DirectoryTest, MissingFileIsAnErrorWithItsPath) {
  folder.write("/folder/file", "");
  EXPECT_EQ(open("/folder").read("x").error().message(), "/folder/x: No such file or directory");
  EXPECT_EQ(open("/").read("x").error().path, "/x");
}

TEST_F(DirectoryTest, StaysTheSameFolderWhenItMoves) {
  folder.write("/folder/file", "text");
  Directory directory = open("/folder");
  fs::rename(folder.at("/folder"), folder.at("/moved"));
  EXPECT_EQ(textOf(*directory.read("file")), "text");
}

}  // namespace
}  // namespace foundation::test
