#pragma once

#include <chrono>
#include <functional>
#include <future>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/application.h"

namespace host {

// Reads the choices of list rows (contacts, sounds, profiles, the battery log) on threads, so that
// none that takes long stops the pages.
//
// Pages stay on their one thread. A thread has a device of its own and a page on it,
// whose data sources it asks; it shares nothing with the pages that are shown but the files, and
// hands over values. Where they come within kPatience the shown page has them as if it had read
// them itself; else its row keeps what it has, and gets them, on the pages' thread, when they are
// there. All lists that one task of that thread asks for share that time. One that a later task
// asks for while it is read is read once more afterwards, since its files may have changed. Where
// the system makes no thread a list is read on the pages' own.
//
// Contacts are only read when their list is opened. The list of a setting that can be unset, which
// its empty default says, begins with "None"; where it has nothing else, what would fill it is
// said.
class ListReader {
 public:
  using Patience = std::chrono::milliseconds;
  static constexpr Patience kPatience{300};

  // What a thread reads on; it is made, used and destroyed by that thread.
  struct Source {
    std::shared_ptr<void> device;
    preferences::Environment& environment;
    std::function<std::vector<Problem>()> takeProblems;
  };
  using MakeSource = std::function<Source()>;

  using Task = std::function<void()>;
  // Runs a task on the thread of the pages; called from any thread. What it has not run may be
  // dropped, and must be once this reader is gone.
  using Post = std::function<void(Task task)>;

  // The source of choices for that application, until it is destroyed, which waits for what is
  // being read, however long that takes: as long as a data source does. What shows the application
  // must be gone before.
  ListReader(Application& application, MakeSource makeSource, Post post,
             Patience patience = kPatience);
  ~ListReader();
  ListReader(const ListReader&) = delete;
  ListReader& operator=(const ListReader&) = delete;

  // Whether the choices of that row of a page of that class are being read.
  bool isReading(std::string_view pageClass, const preferences::PSSpecifier& row) const;
  // What could not be read of them the latest time, in plain words; empty where all could.
  std::string noticeOf(std::string_view pageClass, const preferences::PSSpecifier& row) const;

 private:
  using Clock = std::chrono::steady_clock;
  using Row = std::pair<std::string, std::string>;  // the class of its page, its identifier
  struct Found {
    std::shared_ptr<const preferences::Choices> choices;
    std::string notice;
    std::vector<Problem> problems;
  };
  struct Reading {
    int number = 0;
    std::future<Found> found;
    Clock::time_point deadline{};  // of the task in which it began
    bool isOld = false;            // asked for by a later task: what it reads may have changed
  };

  // By a thread; what stops it is said beside the list.
  Found read(const Row& row) const;
  Found readPage(const Row& row) const;
  Reading& begin(const Row& row);
  preferences::ChoicesAnswer answer(const Row& row);
  Found take(const Row& row);
  void report(const std::vector<Problem>& problems);
  void readAgain(const Row& row);
  void show(const Row& row, int number);

  Application& application_;
  const MakeSource makeSource_;
  const Post post_;
  const Patience patience_;
  int begun_ = 0;
  // Until when the task of the pages' thread that runs now waits; empty before it reads a list.
  std::optional<Clock::time_point> deadline_;
  std::vector<Problem> reported_;
  std::map<Row, std::string> notices_;
  // What is handed to the pages now.
  std::optional<std::pair<Row, std::shared_ptr<const preferences::Choices>>> arrived_;
  std::map<Row, Reading> readings_;  // destroyed first: the threads use what stands above
};

}  // namespace host
