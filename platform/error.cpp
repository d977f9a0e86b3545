#include "platform/error.h"

#include <cerrno>
#include <system_error>

namespace platform {
namespace {

// In words that fit what the code means to the callers here, else in the system's own.
std::string wordsFor(int code) {
  switch (code) {
    case ENOSYS:
      return "the kernel is too old (Linux 5.6 or later is needed)";
    case EXDEV:
      return "a link that leads out of its folder";
    case ENXIO:
      return "not a regular file";
  }
  return std::generic_category().message(code);
}

}  // namespace

Error Error::because(Error reason) && {
  cause = std::make_shared<const Error>(std::move(reason));
  return std::move(*this);
}

Error Error::as(ErrorKind other) && {
  kind = other;
  return std::move(*this);
}

std::string Error::message() const {
  const std::string after = words();
  return path.empty() || after.empty() ? path + after : path + ": " + after;
}

std::string Error::words() const {
  std::string message;
  const auto add = [&message](const std::string& words) {
    if (!message.empty() && !words.empty()) message += ": ";
    message += words;
  };
  add(what);
  if (code != 0) add(path.empty() ? std::generic_category().message(code) : wordsFor(code));
  if (cause) add(cause->message());
  return message;
}

}  // namespace platform
