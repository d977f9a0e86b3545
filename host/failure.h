#pragma once

#include "host/problem.h"
#include "platform/result.h"

namespace host {

// Why something could not be done; nothing has changed then.
struct Failure {
  enum Reason {
    Failed,    // a file or the settings can't be read or written
    Refused,   // a value that isn't taken, a dimmed row, a name of the wrong form
    NotFound,  // no such setting, page or profile
    Exists,    // and is not to be overwritten
    IsFolder,  // a folder stands in the place of a file
  };
  Reason reason = Failed;
  Problem problem;
};

template <class T>
using Attempt = platform::Result<T, Failure>;

}  // namespace host
