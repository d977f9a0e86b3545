#include "apps/cli/trigger.h"

#include <algorithm>

#include "prefs/profiles/triggers.h"

namespace cli {
namespace {

Outcome<Trigger> triggerAt(const plist::Array& texts, std::string_view text) {
  const auto found = std::ranges::find(texts, plist::Value(text));
  if (found == texts.end())
    return Failure{ExitCode::NotFound,
                   "no trigger \"" + std::string(text) + "\"; quorvantis triggers lists them"};
  const plist::Array values = prefs::triggerValues();
  const std::string& profileID = *values[static_cast<std::size_t>(found - texts.begin())].text();
  return Trigger{profileID, prefs::profilePath(std::stoi(profileID))};
}

}  // namespace

Outcome<Trigger> triggerOfID(std::string_view profileID) {
  return triggerAt(prefs::triggerValues(), profileID);
}

Outcome<Trigger> findTrigger(std::string_view text) {
  if (auto found = triggerOfID(text)) return found;
  return triggerAt(prefs::triggerTitles(), text);
}

Failure failureOf(const Trigger& trigger, const prefs::ProfileError& error) {
  if (error.missing) return {ExitCode::NotFound, "no profile " + trigger.path};
  return {ExitCode::Failed, error.message};
}

Outcome<plist::Dictionary> readProfile(const preferences::Environment& environment,
                                       std::string_view trigger) {
  const auto found = findTrigger(trigger);
  if (!found) return found.error();
  auto profile = prefs::readProfile(environment, found->path);
  if (!profile) return failureOf(*found, profile.error());
  return std::move(*profile);
}

}  // namespace cli
