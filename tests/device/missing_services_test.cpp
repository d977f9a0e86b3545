#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/device.h"
#include "tests/services/temporary_folder.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

// A machine that has none of the modules.
class Missing : public testing::Environment {
 public:
  void SetUp() override { setenv("QUORVANTIS_MODULES", folder.path.c_str(), 1); }
  TemporaryFolder folder;
};
[[maybe_unused]] const auto* const registered = testing::AddGlobalTestEnvironment(new Missing);

class MissingServices : public testing::Test {
 protected:
  TemporaryFolder folder_;
  host::Device device_{{.root = folder_.path.string(), .contacts = {}, .idiom = {}},
                       std::make_unique<foundation::ManualQueue>()};
  preferences::Environment& environment_ = device_.environment();
};

TEST_F(MissingServices, AUrlThatCantBeOpenedSaysWhy) {
  EXPECT_FALSE(environment_.urls.canOpen("https://example.org/"));
  EXPECT_FALSE(environment_.urls.open("https://example.org/"));
  EXPECT_THAT(
      device_.takeProblems(),
      ElementsAre(StartsWith("can't open https://example.org/: opening URLs is not available: ")));
}

TEST_F(MissingServices, TextThatIsSortedWithoutCollationIsAWarningAndNoProblem) {
  environment_.collator.compare("a", "é");
  environment_.collator.compare("b", "é");
  EXPECT_THAT(device_.takeProblems(), IsEmpty());
  EXPECT_THAT(device_.takeWarnings(), ElementsAre(StartsWith("collation is not available: ")));
  EXPECT_THAT(device_.takeWarnings(), IsEmpty());
}

TEST_F(MissingServices, AHandlerIsToldOfBothEvenIfItComesLater) {
  environment_.collator.compare("a", "é");
  std::vector<std::string> told;
  device_.setProblemHandler([&](const std::string& message) { told.push_back(message); });
  environment_.urls.open("https://example.org/");
  device_.setProblemHandler({});
  EXPECT_THAT(told, ElementsAre(HasSubstr("collation"), HasSubstr("https://example.org/")));
  EXPECT_THAT(device_.takeProblems(), IsEmpty());
  EXPECT_THAT(device_.takeWarnings(), IsEmpty());
}

}  // namespace
