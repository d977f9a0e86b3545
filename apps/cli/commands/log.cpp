#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <thread>

#include "apps/cli/argument.h"
#include "apps/cli/commands/commands.h"
#include "apps/cli/one_line.h"
#include "prefs/core/archive_file.h"
#include "prefs/core/names.h"

namespace cli {
namespace {

constexpr auto kPause = std::chrono::milliseconds(200);

// As stored, the oldest first. None when there is no log.
Outcome<plist::Array> readLog(Session& session) {
  const auto bytes = session.device().root().read(prefs::kBatteryLog);
  if (!bytes && bytes.error().code == ENOENT) return plist::Array();
  if (!bytes) return Failure{ExitCode::Failed, bytes.error().message()};
  auto log = prefs::unarchive(*bytes, session.device().environment().xml);
  const std::string path(prefs::kBatteryLog);
  if (!log) return Failure{ExitCode::Failed, path + ": " + log.error()};
  if (!log->array()) return Failure{ExitCode::Failed, path + ": no list of entries"};
  return std::move(*log->array());
}

// Which file it is and which state of it; all 0 when there is none.
std::array<std::int64_t, 5> stampOfLog(Session& session) {
  struct stat status {};
  const auto file = session.device().root().open(prefs::kBatteryLog, O_PATH);
  if (!file || fstat(file->number(), &status) != 0) return {};
  return {static_cast<std::int64_t>(status.st_ino), status.st_size, status.st_mtim.tv_sec,
          status.st_mtim.tv_nsec, status.st_ctim.tv_nsec};
}

// How many of the first entries of `now` were there before: the log grows at its end, and may lose
// entries at its beginning.
std::size_t known(const plist::Array& before, const plist::Array& now) {
  for (std::size_t kept = std::min(before.size(), now.size()); kept > 0; --kept)
    if (std::equal(now.begin(), now.begin() + static_cast<std::ptrdiff_t>(kept),
                   before.end() - static_cast<std::ptrdiff_t>(kept)))
      return kept;
  return 0;
}

void print(Session& session, const plist::Value& entry) {
  session.print(session.json ? textOf(toJson(entry)) : oneLine(plainTextOf(entry)));
}

// A log that can't be read may be in the middle of being written by one that doesn't replace it.
Outcome<Done> follow(Session& session, plist::Array entries) {
  for (auto stamp = stampOfLog(session);;) {
    const auto flushed = session.flush();
    if (!flushed) return flushed;
    std::this_thread::sleep_for(kPause);
    const auto current = stampOfLog(session);
    if (current == stamp) continue;
    auto log = readLog(session);
    if (!log) continue;
    stamp = current;
    for (std::size_t i = known(entries, *log); i < log->size(); ++i) print(session, (*log)[i]);
    entries = std::move(*log);
  }
}

Outcome<Done> log(Session& session, bool followed) {
  if (followed)
    for (const int signal : {SIGINT, SIGTERM}) std::signal(signal, [](int) { _exit(0); });
  auto entries = readLog(session);
  if (!entries) return entries.error();
  if (session.json && !followed) {
    Json::array_t document;
    for (auto entry = entries->rbegin(); entry != entries->rend(); ++entry)
      document.push_back(toJson(*entry));
    session.printJson(Json(std::move(document)));
    return Done{};
  }
  for (auto entry = entries->rbegin(); entry != entries->rend(); ++entry) print(session, *entry);
  return followed ? follow(session, std::move(*entries)) : Outcome<Done>(Done{});
}

}  // namespace

Run declareLog(CLI::App& app, Session& session) {
  auto followed = std::make_shared<bool>(false);
  app.add_flag("--follow", *followed,
               "Go on with new entries as they come, until interrupted; with --json one a line");
  return [&session, followed] { return log(session, *followed); };
}

}  // namespace cli
