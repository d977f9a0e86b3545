#include "platform/foundation/fallback_folder.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "platform/foundation/directory_walk.h"
#include "tests/support/environment.h"

namespace {

namespace fs = std::filesystem;

class FallbackFolder : public testing::Test {
 protected:
  FallbackFolder() {
    fs::create_directories(fs::path(machine_.path()) / "stereo");
    std::ofstream(fs::path(machine_.path()) / "stereo" / "bell.oga") << "x";
  }

  bool opens(const std::string& path) {
    return static_cast<bool>(foundation::openWithFallback(root_, fallback_, path, O_RDONLY));
  }

  testing_support::TemporaryFolder temporary_, machine_;
  foundation::DeviceRoot root_{temporary_.path()};
  foundation::FallbackFolder fallback_{"/sounds", machine_.path()};
};

TEST_F(FallbackFolder, StandsInForAMissingFolder) {
  EXPECT_TRUE(opens("/sounds"));
  EXPECT_TRUE(opens("/sounds/stereo/bell.oga"));
  EXPECT_FALSE(opens("/sounds/none"));
}

TEST_F(FallbackFolder, ShowsNothingUnderOtherPaths) {
  EXPECT_FALSE(opens("/other"));
  EXPECT_FALSE(opens("/soundsandmore"));
  EXPECT_FALSE(opens("/stereo/bell.oga"));
}

TEST_F(FallbackFolder, IsHiddenByTheRootsOwnFolderEvenAnEmptyOne) {
  fs::create_directory(fs::path(temporary_.path()) / "sounds");
  EXPECT_TRUE(opens("/sounds"));
  EXPECT_FALSE(opens("/sounds/stereo/bell.oga"));
}

TEST_F(FallbackFolder, IsHiddenByAFileInItsPlace) {
  std::ofstream(fs::path(temporary_.path()) / "sounds") << "x";
  EXPECT_FALSE(opens("/sounds/stereo/bell.oga"));
}

TEST_F(FallbackFolder, StandsInWhereTheWholeRootIsMissing) {
  foundation::DeviceRoot none(temporary_.path() + "/none");
  EXPECT_TRUE(foundation::openWithFallback(none, fallback_, "/sounds/stereo", O_RDONLY));
}

TEST_F(FallbackFolder, ShowsNothingOutsideItself) {
  fs::create_symlink("/etc/passwd", fs::path(machine_.path()) / "out");
  EXPECT_FALSE(opens("/sounds/out"));
  EXPECT_FALSE(opens("/sounds/../etc/passwd"));
}

TEST_F(FallbackFolder, AMissingFallbackIsAnError) {
  fallback_.machineDirectory += "/none";
  const auto opened = foundation::openWithFallback(root_, fallback_, "/sounds", O_RDONLY);
  ASSERT_FALSE(opened);
  EXPECT_EQ(opened.error().code, ENOENT);
}

TEST_F(FallbackFolder, NoneIsTheRootAlone) {
  EXPECT_FALSE(foundation::openWithFallback(root_, {}, "/sounds", O_RDONLY));
}

TEST_F(FallbackFolder, IsWalkedUnderThePlatformPath) {
  std::vector<std::string> urls;
  foundation::walkDirectory(root_, fallback_, "/sounds",
                            [&](std::string_view url, bool) { urls.emplace_back(url); });
  EXPECT_EQ(urls,
            (std::vector<std::string>{"file:///sounds/stereo/", "file:///sounds/stereo/bell.oga"}));
}

}  // namespace
