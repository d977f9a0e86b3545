#pragma once

#include <string>

#include "platform/result.h"

namespace cli {

// The program's exit codes.
enum class ExitCode {
  Done = 0,
  Failed = 1,    // I/O, a damaged file
  WrongUse = 2,  // also a value that a setting can't take, and a row that is dimmed
  NotFound = 3,  // no such key, page, trigger or profile
  Exists = 4,    // refused without --overwrite
};

// Why a command could not be done; nothing has changed then.
struct Failure {
  ExitCode code;
  std::string reason;
};

template <class T>
using Outcome = platform::Result<T, Failure>;
using Done = platform::Done;

}  // namespace cli
