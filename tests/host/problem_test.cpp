#include "host/problem.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/services/temporary_folder.h"

namespace {

using host::Problem;
using host::Source;

constexpr char kDomainFile[] = "/var/mobile/Library/Preferences/com.zorvek.quorvantis.plist";

struct HostProblem : testing::Test {
  std::string onMachine(Source source, const std::string& file) {
    return host::onMachine(Problem{.source = source, .file = file}, root).file;
  }
  TemporaryFolder folder;
  foundation::DeviceRoot root{folder.path.string()};
  const std::string real = std::filesystem::canonical(folder.path).string();
};

TEST_F(HostProblem, APlatformPathIsBelowTheRoot) {
  EXPECT_EQ(onMachine(Source::Settings, kDomainFile), real + kDomainFile);
  EXPECT_EQ(onMachine(Source::Settings, "/var"), real + "/var");
  EXPECT_EQ(onMachine(Source::Backups, kDomainFile), real + kDomainFile);
}

TEST_F(HostProblem, APathOfThisMachineStays) {
  EXPECT_EQ(onMachine(Source::Settings, root.directory()), root.directory());
  EXPECT_EQ(onMachine(Source::Backups, "/state/quorvantis/0/day"), "/state/quorvantis/0/day");
  EXPECT_EQ(onMachine(Source::Request, "/x/y.plist"), "/x/y.plist");
  EXPECT_EQ(onMachine(Source::Request, "/var/mobile/x.plist"), "/var/mobile/x.plist");
  EXPECT_EQ(onMachine(Source::Settings, ""), "");
}

}  // namespace
