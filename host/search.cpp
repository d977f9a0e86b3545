#include "host/search.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "host/closest.h"
#include "host/color_choice.h"
#include "host/triggers.h"

namespace host {
namespace {

constexpr std::string_view kSeparator = " > ";
constexpr std::string_view kProfilesPage = "ProfilesListController";

enum Weight {
  kPage = 110,
  kLabel = 100,
  kGroup = 90,
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

// A user who is still typing.
bool beginsWithTypo(const std::string& typed, const std::string& word) {
  for (std::size_t length = typed.size() - 1; length <= typed.size() + 1; ++length)
    if (length < word.size() && typosBetween(typed, word.substr(0, length)) <= 1) return true;
  return false;
}

// How well a word matches what was typed: 100 is the same word, 0 is no match.
int likeness(const std::string& typed, const std::string& word) {
  if (word == typed) return 100;
  if (word.starts_with(typed)) return 80;
  if (typed.size() > 2 && word.find(typed) != std::string::npos) return 60;
  const std::size_t allowed = typed.size() < 4 ? 0 : typed.size() < 8 ? 1 : 2;
  if (allowed == 0) return 0;
  if (word.size() <= typed.size() + allowed && typosBetween(typed, word) <= allowed) return 50;
  return beginsWithTypo(typed, word) ? 40 : 0;
}

// Likewise of an entry, for all that was typed; 0 where a word has no match, or only in what leads
// to it.
int scoreOf(const std::vector<std::string>& typed, const std::vector<SearchIndex::Word>& words) {
  int sum = 0;
  bool itself = false;
  for (const std::string& wanted : typed) {
    int best = 0;
    for (const auto& [word, weight] : words) {
      const int score = likeness(wanted, word) * weight;
      if (score > 0 && weight != kContext && weight != kRow) itself = true;
      best = std::max(best, score);
    }
    if (best == 0) return 0;
    sum += best;
  }
  return itself ? sum : 0;
}

std::string under(const std::string& place, const std::string& name) {
  if (place.empty() || name.empty()) return place + name;
  return place + std::string(kSeparator) + name;
}

}  // namespace

struct SearchIndex::Field {
  std::string_view text;
  Weight weight;
};

void SearchIndex::add(SearchHit hit, std::initializer_list<Field> fields) {
  std::vector<Word> words;
  for (const auto& [text, weight] : fields)
    for (std::string& word : wordsOf(text)) words.push_back({std::move(word), weight});
  entries_.push_back({std::move(hit), std::move(words)});
}

void SearchIndex::addChoices(const PageView& page, const RowView& row, const std::string& place) {
  static const preferences::Choices kColors = colorChoices();
  const std::string& name = row.label.empty() ? row.id : row.label;
  const std::string rowPlace = under(place, name);
  const preferences::Choices* choices = nullptr;
  if (row.kind == RowKind::Color)
    choices = &kColors;
  else if (auto* segments = std::get_if<SegmentsView>(&row.control))
    choices = segments->choices.get();
  else if (auto* link = std::get_if<LinkView>(&row.control))
    choices = link->choices.get();
  if (!choices) return;
  for (std::size_t i = 0; i < choices->titles.size(); ++i) {
    const std::string& title = choices->titles[i];
    const std::string* text = choices->values[i].text();
    if (text && isProfilePath(*text)) continue;  // it is found as itself
    const std::string* color = row.kind == RowKind::Color ? text : nullptr;
    add({page.pageClass, row.id, title, rowPlace},
        {{title, kChoice}, {color ? *color : "", kKey}, {name, kRow}, {place, kContext}});
  }
}

void SearchIndex::addRows(const PageView& page) {
  std::string group, footer;
  for (const RowView& row : page.rows) {
    if (row.kind == RowKind::Group) {
      group = row.label;
      footer = row.footer;
      if (!group.empty())
        add({page.pageClass, row.id, group, page.title},
            {{group, kGroup}, {row.id, kFooter}, {page.title, kContext}});
      continue;
    }
    const std::string place = under(page.title, group);
    const std::string name = row.label.empty() ? row.id : row.label;
    add({page.pageClass, row.id, name, place},
        {{name, kLabel}, {row.id, kKey}, {footer, kFooter}, {place, kContext}});
    addChoices(page, row, place);
  }
}

SearchIndex::SearchIndex(const std::vector<PageView>& pages,
                         const std::vector<SavedProfile>& profiles) {
  for (const PageView& page : pages) {
    if (!page.title.empty())
      add({page.pageClass, "", page.title, "Page"},
          {{page.title, kPage}, {page.pageClass, kFooter}});
    addRows(page);
  }
  for (const SavedProfile& profile : profiles) {
    const std::string title = profile.longTitle();
    add({std::string(kProfilesPage), profile.path, title, "Saved Profiles"},
        {{title, kLabel}, {profile.path, kFooter}, {"Saved Profile", kContext}});
  }
}

std::vector<SearchHit> SearchIndex::find(std::string_view words) const {
  const std::vector<std::string> typed = wordsOf(words);
  // The greatest is the best.
  using Rank = std::tuple<int, bool, bool, std::ptrdiff_t>;
  std::vector<std::pair<Rank, const SearchHit*>> found;
  for (const Entry& entry : entries_) {
    const int score = scoreOf(typed, entry.words);
    if (score == 0) continue;
    const auto label = wordsOf(entry.hit.label);
    const bool begins = !label.empty() && label.front().starts_with(typed.front());
    found.push_back({{score, label == typed, begins, -std::ssize(entry.hit.label)}, &entry.hit});
  }
  std::ranges::stable_sort(found, std::ranges::greater(),
                           &std::pair<Rank, const SearchHit*>::first);
  std::vector<SearchHit> hits;
  for (const auto& [rank, hit] : found) hits.push_back(*hit);
  return hits;
}

}  // namespace host
