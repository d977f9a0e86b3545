#include "platform/foundation/device_root.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>

#include "platform/foundation/file_reading.h"
#include "tests/platform_foundation/temporary_root.h"

namespace foundation::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

struct DeviceRootTest : ::testing::Test {
  TemporaryRoot folder;
  DeviceRoot root{folder.path()};

  std::string read(std::string_view path, Links links = Links::Follow) {
    const auto bytes = root.read(path, links);
    return bytes ? textOf(*bytes) : "error " + std::to_string(bytes.error().code);
  }
  std::string error(int code) { return "error " + std::to_string(code); }
};

TEST_F(DeviceRootTest, MissingRootReadsAsMissingFiles) {
  EXPECT_EQ(read("/var/x"), error(ENOENT));
  EXPECT_FALSE(root.exists("/"));
  const auto names = root.contentsOfDirectory("/var");
  ASSERT_FALSE(names);
  EXPECT_EQ(names.error().code, ENOENT);
  EXPECT_FALSE(fs::exists(folder.path()));
}

TEST_F(DeviceRootTest, OpensAFolderThatItMakesIfNeedBe) {
  for (int round = 0; round < 2; ++round) {
    const auto made = root.openOrCreateDirectory("/a/b");
    ASSERT_TRUE(made);
    EXPECT_EQ(made->path(), "/a/b");
  }
  EXPECT_EQ(modeOf(folder.at("/a/b")), 0700u);
  folder.write("/file", "text");
  const auto refused = root.openOrCreateDirectory("/file");
  ASSERT_FALSE(refused);
  EXPECT_EQ(refused.error().code, ENOTDIR);
}

