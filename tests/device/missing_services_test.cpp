#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <thread>

#include "host/device.h"
#include "tests/services/temporary_folder.h"

using host::Severity;
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

std::vector<std::string> messagesOf(const std::vector<host::Problem>& problems) {
  std::vector<std::string> messages;
  for (const host::Problem& problem : problems) messages.push_back(problem.message());
  return messages;
}

TEST_F(MissingServices, AUrlThatCantBeOpenedSaysWhy) {
  EXPECT_FALSE(environment_.urls.canOpen("https://example.org/"));
  EXPECT_FALSE(environment_.urls.open("https://example.org/"));
  const auto problems = device_.takeProblems(Severity::Failure);
  EXPECT_THAT(
      messagesOf(problems),
      ElementsAre(StartsWith("can't open https://example.org/: opening URLs is not available: ")));
  EXPECT_EQ(problems.front().source, host::Source::Urls);
}

TEST_F(MissingServices, TextThatIsSortedWithoutCollationIsAWarningAndNotAFailure) {
  environment_.collator.compare("a", "é");
  environment_.collator.compare("b", "é");
  EXPECT_THAT(device_.takeProblems(Severity::Failure), IsEmpty());
  EXPECT_THAT(messagesOf(device_.takeProblems(Severity::Warning)),
              ElementsAre(StartsWith("collation is not available: ")));
  EXPECT_THAT(device_.takeProblems(Severity::Warning), IsEmpty());
}

TEST_F(MissingServices, AHandlerIsGivenBothAlsoWhatCameBeforeIt) {
  environment_.collator.compare("a", "é");
  std::vector<std::string> given;
  device_.setProblemHandler(
      [&](const host::Problem& problem) { given.push_back(problem.message()); });
  environment_.urls.open("https://example.org/");
  device_.setProblemHandler({});
  EXPECT_THAT(given, ElementsAre(HasSubstr("collation"), HasSubstr("https://example.org/")));
  EXPECT_THAT(device_.takeProblems(Severity::Failure), IsEmpty());
  EXPECT_THAT(device_.takeProblems(Severity::Warning), IsEmpty());
}

TEST_F(MissingServices, AHandlerMayMakeTheDeviceReportAgain) {
  std::vector<std::string> given;
  device_.setProblemHandler([&](const host::Problem& problem) {
    given.push_back(problem.message());
    if (given.size() == 1) environment_.urls.open("https://second.example/");
  });
  environment_.urls.open("https://first.example/");
  EXPECT_THAT(given, ElementsAre(HasSubstr("first"), HasSubstr("second")));
}

TEST_F(MissingServices, NoHandlerRunsOnceAnotherIsSet) {
  std::promise<void> entered, mayReturn;
  std::atomic<bool> running = false;
  device_.setProblemHandler([&](const host::Problem&) {
    running = true;
    entered.set_value();
    mayReturn.get_future().wait();
    running = false;
  });
  std::thread reporter([&] { environment_.urls.open("https://example.org/"); });
  entered.get_future().wait();
  std::thread releaser([&] { mayReturn.set_value(); });
  device_.setProblemHandler({});
  EXPECT_FALSE(running);
  reporter.join();
  releaser.join();
}

}  // namespace
