#pragma once

#include <string>

#include "tests/services/child.h"
#include "tests/services/temporary_folder.h"

// A message bus of the test's own, at FOLDER/bus. It starts what the files in FOLDER/services name.
class BusDaemon {
 public:
  explicit BusDaemon(const TemporaryFolder& folder)
      : child_({"dbus-daemon", "--nofork", "--nopidfile", "--print-address",
                "--config-file=" + configuration(folder)}) {
    running = child_.line().has_value();
  }
  void end() { child_.end(); }
  bool running = false;

 private:
  static std::string configuration(const TemporaryFolder& folder) {
    return folder.write(
        "bus.conf",
        "<busconfig><type>session</type><listen>unix:path=" + (folder.path / "bus").string() +
            "</listen><servicedir>" + (folder.path / "services").string() +
            "</servicedir><policy context='default'><allow send_destination='*' "
            "eavesdrop='true'/><allow eavesdrop='true'/><allow own='*'/></policy>"
            "</busconfig>");
  }
  Child child_;
};
