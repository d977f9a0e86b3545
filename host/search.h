#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/profiles.h"
#include "host/scene.h"

namespace host {

// A row, a group of rows, a choice of a row, a page or a saved profile.
struct SearchHit {
  std::string pageClass;  // the page that shows it
  std::string id;         // of the row or group; the path of a profile; empty for a page
  std::string label;      // of the row, the group, the choice, the page or the profile
  std::string where;      // "Power Saving > Radios > Wi-Fi": what leads to it
  bool operator==(const SearchHit&) const = default;
};

// All that can be found, split into words once, so that each search is quick.
//
// What matches each word is found, the best first; of those that match alike a label that begins
// with the first word, then the shorter one, else in the order of the pages. A profile is found
// once, not as a choice of each list that has it. A word matches a word of a label, a choice, a
// color (by name or digits), a key, a footer or of what leads there: the same one in any case, a
// longer one that begins with it or holds it, or one with a typo (two from eight letters on; one in
// the beginning of a longer word). Labels count more than choices, those more than footers.
class SearchIndex {
 public:
  // `pages`: with all rows built.
  SearchIndex(const std::vector<PageView>& pages, const std::vector<SavedProfile>& profiles);

  std::vector<SearchHit> find(std::string_view words) const;

  struct Word {
    std::string text;
    int weight;
  };

 private:
  struct Field;
  void add(SearchHit hit, std::initializer_list<Field> fields);
  void addRows(const PageView& page);
  void addChoices(const PageView& page, const RowView& row, const std::string& place);

  struct Entry {
    SearchHit hit;
    std::vector<Word> words;
  };
  std::vector<Entry> entries_;
};

}  // namespace host
