#pragma once

#include <QStringList>
#include <string>

#include "host/device_options.h"
#include "host/refusal.h"

namespace window {

struct Options {
  host::DeviceOptions device;
  bool help = false, version = false;
  std::string page;  // a class or a title; empty: the bundle's first page
  std::string row;   // an id: of the row to show; empty: none
};

extern const char* const kUsage;

// What the command line says; `arguments` begin with the program's name.
host::Outcome<Options> readOptions(const QStringList& arguments);

}  // namespace window
