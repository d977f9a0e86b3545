#include "apps/cli/session.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iterator>
#include <utility>

#include "apps/cli/one_line.h"

namespace cli {
namespace {

Outcome<Done> writeAll(int file, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = ::write(file, text.data(), text.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0)
      return Failure{ExitCode::Failed, std::string("standard output: ") + std::strerror(errno)};
    text.remove_prefix(static_cast<std::size_t>(written));
  }
  return Done{};
}

}  // namespace

host::Device& Session::device() {
  if (!device_) {
    auto clock = std::make_unique<foundation::ManualQueue>();
    clock_ = clock.get();
    device_ = std::make_unique<host::Device>(options, std::move(clock));
  }
  return *device_;
}

foundation::ManualQueue& Session::clock() {
  device();
  return *clock_;
}

Outcome<Done> Session::storeWorked() {
  const auto problems = device().takeProblems();
  if (problems.empty()) return Done{};
  return Failure{ExitCode::Failed, problems.front()};
}

std::vector<std::string> Session::takeWarnings() {
  auto taken = std::exchange(warnings, {});
  if (device_) std::ranges::move(device_->takeWarnings(), std::back_inserter(taken));
  return taken;
}

Outcome<Done> Session::flush() {
  const std::string text = std::exchange(output_, {});
  return writeAll(STDOUT_FILENO, text);
}

void complain(std::string_view message) {
  static_cast<void>(writeAll(STDERR_FILENO, "quorvantis: " + oneLine(message) + "\n"));
}

}  // namespace cli
