#include "apps/window/qt_main_queue.h"

#include <QTimerEvent>
#include <algorithm>

namespace window {

void QtMainQueue::after(foundation::Nanoseconds delay, std::function<void()> task) {
  using std::chrono::milliseconds;
  auto wait = std::max(std::chrono::ceil<milliseconds>(delay), milliseconds(0));
  tasks_.emplace(startTimer(wait, Qt::PreciseTimer), std::move(task));
}

void QtMainQueue::timerEvent(QTimerEvent* event) {
  killTimer(event->timerId());
  auto due = tasks_.extract(event->timerId());
  if (due.empty()) return;
  due.mapped()();
  emit ran();
}

}  // namespace window
