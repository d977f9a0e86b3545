#include "platform/foundation/main_queue.h"

#include <algorithm>

namespace foundation {

Nanoseconds ManualQueue::fromNow(Nanoseconds time) const {
  return now_ + std::clamp(time, Nanoseconds(0), Nanoseconds::max() - now_);
}

void ManualQueue::after(Nanoseconds delay, std::function<void()> task) {
  tasks_.emplace(fromNow(delay), std::move(task));
}

void ManualQueue::advance(Nanoseconds time) {
  const Nanoseconds end = fromNow(time);
  while (!tasks_.empty() && tasks_.begin()->first <= end) {
    const auto next = tasks_.extract(tasks_.begin());
    now_ = std::max(now_, next.key());
    next.mapped()();
  }
  now_ = std::max(now_, end);
}

}  // namespace foundation
