#include "host/kept_sets.h"

#include <utility>

namespace host {

void KeptSets::keep(const foundation::KeyChanges& kept, const std::optional<Of>& change) {
  for (const foundation::KeyChange& each : kept) {
    if (change)
      ofKeys_[each.key] = *change;
    else
      ofKeys_.erase(each.key);
  }
}

foundation::KeyChanges KeptSets::without(const foundation::DomainChange& change,
                                         std::optional<int> number) {
  foundation::KeyChanges others;
  for (const auto& [key, from, to] : change.keys) {
    const plist::Value* kept = change.kept.find(key);
    const auto of = ofKeys_.find(key);
    const bool known = kept && of != ofKeys_.end();
    if (!kept || (known && of->second.number == number)) {
      others.push_back({key, from, to});
      continue;
    }
    const auto value = kept->isNothing() ? std::nullopt : std::optional(*kept);
    if (known) {
      Change& step = stored_[of->second.number];
      step.what = of->second.what;
      step.settings.push_back({key, from, value});
    }
    if (value != to) others.push_back({key, value, to});
  }
  for (const auto& entry : change.kept) ofKeys_.erase(entry.key);
  return others;
}

std::vector<Change> KeptSets::takeStored() {
  std::vector<Change> stored;
  for (auto& [number, step] : std::exchange(stored_, {})) stored.push_back(std::move(step));
  return stored;
}

}  // namespace host
