#include "host/search.h"

#include <algorithm>

#include "host/closest.h"
#include "host/color_choice.h"

namespace host {
namespace {

constexpr std::string_view kSeparator = " > ";
constexpr std::string_view kProfilesPage = "ProfilesListController";

enum Weight {
  kPage = 110,
  kLabel = 100,
  kKey = 80,
  kChoice = 70,
  kRow = 60,
  kContext = 30,
  kFooter = 20
};

bool isLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || static_cast<unsigned char>(c) >= 0x80;
}

// In lower case; "Wi-Fi" is "wi", "fi" and "wifi".
std::vector<std::string> wordsOf(std::string_view text) {
  std::vector<std::string> words;
  std::string word, joined;
  const auto endJoined = [&] {
    if (!joined.empty() && joined != words.back()) words.push_back(joined);
    joined.clear();
  };
  const auto endWord = [&] {
    if (!word.empty()) words.push_back(word);
    joined += std::exchange(word, {});
  };
  for (const char c : lowerCase(text)) {
    if (isLetter(c)) {
      word += c;
      continue;
    }
    endWord();
    if (c != '-') endJoined();
  }
  endWord();
  endJoined();
  return words;
}

// Of 100.
int likeness(const std::string& typed, const std::string& word) {
  if (word == typed) return 100;
  if (word.starts_with(typed)) return 80;
  if (typed.size() > 2 && word.find(typed) != std::string::npos) return 60;
  const std::size_t allowed = typed.size() < 4 ? 0 : typed.size() < 8 ? 1 : 2;
  if (allowed == 0 || word.size() > typed.size() + allowed) return 0;
  return typosBetween(typed, word) <= allowed ? 50 : 0;
}

struct Field {
  std::string_view text;
  Weight weight;
};

class Search {
 public:
  explicit Search(std::string_view words) : typed_(wordsOf(words)) {}

  void offer(SearchHit hit, std::initializer_list<Field> fields) {
    std::vector<std::pair<std::string, Weight>> words;
    for (const Field& field : fields)
      for (std::string& word : wordsOf(field.text))
        words.emplace_back(std::move(word), field.weight);
    int sum = 0;
    bool itself = false;  // something besides what leads to it matches
    for (const std::string& typed : typed_) {
      int best = 0;
      for (const auto& [word, weight] : words) {
        const int score = likeness(typed, word) * weight;
        if (score > 0 && weight != kContext && weight != kRow) itself = true;
        best = std::max(best, score);
      }
      if (best == 0) return;
      sum += best;
    }
    if (itself) found_.push_back({sum, std::move(hit)});
  }

  std::vector<SearchHit> hits() && {
    std::ranges::stable_sort(found_, std::ranges::greater(), &Found::score);
    std::vector<SearchHit> hits;
    for (Found& found : found_) hits.push_back(std::move(found.hit));
    return hits;
  }

 private:
  struct Found {
    int score;
    SearchHit hit;
  };
  std::vector<std::string> typed_;
  std::vector<Found> found_;
};

std::string under(const std::string& place, const std::string& name) {
  if (place.empty() || name.empty()) return place + name;
  return place + std::string(kSeparator) + name;
}

const std::vector<std::string>& titlesOf(const RowView& row,
                                         const std::vector<std::string>& colors) {
  static const std::vector<std::string> kNone;
  if (row.kind == RowKind::Color) return colors;
  if (auto* segments = std::get_if<SegmentsView>(&row.control)) return segments->choices->titles;
  if (auto* link = std::get_if<LinkView>(&row.control); link && link->choices)
    return link->choices->titles;
  return kNone;
}

void offerRows(Search& search, const PageView& page, const std::vector<std::string>& colors) {
  std::string group, footer;
  for (const RowView& row : page.rows) {
    if (row.kind == RowKind::Group) {
      group = row.label;
      footer = row.footer;
      continue;
    }
    const std::string place = under(page.title, group);
    const std::string name = row.label.empty() ? row.id : row.label;
    search.offer({page.pageClass, row.id, name, place},
                 {{name, kLabel}, {row.id, kKey}, {footer, kFooter}, {place, kContext}});
    const std::string rowPlace = under(place, name);
    for (const std::string& title : titlesOf(row, colors))
      search.offer({page.pageClass, row.id, title, rowPlace},
                   {{title, kChoice}, {name, kRow}, {place, kContext}});
  }
}

}  // namespace

std::vector<SearchHit> search(const std::vector<PageView>& pages,
                              const std::vector<SavedProfile>& profiles, std::string_view words) {
  Search search(words);
  const std::vector<std::string> colors = colorChoices().titles;
  for (const PageView& page : pages) {
    if (!page.title.empty())
      search.offer({page.pageClass, "", page.title, "Page"},
                   {{page.title, kPage}, {page.pageClass, kFooter}});
    offerRows(search, page, colors);
  }
  for (const SavedProfile& profile : profiles) {
    const std::string title = profile.longTitle();
    search.offer({std::string(kProfilesPage), profile.path, title, "Saved Profiles"},
                 {{title, kLabel}, {profile.path, kFooter}, {"Saved Profile", kContext}});
  }
  return std::move(search).hits();
}

}  // namespace host
