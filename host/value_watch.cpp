#include "host/value_watch.h"

#include <utility>

#include "prefs/core/names.h"
#include "prefs/core/preference_store.h"

namespace host {

std::string ValueWatch::path() {
  return foundation::domainPath(prefs::kDomain);
}

Attempt<std::vector<prefs::Difference>> ValueWatch::look() {
  const auto readable = preferences_.refresh(prefs::kDomain);
  if (!readable) return failureOf(Source::Settings, readable.error());
  const plist::Dictionary now = prefs::wholeDomainRead(preferences_);
  const plist::Dictionary before = std::exchange(last_, now);
  if (!std::exchange(looked_, true)) return std::vector<prefs::Difference>();
  return prefs::differences(before, now);
}

}  // namespace host
