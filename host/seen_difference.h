#pragma once

#include <string>
#include <vector>

#include "host/settings.h"

namespace host {

// A difference of two sets of values as a user sees it.
struct SeenDifference {
  std::string key;
  std::string from, to;  // what the key's row shows; in place of an absent value, its default
  bool seen = true;      // it shows something else; of a key without a row, always
  std::string label{};   // of the row; of a key without one, the key
};

// What differs within the two dictionaries of a difference, as those of a profile; nothing where
// they aren't both dictionaries.
std::vector<prefs::Difference> differencesWithin(const prefs::Difference& difference);

// In the same order.
std::vector<SeenDifference> seenDifferences(Settings& settings,
                                            const std::vector<prefs::Difference>& differences);

}  // namespace host
