#include "host/list_reader.h"

#include <gtest/gtest.h>
#include <pthread.h>

#include <atomic>
#include <mutex>
#include <semaphore>
#include <stdexcept>

#include "tests/host/described_page.h"

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

plist::Value listRow(std::string_view id) {
  return described::row("PSLinkListCell", id,
                        {{"valuesDataSource", "numbers:"}, {"titlesDataSource", "numbers:"}});
}

plist::Value unsettableRow(std::string_view id) {
  return described::row(
      "PSLinkListCell", id,
      {{"valuesDataSource", "numbers:"}, {"titlesDataSource", "numbers:"}, {"default", ""}});
}

// While it exists the system makes no thread: none has room for its stack.
class NoThreads {
 public:
  NoThreads() {
    pthread_getattr_default_np(&before_);
    pthread_attr_t huge;
    pthread_attr_init(&huge);
    pthread_attr_setstacksize(&huge, std::size_t{1} << 47);
    pthread_setattr_default_np(&huge);
    pthread_attr_destroy(&huge);
  }
  ~NoThreads() {
    pthread_setattr_default_np(&before_);
    pthread_attr_destroy(&before_);
  }

 private:
  pthread_attr_t before_;
};

// Reads the lists of a page as soon as the test lets it.
class HostListReader : public testing::Test {
 protected:
  ~HostListReader() override { let(100); }

  void start(host::ListReader::Patience patience) {
    reader.emplace(
        shown.application, [this] { return source(); },
        [this](host::ListReader::Task task) {
          const std::lock_guard lock(mutex_);
          tasks_.push_back(std::move(task));
        },
        patience);
  }
  void ask(const std::string& row) { EXPECT_TRUE(shown.application.choices(row)); }
  void let(int readings) { may_.release(readings); }
  bool isReading(const std::string& row) { return reader->isReading("Page", shown.specifier(row)); }
  std::string notice() { return reader->noticeOf("Page", shown.specifier("one")); }
  // As the loop of the pages' thread does.
  void runTasks() {
    std::vector<host::ListReader::Task> tasks;
    {
      const std::lock_guard lock(mutex_);
      tasks.swap(tasks_);
    }
    for (const auto& task : tasks) task();
  }
  void runUntilRead() {
    const auto end = Clock::now() + 30s;
    while ((isReading("one") || isReading("two")) && Clock::now() < end) {
      runTasks();
      std::this_thread::sleep_for(1ms);
    }
    EXPECT_FALSE(isReading("one") || isReading("two"));
  }

  described::Shown shown{{listRow("one"), listRow("two"), unsettableRow("setting")}};
  std::atomic<int> readings = 0;
  std::atomic<bool> fails = false;
  std::vector<host::Problem> problems;
  std::optional<host::ListReader> reader;

 private:
  host::ListReader::Source source() {
    may_.acquire();
    ++readings;
    if (fails) throw std::runtime_error("too little of something");
    auto device = std::make_shared<testing_support::TestDevice>(shown.environment.bundle);
    return {device, device->environment, [this] { return problems; }};
  }

  std::counting_semaphore<1000> may_{0};
  std::mutex mutex_;
  std::vector<host::ListReader::Task> tasks_;
};

TEST_F(HostListReader, AListIsReadOnceForEachTimeThatItIsAskedFor) {
  start(30s);
  let(2);
  ask("one");
  EXPECT_FALSE(isReading("one"));
  EXPECT_EQ(shown.specifier("one").choices()->values, (plist::Array{1, 2}));
  ask("one");
  runTasks();
  EXPECT_FALSE(isReading("one"));
  EXPECT_EQ(readings, 2);
}

// What it reads may have been changed after it began.
TEST_F(HostListReader, TheListOfASettingThatCanBeUnsetBeginsWithNone) {
  start(30s);
  let(2);
  ask("setting");
  EXPECT_EQ(shown.specifier("setting").values(), (plist::Array{"", 1, 2}));
  EXPECT_EQ(shown.specifier("setting").titles(), (std::vector<std::string>{"None", "1", "2"}));
  ask("one");
  EXPECT_EQ(shown.specifier("one").values(), (plist::Array{1, 2}));
}

TEST_F(HostListReader, AListThatIsAskedForWhileItIsReadIsReadOnceMore) {
  start(0ms);
  ask("one");
  runTasks();
  ask("one");
  ask("one");
  let(10);
  runUntilRead();
  EXPECT_EQ(readings, 2);
}

TEST_F(HostListReader, AListThatOneTaskAsksForTwiceIsReadOnce) {
  start(0ms);
  ask("one");
  ask("one");
  let(10);
  runUntilRead();
  EXPECT_EQ(readings, 1);
}

TEST_F(HostListReader, AReadingThatFailsEndsAndSaysWhy) {
  start(0ms);
  fails = true;
  ask("one");
  let(10);
  runUntilRead();
  EXPECT_EQ(notice(), "Can't be read: too little of something");
  fails = false;
  ask("one");
  runUntilRead();
  EXPECT_EQ(notice(), "");
  EXPECT_EQ(shown.specifier("one").choices()->values, (plist::Array{1, 2}));
}

TEST_F(HostListReader, WhatAReadingReportsIsSeenWithItsChoices) {
  start(0ms);
  ask("one");
  problems = {{.source = host::Source::Profiles, .words = "one can't be read"}};
  int looks = 0;
  shown.application.setObserver([&] {
    if (isReading("one")) return;
    ++looks;
    const auto choices = shown.specifier("one").choices();
    EXPECT_TRUE(choices && choices->values == (plist::Array{1, 2}));
  });
  let(10);
  runUntilRead();
  EXPECT_GT(looks, 0);
}

TEST_F(HostListReader, WithoutThreadsAListIsReadWhereItIsAskedFor) {
  start(0ms);
  let(10);
  const NoThreads none;
  ask("one");
  EXPECT_EQ(shown.specifier("one").choices()->values, (plist::Array{1, 2}));
  runTasks();
  EXPECT_EQ(readings, 1);
}

TEST_F(HostListReader, WithoutThreadsAListIsStillReadOnceMore) {
  start(0ms);
  ask("one");
  runTasks();
  ask("one");
  let(10);
  const NoThreads none;
  runUntilRead();
  EXPECT_EQ(readings, 2);
}

TEST_F(HostListReader, ListsThatAreAskedForTogetherAreWaitedForAsLongAsOne) {
  start(1s);
  const auto begin = Clock::now();
  ask("one");
  ask("two");
  const auto waited = Clock::now() - begin;
  EXPECT_GE(waited, 1s);
  EXPECT_LT(waited, 2s);
  let(10);
  runUntilRead();
  ask("one");
  EXPECT_FALSE(isReading("one")) << "the next ones have a time of their own";
}

}  // namespace
