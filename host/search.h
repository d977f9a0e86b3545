#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/profiles.h"
#include "host/scene.h"

namespace host {

// A row, a choice of a row, a page or a saved profile.
struct SearchHit {
  std::string pageClass;  // the page that shows it
  std::string id;         // of the row; the path of a profile; empty for a page
  std::string label;      // of the row, the choice, the page or the profile
  std::string where;      // "Power Saving > Radios > Wi-Fi": what leads to it
  bool operator==(const SearchHit&) const = default;
};

// What matches each word, the best first, equal ones in the order of the pages. A word matches a
// word of a label, a choice, a color, a key, a footer or of what leads there: the same one in any
// case, a longer one that begins with it or holds it, or one with a typo (two from eight letters
// on). Labels count more than choices, those more than footers. `pages`: with all rows built.
std::vector<SearchHit> search(const std::vector<PageView>& pages,
                              const std::vector<SavedProfile>& profiles, std::string_view words);

}  // namespace host
