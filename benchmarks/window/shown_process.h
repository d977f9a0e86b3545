#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace bench {

// What a process has used when its first frame is drawn.
struct FirstFrame {
  double milliseconds = 0;  // since before it was started
  double processor = 0;     // milliseconds of all its threads, user and system
  double mebibytes = 0;     // its proportional share of memory (PSS)
};

// A program of Qt Quick with a window, drawn by software where nobody sees it. It is unchanged: the
// log that Qt writes of each frame says when there is one. It is killed at the end.
class ShownProcess {
 public:
  // `environment` holds "NAME=value" each, and is all that it sees. Returns after the first frame;
  // without one within 20 seconds the program ends with a message.
  ShownProcess(const std::vector<std::string>& command, std::vector<std::string> environment);
  ~ShownProcess();
  ShownProcess(const ShownProcess&) = delete;
  ShownProcess& operator=(const ShownProcess&) = delete;

  const FirstFrame& firstFrame() const { return frame_; }
  long wakeUps() const;  // of all its threads until now, as the kernel counts them

 private:
  void awaitFrame(int log);
  double processorTime() const;

  pid_t process_ = -1;
  FirstFrame frame_;
};

}  // namespace bench
