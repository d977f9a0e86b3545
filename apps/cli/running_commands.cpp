#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <limits>
#include <thread>
#include <utility>

#include "apps/cli/command.h"
#include "drive/driver.h"
#include "host/battery_log.h"
#include "host/raw_store.h"
#include "host/text.h"
#include "host/value_watch.h"

// The commands that run until they are interrupted, or their input ends.
namespace cli {
namespace {

constexpr auto kPause = std::chrono::milliseconds(200);
constexpr auto kPauseOfValues = std::chrono::milliseconds(20);
constexpr int kPausesBetweenLooks = 50;  // at most
constexpr int kDefaultViewport = 12;

// What was printed is always written at once, so an interruption finds nothing to be done.
void endOnInterruption() {
  for (const int signal : {SIGINT, SIGTERM}) std::signal(signal, [](int) { _exit(0); });
}

// Which file it is and which state of it; all 0 when there is none.
std::array<std::int64_t, 5> stampOf(Session& session, std::string_view path) {
  struct stat status {};
  const auto file = session.device().root().open(path, O_PATH);
  if (!file || fstat(file->number(), &status) != 0) return {};
  return {static_cast<std::int64_t>(status.st_ino), status.st_size, status.st_mtim.tv_sec,
          status.st_mtim.tv_nsec, status.st_ctim.tv_nsec};
}

std::string lineOf(const Session& session, const plist::Value& entry) {
  return session.json ? drive::textOf(drive::toJson(entry))
                      : host::oneLine(drive::plainTextOf(entry));
}

// A log that can't be read may be in the middle of being written by one that doesn't replace it.
Outcome<Done> follow(Session& session, plist::Array entries) {
  for (auto stamp = stampOf(session, host::batteryLogPath());;) {
    const auto flushed = session.flush();
    if (!flushed) return flushed;
    std::this_thread::sleep_for(kPause);
    const auto current = stampOf(session, host::batteryLogPath());
    if (current == stamp) continue;
    auto log = host::readBatteryLog(session.device().environment());
    if (!log) continue;
    stamp = current;
    for (const plist::Value& entry : host::newEntries(entries, *log))
      session.print(lineOf(session, entry));
    entries = std::move(*log);
  }
}

// A key that no row has and nothing is stored under is a slip of the hand.
Outcome<Done> checkKeys(Session& session, const std::vector<std::string>& keys) {
  host::RawStore store(session.device().preferences());
  for (const std::string& key : keys) {
    const auto value = session.settings().value(key);
    if (!value && value.error().reason == host::Failure::NotFound && !store.read(key))
      return failureOf(value.error());
  }
  return Done{};
}

// Settings that can't be read for now don't end it: the store reports them once. A file that was
// rewritten within a tick of the file system's clock may have an equal stamp.
Outcome<Done> watchValues(Session& session, const std::vector<std::string>& keys) {
  host::ValueWatch values(session.device().preferences());
  auto stamp = stampOf(session, host::ValueWatch::path());
  if (const auto first = values.look(); !first) return failureOf(first.error());
  if (const auto checked = checkKeys(session, keys); !checked) return checked;
  for (int pauses = 1;; ++pauses) {
    if (const auto flushed = session.flush(); !flushed) return flushed;
    std::this_thread::sleep_for(kPauseOfValues);
    const auto current = stampOf(session, host::ValueWatch::path());
    if (std::exchange(stamp, current) == current && pauses % kPausesBetweenLooks != 0) continue;
    const auto changes = values.look();
    for (const host::Problem& problem : session.takeWarnings()) complain(problem.message());
    if (!changes) continue;
    for (const auto& [key, from, to] : *changes) {
      if (!keys.empty() && std::ranges::find(keys, key) == keys.end()) continue;
      const Json before = orNull(from), after = orNull(to);
      if (session.json)
        session.printJson({{"key", key}, {"from", before}, {"to", after}});
      else
        session.print(host::oneLine(key) + ": " + drive::textOf(before) + " -> " +
                      drive::textOf(after));
    }
  }
}

// One line, without its newline; nothing at the end of input, or where it can't be read. Of one
// that is too long, enough to show that it is.
std::optional<std::string> readInputLine() {
  std::string line;
  int c;
  while ((c = std::getc(stdin)) != EOF && c != '\n')
    if (line.size() <= drive::kLongestLine) line += static_cast<char>(c);
  if (c == EOF && line.empty()) return std::nullopt;
  return line;
}

}  // namespace

Outcome<Done> showLog(Session& session, const Arguments& arguments) {
  const bool followed = arguments.has("--follow");
  if (followed) endOnInterruption();
  auto entries = host::readBatteryLog(session.device().environment());
  if (!entries) return failureOf(entries.error());
  Json::array_t document;
  for (auto entry = entries->rbegin(); entry != entries->rend(); ++entry) {
    if (session.json && !followed)
      document.push_back(drive::toJson(*entry));
    else
      session.print(lineOf(session, *entry));
  }
  if (followed) return follow(session, std::move(*entries));
  if (entries->empty() && !session.json)
    session.print(Listing(),
                  "the log is empty; an extension writes it while Keep Battery Log is on");
  if (session.json) session.printJson(Json(std::move(document)));
  return Done{};
}

Outcome<Done> watch(Session& session, const Arguments& arguments) {
  endOnInterruption();
  if (arguments.has(kValues)) return watchValues(session, arguments.words);
  for (const std::string& name : arguments.words)
    if (host::findSetting(session.device().environment().bundle, name))
      return Failure{ExitCode::WrongUse, "\"" + name +
                                             "\" is a key, not a notification; quorvantis watch "
                                             "--values " +
                                             name + " prints its changes"};
  Outcome<Done> flushed = Done{};
  const auto watched = host::Device::watch(arguments.words, [&](std::string_view name) {
    session.print(session.json ? drive::textOf(Json(name)) : host::oneLine(name));
    flushed = session.flush();
    return static_cast<bool>(flushed);
  });
  if (!watched) return Failure{ExitCode::Failed, watched.error().message()};
  return flushed;
}

Outcome<Done> converse(Session& session, const Arguments& arguments) {
  const std::string idiom = arguments.value("--idiom").value_or("phone");
  if (idiom != "phone" && idiom != "tablet")
    return Failure{ExitCode::WrongUse, "--idiom is phone or tablet"};
  const auto entries =
      host::numberIn<int>(arguments.value("--viewport").value_or(std::to_string(kDefaultViewport)));
  if (!entries || *entries < 1)
    return Failure{ExitCode::WrongUse, "--viewport is a number from 1 to " +
                                           std::to_string(std::numeric_limits<int>::max())};
  session.options.idiom = idiom == "tablet" ? uikit::Idiom::Tablet : uikit::Idiom::Phone;
  drive::Driver driver(session.options, *entries,
                       [](const host::Problem& problem) { complain(problem.message()); });
  while (const auto line = readInputLine()) {
    if (line->find_first_not_of(" \t\r") == std::string::npos) continue;
    session.print(driver.answer(*line));
    if (auto flushed = session.flush(); !flushed) return flushed;
  }
  if (std::ferror(stdin) != 0)
    return Failure{ExitCode::Failed, platform::Error{"standard input", errno}.message()};
  return Done{};
}

}  // namespace cli
