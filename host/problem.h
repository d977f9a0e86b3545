#pragma once

#include <string>

#include "platform/result.h"

namespace host {

// Where a problem arose.
enum class Source {
  Settings,
  Profiles,
  Log,
  Contacts,
  Sounds,
  Urls,
  Collation,
  Bus,
  Request,
  Backups
};

enum class Severity {
  Warning,  // it was done all the same, only not as well
  Failure,  // it was not done
};

// What must be reported to the user. `path` is a platform path ("/var/mobile/…"), empty where no
// file is concerned; `words` is one human-readable sentence without the path's repetition.
struct Problem {
  Source source = Source::Request;
  Severity severity = Severity::Failure;
  std::string path{};
  std::string words{};

  bool operator==(const Problem&) const = default;

  std::string message() const { return path.empty() ? words : path + ": " + words; }
};

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
