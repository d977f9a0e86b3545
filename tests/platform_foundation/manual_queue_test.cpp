#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/foundation/main_queue.h"

namespace foundation::test {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct StillQueueTest : ::testing::Test {
  ManualQueue queue;
  std::vector<std::string> log;

  std::function<void()> note(std::string text) {
    return [this, text] { log.push_back(text); };
  }
};

TEST_F(StillQueueTest, RunsNothingUntilItIsDue) {
  queue.after(100ms, note("a"));
  EXPECT_THAT(log, IsEmpty());
  queue.advance(99'999'999ns);
  EXPECT_THAT(log, IsEmpty());
  queue.advance(1ns);
  EXPECT_THAT(log, ElementsAre("a"));
  queue.advance(1h);
  EXPECT_THAT(log, ElementsAre("a"));
}

TEST_F(StillQueueTest, RunsInTheOrderOfFallingDue) {
  queue.after(3s, note("c"));
  queue.after(1s, note("a"));
  queue.after(2s, note("b"));
  queue.advance(3s);
  EXPECT_THAT(log, ElementsAre("a", "b", "c"));
}

TEST_F(StillQueueTest, DueAtTheSameTimeRunInTheOrderHandedIn) {
  queue.after(500ms, note("a"));
  queue.advance(400ms);
  queue.after(100ms, note("b"));
  queue.after(100ms, note("c"));
  queue.advance(100ms);
  EXPECT_THAT(log, ElementsAre("a", "b", "c"));
}

TEST_F(StillQueueTest, TaskWithoutDelayWaitsForAnAdvanceOfZero) {
  queue.after(0ns, note("a"));
  EXPECT_THAT(log, IsEmpty());
  queue.advance(0ns);
  EXPECT_THAT(log, ElementsAre("a"));
}

TEST_F(StillQueueTest, TaskOfATaskRunsInTheSameAdvanceIfDue) {
  queue.after(100ms, [&] {
    log.push_back("outer");
    queue.after(100ms, note("in time"));
    queue.after(101ms, note("late"));
  });
  queue.advance(200ms);
  EXPECT_THAT(log, ElementsAre("outer", "in time"));
  queue.advance(1ms);
  EXPECT_THAT(log, ElementsAre("outer", "in time", "late"));
}

TEST_F(StillQueueTest, TaskOfATaskComesAfterThoseDueAtTheSameTime) {
  queue.after(1s, [&] { queue.after(0ns, note("inner")); });
  queue.after(1s, note("second"));
  queue.after(1s + 1ns, note("third"));
  queue.advance(2s);
  EXPECT_THAT(log, ElementsAre("second", "inner", "third"));
}

TEST_F(StillQueueTest, ClockShowsWhenTheTaskFellDue) {
  std::vector<Nanoseconds> times;
  queue.after(1s, [&] { times.push_back(queue.now()); });
  queue.after(2s, [&] { times.push_back(queue.now()); });
  queue.advance(5s);
  EXPECT_THAT(times, ElementsAre(1s, 2s));
  EXPECT_EQ(queue.now(), 5s);
}

TEST_F(StillQueueTest, LongChainOfTasksNeedsNoStack) {
  int count = 0;
  std::function<void()> next = [&] {
    if (++count < 1'000'000) queue.after(1ns, next);
  };
  queue.after(1ns, next);
  queue.advance(1ms);
  EXPECT_EQ(count, 1'000'000);
}

TEST_F(StillQueueTest, TaskMayAdvanceTheQueue) {
  queue.after(1s, [&] {
    log.push_back("a");
    queue.advance(10s);
    log.push_back("end of a");
  });
  queue.after(2s, note("b"));
  queue.after(12s, note("c"));
  queue.advance(1s);
  EXPECT_THAT(log, ElementsAre("a", "b", "end of a"));
  EXPECT_EQ(queue.now(), 11s);
  queue.advance(1s);
  EXPECT_THAT(log, ElementsAre("a", "b", "end of a", "c"));
}

TEST_F(StillQueueTest, NegativeTimesCountAsZero) {
  queue.advance(1s);
  queue.after(-5s, note("a"));
  queue.advance(-5s);
  EXPECT_THAT(log, ElementsAre("a"));
  EXPECT_EQ(queue.now(), 1s);
}

TEST_F(StillQueueTest, LongestDelayDoesNotOverflow) {
  queue.advance(1s);
  queue.after(Nanoseconds::max(), note("end of time"));
  queue.advance(1h);
  EXPECT_THAT(log, IsEmpty());
  queue.advance(Nanoseconds::max());
  EXPECT_THAT(log, ElementsAre("end of time"));
}

TEST_F(StillQueueTest, TaskKeepsWhatItHoldsUntilItHasRun) {
  auto page = std::make_shared<int>(1);
  const std::weak_ptr<int> life = page;
  queue.after(1s, [page] {});
  page.reset();
  EXPECT_FALSE(life.expired());
  queue.advance(1s);
  EXPECT_TRUE(life.expired());
}

}  // namespace
}  // namespace foundation::test
