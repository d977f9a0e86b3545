#pragma once

#include <QObject>
#include <map>

#include "host/device.h"

namespace window {

// The main queue on Qt's event loop. A delay is rounded up to whole milliseconds. Tasks that have
// not run when the queue is destroyed are dropped.
class QtMainQueue : public QObject, public foundation::MainQueue {
  Q_OBJECT

 public:
  void after(foundation::Nanoseconds delay, std::function<void()> task) override;

 signals:
  void ran();  // a task has run, and may have changed what is on screen

 protected:
  void timerEvent(QTimerEvent* event) override;

 private:
  std::map<int, std::function<void()>> tasks_;  // by the timer that will run them
};

}  // namespace window
