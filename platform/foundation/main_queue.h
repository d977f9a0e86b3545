#pragma once

#include <chrono>
#include <functional>
#include <map>

namespace foundation {

using Nanoseconds = std::chrono::nanoseconds;

// Deferred work on the main thread.
class MainQueue {
 public:
  virtual ~MainQueue() = default;
  // Never runs the task at once, even for a delay of 0; a negative delay counts as 0.
  virtual void after(Nanoseconds delay, std::function<void()> task) = 0;
};

// A main queue whose clock stands still but for `advance`: tasks run in the order in which they
// fall due, those due at the same time in the order in which they were handed in.
//
// While a task runs the clock shows the time at which it fell due, so what it hands in counts from
// there, and runs within the same advance if it falls due by its end. A task that hands itself in
// again without delay therefore never lets an advance end. A task may advance the queue itself: the
// clock then shows the later time when the outer advance continues, and never an earlier one.
class ManualQueue : public MainQueue {
 public:
  void after(Nanoseconds delay, std::function<void()> task) override;
  void advance(Nanoseconds time);  // 0 runs what is due already; a negative time counts as 0
  Nanoseconds now() const { return now_; }  // since the queue was made

 private:
  Nanoseconds fromNow(Nanoseconds time) const;

  Nanoseconds now_{0};
  std::multimap<Nanoseconds, std::function<void()>> tasks_;  // by the time they fall due
};

}  // namespace foundation
