#pragma once

#include <QSize>
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

#include "host/device_options.h"
#include "platform/result.h"

namespace window {

// A picture of a page instead of a window to use.
struct Picture {
  QString file;
};

// What the user does before the picture is taken.
struct Step {
  QString action, value;  // the option's name, and what it says
};

struct Options {
  host::DeviceOptions device;
  bool help = false;
  std::string page;  // in place of the first one
  std::optional<Picture> picture;
  std::vector<Step> steps;
  QSize size;                // of the window; empty: its own
  std::optional<bool> dark;  // in place of what the desktop has
};

extern const char* const kUsage;

// What the command line says; the error is a message for people. `arguments` begin with the
// program's name. For work on the program itself there are besides what the usage names:
// --page CLASS, --screenshot FILE, --size WxH, --appearance light|dark, and what is to be done
// before the picture is taken, in this order: --tap ROW, --bar, --press BUTTON, --pick N,
// --select SECTION.ROW, --drag TAG=VALUE, --scroll N.
platform::Result<Options, QString> readOptions(const QStringList& arguments);

}  // namespace window
