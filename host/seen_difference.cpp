#include "host/seen_difference.h"

#include "host/application.h"
#include "host/describe.h"
#include "platform/foundation/text.h"
#include "platform/preferences/row_value.h"

namespace host {
namespace {

constexpr char kAbsent[] = "absent";

std::string rawText(const std::optional<plist::Value>& value) {
  return value ? foundation::replacingInvalidUtf8(foundation::descriptionOf(*value)) : kAbsent;
}

SeenDifference seenIn(const preferences::PSSpecifier& row, const prefs::Difference& difference) {
  const plist::Value standard = preferences::defaultValue(row.properties());
  const plist::Value from = difference.from.value_or(standard);
  const plist::Value to = difference.to.value_or(standard);
  return {difference.key, shownText(row, from), shownText(row, to), !sameShown(row, from, to),
          row.name().empty() ? row.identifier() : row.name()};
}

}  // namespace

std::vector<prefs::Difference> differencesWithin(const prefs::Difference& difference) {
  const auto dictionaryIn = [](const std::optional<plist::Value>& value) {
    return value ? value->dictionary() : nullptr;
  };
  const auto *from = dictionaryIn(difference.from), *to = dictionaryIn(difference.to);
  return from && to ? prefs::differences(*from, *to) : std::vector<prefs::Difference>();
}

std::vector<SeenDifference> seenDifferences(Settings& settings,
                                            const std::vector<prefs::Difference>& differences) {
  std::vector<SeenDifference> seen;
  Settings::Pages pages;
  for (const prefs::Difference& difference : differences) {
    const auto* row = settings.row(difference.key, pages);
    if (row)
      seen.push_back(seenIn(*row, difference));
    else
      seen.push_back(
          {difference.key, rawText(difference.from), rawText(difference.to), true, difference.key});
  }
  return seen;
}

}  // namespace host
