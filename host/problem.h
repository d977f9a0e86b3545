#pragma once

#include <string>

#include "platform/error.h"
#include "platform/foundation/device_root.h"
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
  // The same for a reader who doesn't know the system's words: "The profile was not saved: the disk
  // is full." Empty where `words` do. `file` is the path of the file that lies behind it, if one
  // does: as the error has it, and on this machine once it is reported to an application.
  std::string plain{}, file{};
  bool damage = false;  // a domain file that can't be read or parsed

  bool operator==(const Problem&) const = default;

  std::string message() const { return path.empty() ? words : path + ": " + words; }
};

// Why something could not be done. Nothing has changed then, but where it is Unconfirmed or
// PartlyDone.
struct Failure {
  enum Reason {
    Failed,       // a file or the settings can't be read or written
    Refused,      // a value that isn't taken, a dimmed row, a name of the wrong form
    NotFound,     // no such setting, page or profile
    Exists,       // and is not to be overwritten
    IsFolder,     // a folder stands in the place of a file
    Unconfirmed,  // it is stored, but the disk didn't confirm it
    PartlyDone,   // a part of it stays, which the words name, since it couldn't be taken back
  };
  Reason reason = Failed;
  Problem problem;
};

// A failure below the host, in its user's terms: with the way out where the settings can't be read,
// and as a warning where it is stored but not confirmed on disk.
Problem problemOf(Source source, const platform::Error& error);
// The same with its `file` on this machine. The root itself, the file of a Request, which the user
// has chosen, and what lies in the folder of what this host remembers, are named so already.
Problem onMachine(Problem problem, const foundation::DeviceRoot& root);
// Failed or Unconfirmed, and that problem; `before` stands before its words.
Failure failureOf(Source source, const platform::Error& error, const std::string& before = {});

// Of no file, in these words.
Failure failure(Source source, Failure::Reason reason, std::string words);

template <class T>
using Attempt = platform::Result<T, Failure>;

}  // namespace host
