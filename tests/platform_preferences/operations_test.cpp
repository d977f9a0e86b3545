#include <gmock/gmock.h>

#include <latch>
#include <thread>

#include "tests/platform_preferences/sample_device.h"

namespace {

using preferences::Argument;

struct Target : foundation::Object {
  std::string_view className() const override { return "Target"; }
  double add(int a, float b) { return a + b; }
  void name(const std::string& text) { named = text; }
  std::string maybe(std::optional<std::string> text) { return text.value_or("nil"); }
  int row(uikit::IndexPath path) { return path.section * 100 + path.row; }
  foundation::Object* same(foundation::Object* object) { return object; }
  bool flag(bool on) { return !on; }
  std::string named;
};

const preferences::Operations kTable{[]() -> preferences::OperationTable {
  return {
      {"add:to:", &Target::add}, {"name:", &Target::name}, {"maybe:", &Target::maybe},
      {"row:", &Target::row},    {"same:", &Target::same}, {"flag:", &Target::flag},
  };
}};

class OperationsTest : public testing::Test {
 protected:
  std::optional<Argument> call(const char* selector, std::vector<Argument> arguments) {
    return kTable.find(selector)->run(target, arguments);
  }
  static plist::Value value(const std::optional<Argument>& result) {
    return *preferences::valueIn(*result);
  }
  Target target;
};

TEST_F(OperationsTest, ConvertArgumentsToWhatTheOperationTakes) {
  EXPECT_EQ(value(call("add:to:", {plist::Value(1), plist::Value(2.5)})), plist::Value(3.5));
  EXPECT_EQ(value(call("row:", {plist::Value(plist::Array{2, 5})})), plist::Value(205));
  EXPECT_EQ(value(call("flag:", {plist::Value(true)})), plist::Value(false));
  EXPECT_TRUE(call("name:", {plist::Value("x")}));
  EXPECT_EQ(target.named, "x");
}

TEST_F(OperationsTest, TakeNilWhereItHasAMeaning) {
  EXPECT_EQ(value(call("maybe:", {nullptr})), plist::Value("nil"));
  EXPECT_EQ(std::get<std::nullptr_t>(*call("same:", {nullptr})), nullptr);
  EXPECT_FALSE(call("name:", {nullptr}));
}

TEST_F(OperationsTest, PassObjectsThrough) {
  EXPECT_EQ(std::get<foundation::Object*>(*call("same:", {&target})), &target);
}

TEST_F(OperationsTest, RunNothingWithWrongArguments) {
  EXPECT_FALSE(call("name:", {plist::Value(5)}));
  EXPECT_FALSE(call("name:", {}));
  EXPECT_FALSE(call("row:", {plist::Value(plist::Array{1})}));
  EXPECT_FALSE(call("add:to:", {&target, plist::Value(1)}));
  EXPECT_EQ(target.named, "");
}

TEST_F(OperationsTest, AreFoundInTheBaseClassToo) {
  EXPECT_NE(sample::ListPage::ownOperations.find("act"), nullptr);
  EXPECT_NE(sample::ListPage::ownOperations.find("reloadSpecifiers"), nullptr);
  EXPECT_EQ(sample::ListPage::ownOperations.find("absent"), nullptr);
}

TEST_F(OperationsTest, AreMadeOnceHoweverManyThreadsAskFirst) {
  static const preferences::Operations asked{[] {
    return preferences::OperationTable{{"name:", &Target::name}};
  }};
  constexpr int kThreads = 4;
  std::latch start(kThreads);
  const preferences::Operation* found[kThreads] = {};
  {
    std::vector<std::jthread> threads;
    for (auto& each : found)
      threads.emplace_back([&] {
        start.arrive_and_wait();
        each = asked.find("name:");
      });
  }
  for (const auto* each : found) EXPECT_EQ(each, asked.find("name:"));
  EXPECT_EQ(found[0]->selector(), "name:");
}

TEST_F(OperationsTest, RunOnANotification) {
  sample::Device device;
  auto page = device.page();
  device.center.addObserver(*page, "act", "ping", nullptr);
  device.center.addObserver(*page, "actFor:", "ping", nullptr);
  device.center.postNotificationName("ping", nullptr);
  EXPECT_THAT(sample::events, testing::ElementsAre("First act", "First actFor nobody"));
}

TEST_F(OperationsTest, OfTwoArgumentsAreGivenNilForBothOnANotification) {
  sample::Device device;
  auto page = device.page();
  device.center.addObserver(*page, "act:with:", "ping", nullptr);
  device.center.postNotificationName("ping", nullptr);
  EXPECT_THAT(sample::events, testing::ElementsAre("First act with nil twice"));
}

// What a selector says, by its colons, is what its operation takes.
TEST_F(OperationsTest, OfThePlatformTakeWhatTheirSelectorsSay) {
  for (auto* table : {&preferences::PSListController::ownOperations,
                      &preferences::PSViewController::ownOperations})
    for (const auto& operation : table->own())
      EXPECT_EQ(std::ranges::count(operation.selector(), ':'), operation.arity())
          << operation.selector();
}

}  // namespace
