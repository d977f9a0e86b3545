#include <gmock/gmock.h>

#include <QSignalSpy>
#include <QtTest/QTest>
#include <chrono>

#include "apps/window/qt_main_queue.h"
#include "tests/window/application.h"

namespace {

using namespace std::chrono_literals;

class MainQueue : public testing::Test {
 protected:
  MainQueue() { startApplication(); }
};

TEST_F(MainQueue, RunsATaskLaterNeverAtOnce) {
  window::QtMainQueue queue;
  bool ran = false;
  queue.after(0ns, [&] { ran = true; });
  EXPECT_FALSE(ran);
  EXPECT_TRUE(QTest::qWaitFor([&] { return ran; }));
}

TEST_F(MainQueue, NegativeDelaysCountAsNone) {
  window::QtMainQueue queue;
  bool ran = false;
  queue.after(-5s, [&] { ran = true; });
  EXPECT_TRUE(QTest::qWaitFor([&] { return ran; }));
}

TEST_F(MainQueue, RunsTasksInTheOrderInWhichTheyFallDue) {
  window::QtMainQueue queue;
  std::vector<int> order;
  queue.after(60ms, [&] { order.push_back(3); });
  queue.after(5ms, [&] { order.push_back(1); });
  queue.after(5ms, [&] { order.push_back(2); });
  ASSERT_TRUE(QTest::qWaitFor([&] { return order.size() == 3; }));
  EXPECT_THAT(order, testing::ElementsAre(1, 2, 3));
}

TEST_F(MainQueue, ReportsEachTaskThatHasRun) {
  window::QtMainQueue queue;
  QSignalSpy spy(&queue, &window::QtMainQueue::ran);
  queue.after(0ns, [] {});
  queue.after(1ms, [] {});
  EXPECT_TRUE(QTest::qWaitFor([&] { return spy.size() == 2; }));
}

TEST_F(MainQueue, DropsItsTasksWhenItIsDestroyed) {
  auto held = std::make_shared<int>();
  std::weak_ptr<int> watch = held;
  {
    window::QtMainQueue queue;
    queue.after(1s, [held = std::move(held)] {});
    EXPECT_FALSE(watch.expired());
  }
  EXPECT_TRUE(watch.expired());
}

}  // namespace
