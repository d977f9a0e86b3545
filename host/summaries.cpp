#include "host/summaries.h"

#include <algorithm>

#include "host/describe.h"
#include "host/text.h"
#include "platform/plist/binary.h"
#include "platform/preferences/row_value.h"
#include "platform/preferences/specifier_list.h"
#include "prefs/core/names.h"
#include "prefs/keys.h"

namespace host {
namespace {

using preferences::CellType;
using preferences::PSSpecifier;

constexpr std::size_t kMostChanges = 2;

// The switch that a whole page depends on.
constexpr std::pair<std::string_view, std::string_view> kMasters[] = {
    {"GeneralSettingsController", prefs::key::enabled},
    {"ProfilesListController", prefs::key::profileactive},
    {"LowPowerListController", prefs::key::lowpowermodeenabled}};

// What the entries of a list are.
struct Counted {
  std::string_view row, one, several;
};
constexpr Counted kCounted[] = {{prefs::kSavedProfilesRow, "profile", "profiles"},
                                {prefs::kBatteryLogRow, "entry", "entries"}};

std::string countOf(const PSSpecifier& row) {
  const auto found = std::ranges::find(kCounted, row.identifier(), &Counted::row);
  if (found == std::end(kCounted)) return {};
  const std::size_t count = row.values().size();
  return (count == 0 ? "No" : std::to_string(count)) + " " +
         std::string(count == 1 ? found->one : found->several);
}

std::string lowered(std::string text) {
  const bool word = text.size() > 1 && text[1] >= 'a' && text[1] <= 'z';
  if (word && text[0] >= 'A' && text[0] <= 'Z') text[0] += 'a' - 'A';
  return text;
}

// "Brightness (%)" with 20 is "Brightness 20 %".
std::string withUnit(const std::string& label, const std::string& number) {
  const auto open = label.find(" ("), close = label.find(')');
  if (open == std::string::npos || close != label.size() - 1) return label + " " + number;
  return label.substr(0, open + 1) + number + " " + label.substr(open + 2, close - open - 2);
}

std::string wordsOf(const PSSpecifier& row, const plist::Value& value) {
  std::string shown = shownText(row, value);
  if (const auto color = shown.find(", #"); color != std::string::npos) shown.resize(color);
  switch (row.cellType()) {
    case CellType::PSSwitchCell:
      return shown == "on" ? row.name() : row.name() + " off";
    case CellType::PSSliderCell:
      return withUnit(row.name(), numberText(value.number().value_or(0)));
    case CellType::PSEditTextCell:
    case CellType::PSEditTextViewCell:
    case CellType::PSSecureEditTextCell:
      return row.name();
    case CellType::PSSegmentCell:
      return row.name() + " " + lowered(shown);
    default:
      // Choices that are read from files are stored in another form than they are shown in.
      return shown.empty() || !row.textForKey("valuesDataSource").empty()
                 ? row.name()
                 : row.name() + " " + shown;
  }
}

}  // namespace

const Summaries::Rows& Summaries::rowsOf(std::string_view pageClass) {
  const auto known = rows_.find(pageClass);
  if (known != rows_.end()) return known->second;
  Rows rows;
  const preferences::PageClass* page = environment_.bundle.pageClass(pageClass);
  const auto* resource = page ? environment_.bundle.list(page->list) : nullptr;
  const auto root = resource ? plist::readBinary(resource->bytes) : plist::Value();
  if (auto list = root ? preferences::readSpecifierList(*root) : preferences::SpecifierList())
    for (auto& row : list->specifiers)
      if (!row->textForKey("key").empty()) rows.push_back(std::move(row));
  return rows_.emplace(pageClass, std::move(rows)).first->second;
}

plist::Value Summaries::valueOf(const PSSpecifier& row) const {
  return preferences::storedOrDefault(row.properties(), environment_.preferences);
}

std::string Summaries::changesIn(const Rows& rows) {
  std::string words;
  std::size_t changes = 0;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const PSSpecifier& row = *rows[i];
    const auto isSlider = [&](std::size_t at) {
      return at < rows.size() && rows[at]->cellType() == CellType::PSSliderCell;
    };
    const plist::Value value = valueOf(row);
    const plist::Value standard = preferences::defaultValue(row.properties());
    bool changed = !sameShown(row, value, standard);
    if (row.cellType() == CellType::PSSwitchCell && isSlider(i + 1)) continue;
    if (isSlider(i) && i > 0 && rows[i - 1]->cellType() == CellType::PSSwitchCell)
      changed = foundation::boolValue(valueOf(*rows[i - 1]));
    if (!changed || ++changes > kMostChanges) continue;
    words += (words.empty() ? "" : ", ") + wordsOf(row, value);
  }
  if (changes > kMostChanges) words += ", " + std::to_string(changes - kMostChanges) + " more";
  return words;
}

std::string Summaries::of(const PSSpecifier& link) {
  if (std::string count = countOf(link); !count.empty()) return count;
  const std::string_view page = link.textForKey("detail");
  if (page.empty() || link.cellType() != CellType::PSLinkCell) return {};
  const Rows& rows = rowsOf(page);
  const auto master = std::ranges::find(kMasters, page, [](auto& each) { return each.first; });
  if (master == std::end(kMasters)) return changesIn(rows);
  const auto row = std::ranges::find_if(
      rows, [&](const auto& each) { return each->textForKey("key") == master->second; });
  return row == rows.end() ? std::string() : capital(shownText(**row, valueOf(**row)));
}

}  // namespace host