TEST_F(DeviceRootTest, ReadsAFileWhole) {
  const std::string large(300'000, 'x');
  folder.write("/a/small", "text");
  folder.write("/a/empty", "");
  folder.write("/a/large", large);
  EXPECT_EQ(read("/a/small"), "text");
  EXPECT_EQ(read("a/small"), "text");
  EXPECT_EQ(read("/a/empty"), "");
  EXPECT_EQ(read("/a/large"), large);
}

TEST_F(DeviceRootTest, RelativeRootIsBelowTheWorkingFolder) {
  folder.write("/a", "text");
  EXPECT_TRUE(succeeded(startProcess([&] {
    if (chdir(folder.outside().c_str()) != 0) return false;
    DeviceRoot relative("root");
    DeviceRoot fresh("fresh");
    return relative.read("/a") && fresh.createDirectory("/b") &&
           fs::is_directory(folder.outside() / "fresh/b");
  })));
}

TEST_F(DeviceRootTest, TrailingSlashOfTheRootIsDropped) {
  EXPECT_EQ(DeviceRoot("/a/b//").directory(), "/a/b");
  EXPECT_EQ(DeviceRoot("/").directory(), "/");
}

TEST_F(DeviceRootTest, DotDotNeverEscapes) {
  folder.write("/inside", "inside");
  std::ofstream(folder.outside() / "inside") << "outside";
  EXPECT_EQ(read("/../inside"), "inside");
  EXPECT_EQ(read("../../../../inside"), "inside");
  folder.write("/a/file", "");
  EXPECT_EQ(read("/a/../../inside"), "inside");
}

TEST_F(DeviceRootTest, AbsoluteLinkIsResolvedInsideTheRoot) {
  folder.write("/target", "inside");
  fs::create_symlink("/target", folder.at("/link"));
  EXPECT_EQ(read("/link"), "inside");
}

TEST_F(DeviceRootTest, AbsoluteFolderLinkIsResolvedInsideTheRoot) {
  folder.write("/etc/passwd", "the root's own");
  fs::create_symlink("/etc", folder.at("/link"));
  EXPECT_EQ(read("/link/passwd"), "the root's own");
}

TEST_F(DeviceRootTest, RelativeLinkThatClimbsOutEndsAtTheRoot) {
  folder.write("/a/file", "");
  std::ofstream(folder.outside() / "secret") << "outside";
  fs::create_symlink("../../secret", folder.at("/a/link"));
  EXPECT_EQ(read("/a/link"), error(ENOENT));
  folder.write("/secret", "inside");
  EXPECT_EQ(read("/a/link"), "inside");
}

TEST_F(DeviceRootTest, LinkToAFileOutsideIsMissing) {
  std::ofstream(folder.outside() / "secret") << "outside";
  folder.write("/a", "");
  fs::create_symlink(folder.outside() / "secret", folder.at("/link"));
  EXPECT_EQ(read("/link"), error(ENOENT));
  EXPECT_FALSE(root.exists("/link"));
}

TEST_F(DeviceRootTest, LinkCanBeRefused) {
  folder.write("/folder/file", "text");
  fs::create_symlink("file", folder.at("/folder/link"));
  fs::create_symlink("folder", folder.at("/way"));
  EXPECT_EQ(read("/folder/link", Links::Refuse), error(ELOOP));
  EXPECT_EQ(read("/folder/file", Links::Refuse), "text");
  EXPECT_EQ(read("/way/file", Links::Refuse), "text");
}

TEST_F(DeviceRootTest, LinkLoopIsAnError) {
  folder.write("/a", "");
  fs::create_symlink("loop", folder.at("/loop"));
  EXPECT_EQ(read("/loop"), error(ELOOP));
}

TEST_F(DeviceRootTest, FifoIsAnErrorAndDoesNotBlock) {
  folder.write("/a", "");
  ASSERT_EQ(mkfifo(folder.at("/fifo").c_str(), 0600), 0);
  const auto bytes = root.read("/fifo");
  ASSERT_FALSE(bytes);
  EXPECT_EQ(bytes.error().message(), "/fifo: not a regular file");
}

TEST_F(DeviceRootTest, FolderIsNotAFile) {
  folder.write("/folder/file", "");
  EXPECT_EQ(read("/folder"), error(EISDIR));
}

TEST_F(DeviceRootTest, FileAsFolderIsAnError) {
  folder.write("/file", "");
  EXPECT_EQ(read("/file/x"), error(ENOTDIR));
  EXPECT_FALSE(root.contentsOfDirectory("/file"));
}

TEST_F(DeviceRootTest, FileThatIsTooLargeIsRefused) {
  folder.write("/huge", "");
  fs::resize_file(folder.at("/huge"), std::uintmax_t{64} << 20);
  EXPECT_TRUE(root.read("/huge"));
  fs::resize_file(folder.at("/huge"), (std::uintmax_t{64} << 20) + 1);
  const auto bytes = root.read("/huge");
  ASSERT_FALSE(bytes);
  EXPECT_EQ(bytes.error().code, EFBIG);
  EXPECT_EQ(bytes.error().message(),
            "/huge: 67108865 bytes, at most 67108864 are read: File too large");
}

TEST_F(DeviceRootTest, EndlessFileOfUnknownSizeIsRefused) {
  const Descriptor zeros(open("/dev/zero", O_RDONLY | O_CLOEXEC));
  std::vector<std::uint8_t> buffer;
  const auto length = readWhole(zeros, kUnknownSize, buffer, "zeros");
  ASSERT_FALSE(length);
  EXPECT_EQ(length.error().message(),
            "zeros: more than 67108864 bytes, at most 67108864 are read: File too large");
  EXPECT_LE(buffer.capacity(), std::size_t{160} << 20);
}

TEST_F(DeviceRootTest, FileThatReportsNoSizeIsReadWhole) {
  EXPECT_THAT(textOf(*DeviceRoot("/proc").read("/version")), ::testing::StartsWith("Linux"));
}

TEST_F(DeviceRootTest, PathWithNulIsRefused) {
  folder.write("/file", "text");
  EXPECT_EQ(read(std::string_view("/file\0x", 7)), error(EINVAL));
}

TEST_F(DeviceRootTest, ErrorNamesPathAndReason) {
  EXPECT_EQ(root.read("/var/x").error().message(), "/var/x: No such file or directory");
  EXPECT_EQ((platform::Error{"/x", ENOSYS}.message()),
            "/x: the kernel is too old (Linux 5.6 or later is needed)");
}

TEST_F(DeviceRootTest, ListsAFolderWithoutItself) {
  folder.write("/folder/b", "");
  folder.write("/folder/.a", "");
  const auto names = root.contentsOfDirectory("/folder");
  ASSERT_TRUE(names);
  EXPECT_THAT(*names, UnorderedElementsAre(".a", "b"));
  EXPECT_THAT(*root.contentsOfDirectory("/folder/"), UnorderedElementsAre(".a", "b"));
}

TEST_F(DeviceRootTest, CreatedFoldersAreTheOwnersAlone) {
  ASSERT_TRUE(root.createDirectory("/var/mobile/Documents/"));
  for (const char* made : {"", "/var", "/var/mobile", "/var/mobile/Documents"}) {
    EXPECT_EQ(modeOf(folder.at(made)), 0700u) << made;
  }
}

TEST_F(DeviceRootTest, RootIsMadeWithItsParents) {
  DeviceRoot deep((folder.outside() / "share/quorvantis").string());
  ASSERT_TRUE(deep.createDirectory("/var"));
  EXPECT_EQ(modeOf(folder.outside() / "share"), 0700u);
  EXPECT_EQ(modeOf(folder.outside() / "share/quorvantis/var"), 0700u);
}

TEST_F(DeviceRootTest, FolderThatIsThereIsLeftAlone) {
  folder.write("/folder/file", "text");
  fs::permissions(folder.at("/folder"), fs::perms(0755));
  EXPECT_TRUE(root.createDirectory("/folder"));
  EXPECT_EQ(modeOf(folder.at("/folder")), 0755u);
  EXPECT_EQ(read("/folder/file"), "text");
}

TEST_F(DeviceRootTest, FolderBehindALinkIsMadeInsideTheRoot) {
  ASSERT_TRUE(root.createDirectory("/private/var"));
  fs::create_symlink("/private/var", folder.at("/var"));
  ASSERT_TRUE(root.createDirectory("/var/mobile"));
  EXPECT_TRUE(fs::is_directory(folder.at("/private/var/mobile")));
}

TEST_F(DeviceRootTest, FolderInPlaceOfAFileIsAnError) {
  folder.write("/file", "");
  EXPECT_EQ(root.createDirectory("/file").error().code, ENOTDIR);
  EXPECT_EQ(root.createDirectory("/file/x").error().code, ENOTDIR);
}

TEST_F(DeviceRootTest, FolderInPlaceOfADanglingLinkIsAnError) {
  ASSERT_TRUE(root.createDirectory("/a"));
  fs::create_symlink("nowhere", folder.at("/a/link"));
  EXPECT_FALSE(root.createDirectory("/a/link"));
  EXPECT_FALSE(root.createDirectory("/a/link/b"));
}

TEST_F(DeviceRootTest, RootThatIsAFileIsAnError) {
  std::ofstream(folder.path()) << "file";
  EXPECT_EQ(read("/a"), error(ENOTDIR));
  EXPECT_EQ(root.createDirectory("/a").error().code, ENOTDIR);
  EXPECT_FALSE(root.writeDurably("/a", bytesOf("x")));
}

TEST_F(DeviceRootTest, RemovesAFileAndALinkButNotItsTarget) {
  folder.write("/folder/file", "text");
  fs::create_symlink("file", folder.at("/folder/link"));
  EXPECT_TRUE(root.remove("/folder/link"));
  EXPECT_EQ(read("/folder/file"), "text");
  EXPECT_TRUE(root.remove("/folder/file"));
  EXPECT_TRUE(root.remove("/folder/", Folders::Remove));
  EXPECT_THAT(folder.names("/"), IsEmpty());
}

TEST_F(DeviceRootTest, RemovesAFolderWithAllThatItHoldsAndNothingThatItsLinksLeadTo) {
  folder.write("/kept/file", "text");
  folder.write("/folder/a/b/file", "");
  folder.write("/folder/.hidden", "");
  ASSERT_EQ(mkfifo(folder.at("/folder/fifo").c_str(), 0600), 0);
  fs::create_symlink("../kept", folder.at("/folder/link"));
  EXPECT_TRUE(root.remove("/folder", Folders::Remove));
  EXPECT_THAT(folder.names("/"), ElementsAre("kept"));
  EXPECT_EQ(read("/kept/file"), "text");
}

TEST_F(DeviceRootTest, RemovesNoFolderUnlessAsked) {
  folder.write("/folder/file", "text");
  fs::create_directory(folder.at("/empty"));
  EXPECT_EQ(root.remove("/folder").error().message(), "/folder: Is a directory");
  EXPECT_EQ(root.remove("/empty").error().code, EISDIR);
  EXPECT_EQ(read("/folder/file"), "text");
  EXPECT_THAT(folder.names("/"), UnorderedElementsAre("empty", "folder"));
}

TEST_F(DeviceRootTest, RemovingAFolderSaysWhyItCouldNot) {
  EXPECT_TRUE(succeedsUnprivileged([] {
    TemporaryRoot own;
    DeviceRoot locked(own.path());
    own.write("/folder/inner/file", "");
    fs::permissions(own.at("/folder/inner"), fs::perms(0500));
    const auto removed = locked.remove("/folder", Folders::Remove);
    fs::permissions(own.at("/folder/inner"), fs::perms(0700));
    return !removed && removed.error().code == EACCES && removed.error().path == "/folder";
  }));
}

TEST_F(DeviceRootTest, NameIsTakenByALinkThatLeadsNowhere) {
  folder.write("/file", "");
  fs::create_symlink("nowhere", folder.at("/link"));
  fs::create_symlink("loop", folder.at("/loop"));
  for (const char* taken : {"/", "/file", "/link", "/loop"}) EXPECT_TRUE(root.hasEntry(taken));
  EXPECT_FALSE(root.hasEntry("/nowhere"));
  EXPECT_FALSE(root.exists("/link"));
}

TEST_F(DeviceRootTest, RemovingWhatIsNotThereIsAnError) {
  EXPECT_EQ(root.remove("/a/b").error().code, ENOENT);
  folder.write("/a", "");
  EXPECT_EQ(root.remove("/b").error().code, ENOENT);
  EXPECT_EQ(root.remove("/b").error().path, "/b");
  for (const char* none : {"/", "", "/a/..", "."}) EXPECT_FALSE(root.remove(none)) << none;
}

TEST_F(DeviceRootTest, RemoveNeverLeavesTheRoot) {
  std::ofstream(folder.outside() / "file") << "outside";
  folder.write("/a", "");
  EXPECT_FALSE(root.remove("/../file"));
  fs::create_symlink("..", folder.at("/up"));
  EXPECT_FALSE(root.remove("/up/file"));
  EXPECT_TRUE(fs::exists(folder.outside() / "file"));
}

TEST_F(DeviceRootTest, WritesAFileOfTheOwnersAloneInMissingFolders) {
  ASSERT_TRUE(root.writeDurably("/var/mobile/file", bytesOf("text")));
  EXPECT_EQ(read("/var/mobile/file"), "text");
  EXPECT_EQ(modeOf(folder.at("/var/mobile/file")), 0600u);
  EXPECT_EQ(modeOf(folder.path()), 0700u);
  EXPECT_THAT(folder.names("/var/mobile"), ElementsAre("file"));
}

TEST_F(DeviceRootTest, WriteReplacesTheOldFile) {
  folder.write("/file", "a longer old text");
  ASSERT_TRUE(root.writeDurably("/file", bytesOf("new")));
  EXPECT_EQ(read("/file"), "new");
  EXPECT_EQ(modeOf(folder.at("/file")), 0600u);
}

TEST_F(DeviceRootTest, WriteReplacesALinkNotItsTarget) {
  folder.write("/target", "target");
  fs::create_symlink("target", folder.at("/link"));
  ASSERT_TRUE(root.writeDurably("/link", bytesOf("new")));
  EXPECT_EQ(read("/target"), "target");
  EXPECT_EQ(read("/link", Links::Refuse), "new");
}

TEST_F(DeviceRootTest, WriteReplacesNoFolder) {
  folder.write("/folder/inner/file", "old");
  fs::create_directory(folder.at("/empty"));
  for (const char* taken : {"/folder", "/empty"})
    EXPECT_EQ(root.writeDurably(taken, bytesOf("new")).error().code, EISDIR) << taken;
  EXPECT_EQ(read("/folder/inner/file"), "old");
  EXPECT_THAT(folder.names("/"), UnorderedElementsAre("empty", "folder"));
}

TEST_F(DeviceRootTest, WriteNeverLeavesTheRoot) {
  ASSERT_TRUE(root.createDirectory("/"));
  ASSERT_TRUE(root.writeDurably("/../../file", bytesOf("x")));
  EXPECT_TRUE(fs::exists(folder.at("/file")));
  EXPECT_FALSE(fs::exists(folder.outside() / "file"));
}

TEST_F(DeviceRootTest, WriteToNoNameIsAnError) {
  for (const char* none : {"", "/", "/a/..", "/."}) {
    EXPECT_FALSE(root.writeDurably(none, bytesOf("x"))) << none;
  }
}

TEST_F(DeviceRootTest, WriteWithoutPermissionIsAnError) {
  EXPECT_TRUE(succeedsUnprivileged([] {
    TemporaryRoot own;
    DeviceRoot locked(own.path());
    if (!locked.createDirectory("/a")) return false;
    fs::permissions(own.at("/a"), fs::perms(0500));
    const auto written = locked.writeDurably("/a/file", bytesOf("x"));
    fs::permissions(own.at("/a"), fs::perms(0700));
    return !written && written.error().code == EACCES && written.error().path == "/a/file";
  }));
}

}  // namespace
}  // namespace foundation::test
