#include "apps/cli/store_change.h"

#include "prefs/core/names.h"
#include "prefs/core/preference_store.h"

namespace cli {

Outcome<Done> changeStore(Session& session, const std::function<Outcome<Done>()>& change) {
  foundation::Preferences& preferences = session.device().preferences();
  const plist::Value before = prefs::wholeDomainRead(preferences);
  auto problems = session.device().takeProblems();
  const auto changed = change();
  if (!changed) return changed;
  const auto flushed = preferences.synchronize();
  if (!flushed) return Failure{ExitCode::Failed, flushed.error().message()};
  if (auto during = session.device().takeProblems(); !during.empty()) problems = std::move(during);
  if (!problems.empty() && plist::Value(prefs::wholeDomainRead(preferences)) == before)
    return Failure{ExitCode::Failed, problems.front()};
  session.warnings = std::move(problems);
  return Done{};
}

}  // namespace cli
