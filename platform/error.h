#pragma once

#include <functional>
#include <memory>
#include <string>

namespace platform {

enum class ErrorKind {
  Failed,       // it was not done
  Unconfirmed,  // it was done, but a flush failed: a power cut may undo it
  Damaged,      // it was not done: the preference file that it is about holds no readable domain
  Invalid,      // it was not done, and can't be: the value has no form in a file
};

// Why something failed: a file operation, a service, the reading of what a file holds.
struct Error {
  std::string path{};  // the platform path that it is about; empty where it is about none
  int code = 0;        // the system's error number (errno); 0 when the words say it all
  std::string what{};  // the step that failed ("rename"), or what is wrong
  std::shared_ptr<const Error> cause{};  // what lies behind it, if anything does
  ErrorKind kind = ErrorKind::Failed;

  // The same with something behind it; of another kind.
  Error because(Error reason) &&;
  Error as(ErrorKind other) &&;

  // Path, words, the system's words for the code, and the cause, each where there is one:
  // "/var/…/x: No such file or directory", "/var/…/x: rename: Disk quota exceeded",
  // "/var/…/x: not a readable property list: containers nested too deeply at byte 8"
  std::string message() const;
  std::string words() const;  // the same without the path
};

// Takes a failure that a caller passes over and its user should know of. May be called from any
// thread.
using Report = std::function<void(const Error& error)>;

}  // namespace platform
