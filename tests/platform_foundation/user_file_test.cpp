#include "platform/foundation/user_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>

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

TEST_F(UserFile, IsWrittenToWhereItIsNotARegularFile) {
  EXPECT_TRUE(writeUserFile("/dev/null", {}, Existing::Keep));
}

}  // namespace
}  // namespace foundation::test
