#include "platform/foundation/user_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <future>

#include "tests/platform_foundation/system_calls.h"
#include "tests/platform_foundation/temporary_root.h"

namespace foundation::test {
namespace {

using ::testing::ElementsAre;

struct UserFile : ::testing::Test {
  UserFile() {
    folder.write("/old", "old");
    systemCalls() = {};
  }
  int write(const std::string& path, Existing existing) {
    const std::uint8_t bytes[] = {'n', 'e', 'w'};
    const auto written = writeUserFile(folder.at(path), bytes, existing);
    return written ? 0 : written.error().code;
  }
  TemporaryRoot folder;
};

TEST_F(UserFile, TakesThePlaceOfAnother) {
  EXPECT_EQ(write("/old", Existing::Overwrite), 0);
  EXPECT_EQ(folder.contents("/old"), "new");
}

TEST_F(UserFile, LeavesAnotherAsItIs) {
  EXPECT_EQ(write("/old", Existing::Keep), EEXIST);
  EXPECT_EQ(folder.contents("/old"), "old");
  EXPECT_EQ(write("/free", Existing::Keep), 0);
  EXPECT_EQ(folder.contents("/free"), "new");
}

TEST_F(UserFile, LeavesOneThatWasMadeMeanwhile) {
  systemCalls().atNextFsync = [&] { folder.write("/free", "another"); };
  EXPECT_EQ(write("/free", Existing::Keep), EEXIST);
  EXPECT_EQ(folder.contents("/free"), "another");
}

TEST_F(UserFile, IsFlushedBeforeAndItsFolderAfterTheRename) {
  std::filesystem::create_directory(folder.at("/folder"));
  EXPECT_EQ(write("/folder/file", Existing::Overwrite), 0);
  EXPECT_THAT(systemCalls().log, ElementsAre("fsync *", "rename * file", "fsync folder"));
}

TEST_F(UserFile, IsThereButUnconfirmedWhereItsFolderIsNotFlushed) {
  systemCalls().failFsync = 2;
  const auto written = writeUserFile(folder.at("/free"), {}, Existing::Keep);
  ASSERT_FALSE(written);
  EXPECT_EQ(written.error().kind, platform::ErrorKind::Unconfirmed);
  EXPECT_TRUE(std::filesystem::exists(folder.at("/free")));
}

TEST_F(UserFile, FifoThatNobodyReadsIsAnErrorAtOnce) {
  ASSERT_EQ(mkfifo(folder.at("/fifo").c_str(), 0600), 0);
  const auto written = writeUserFile(folder.at("/fifo"), {}, Existing::Overwrite);
  ASSERT_FALSE(written);
  EXPECT_EQ(written.error().what, "nobody reads it");
}

TEST_F(UserFile, FifoGetsAllWhoeverReadsItSlowly) {
  ASSERT_EQ(mkfifo(folder.at("/fifo").c_str(), 0600), 0);
  const std::vector<std::uint8_t> bytes(1 << 20, 'x');
  const Descriptor reading(open(folder.at("/fifo").c_str(), O_RDONLY | O_NONBLOCK));
  auto written = std::async(std::launch::async, [&] {
    return writeUserFile(folder.at("/fifo"), bytes, Existing::Overwrite);
  });
  fcntl(reading.number(), F_SETFL, 0);
  std::size_t count = 0;
  std::vector<std::uint8_t> block(1 << 16);
  while (count < bytes.size())
    if (const ssize_t step = read(reading.number(), block.data(), block.size()); step > 0)
      count += static_cast<std::size_t>(step);
  EXPECT_TRUE(written.get());
  EXPECT_EQ(count, bytes.size());
}

TEST_F(UserFile, IsWrittenToWhereItIsNotARegularFile) {
  EXPECT_TRUE(writeUserFile("/dev/null", {}, Existing::Keep));
}

}  // namespace
}  // namespace foundation::test
