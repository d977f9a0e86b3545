#include "host/battery_log.h"

#include <algorithm>
#include <cerrno>

#include "prefs/core/archive_file.h"
#include "prefs/core/names.h"

namespace host {
namespace {

Failure unreadable(std::string words) {
  return {Failure::Failed,
          {.source = Source::Log, .path = std::string(prefs::kBatteryLog), .words = words}};
}

}  // namespace

std::string_view batteryLogPath() {
  return prefs::kBatteryLog;
}

Attempt<plist::Array> readBatteryLog(const preferences::Environment& environment) {
  const auto bytes = environment.root.read(prefs::kBatteryLog);
  if (!bytes && bytes.error().code == ENOENT) return plist::Array();
  if (!bytes)
    return Failure{Failure::Failed, {.source = Source::Log, .words = bytes.error().message()}};
  auto log = prefs::unarchive(*bytes, environment.xml);
  if (!log) return unreadable(log.error().message());
  if (!log->array()) return unreadable("not a list of entries");
  return std::move(*log->array());
}

plist::Array newEntries(const plist::Array& before, const plist::Array& now) {
  for (std::size_t kept = std::min(before.size(), now.size()); kept > 0; --kept) {
    const auto known = now.begin() + static_cast<std::ptrdiff_t>(kept);
    if (std::equal(now.begin(), known, before.end() - static_cast<std::ptrdiff_t>(kept)))
      return {known, now.end()};
  }
  return now;
}

}  // namespace host
