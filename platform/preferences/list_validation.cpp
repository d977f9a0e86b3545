#include <algorithm>
#include <set>

#include "platform/foundation/text.h"
#include "platform/preferences/specifier_list.h"

namespace preferences {
namespace {

struct SelectorKey {
  std::string_view key;
  std::size_t arity;
};

// Which row properties name an operation of the page, and what it takes.
constexpr SelectorKey kSelectorKeys[] = {
    {"set", 2}, {"get", 1}, {"valuesDataSource", 1}, {"titlesDataSource", 1}};

class RowCheck {
 public:
  RowCheck(const PSSpecifier& row, const Operations& operations, const Bundle& bundle)
      : row_(row), operations_(operations), bundle_(bundle) {}

  std::vector<std::string> run() {
    selectors();
    classes();
    choices();
    store();
    return std::move(wrong_);
  }

 private:
  void selectors() {
    for (auto [key, arity] : kSelectorKeys) {
      auto selector = row_.textForKey(key);
      if (selector.empty()) continue;
      const Operation* operation = operations_.find(selector);
      if (!operation)
        say("unknown selector \"" + std::string(selector) + "\" for " + std::string(key));
      else if (operation->arity() != arity)
        say("selector \"" + std::string(selector) + "\" can't serve as " + std::string(key));
    }
    auto action = row_.textForKey("action");
    const Operation* operation = operations_.find(action);
    if (!action.empty() && !operation)
      say("unknown selector \"" + std::string(action) + "\" for action");
    if (operation && operation->arity() > 1)
      say("selector \"" + std::string(action) + "\" can't serve as action");
  }

  void classes() {
    auto detail = row_.textForKey("detail"), cell = row_.textForKey("cellClass");
    if (!detail.empty() && !bundle_.pageClass(detail))
      say("unknown page class \"" + std::string(detail) + "\"");
    if (!cell.empty() && !bundle_.cellClass(cell))
      say("unknown cell class \"" + std::string(cell) + "\"");
    if (row_.cellType() == CellType::PSLinkCell && detail.empty()) say("a link row needs detail");
  }

  void choices() {
    bool sources = !row_.textForKey("valuesDataSource").empty();
    if (sources != !row_.textForKey("titlesDataSource").empty())
      say("valuesDataSource and titlesDataSource go together");
    auto count = [&](const char* key) {
      auto* array = row_.propertyForKey(key).array();
      return array ? array->size() : 0;
    };
    if (count("validValues") != count("validTitles"))
      say("validValues and validTitles differ in length");
    if (hasChoices(row_.cellType()) && !sources && row_.values().empty())
      say("a row of choices needs some");
    const plist::Value& standard = row_.propertyForKey("default");
    if (hasChoices(row_.cellType()) && !sources && !standard.isNothing() &&
        row_.indexOfValue(standard) < 0)
      say("default is none of validValues");
  }

  void store() {
    if (row_.textForKey("key").empty() != row_.textForKey("defaults").empty())
      say("key and defaults go together");
    if (row_.identifier().empty() && row_.cellType() != CellType::PSGroupCell) say("id is missing");
    if (row_.cellType() != CellType::PSSliderCell) return;
    auto min = row_.propertyForKey("min").number(), max = row_.propertyForKey("max").number();
    auto standard = row_.propertyForKey("default").number();
    if (!min || !max || !(*min < *max))
      say("a slider needs min below max");
    else if (standard && (*standard < *min || *standard > *max))
      say("default lies outside min and max");
  }

  void say(std::string what) { wrong_.push_back(std::move(what)); }

  const PSSpecifier& row_;
  const Operations& operations_;
  const Bundle& bundle_;
  std::vector<std::string> wrong_;
};

}  // namespace

std::vector<ListError> validate(const SpecifierList& list, const Operations& operations,
                                const Bundle& bundle) {
  std::vector<ListError> errors;
  std::set<std::string_view> identifiers;
  for (std::size_t i = 0; i < list.specifiers.size(); ++i) {
    const PSSpecifier& row = *list.specifiers[i];
    for (auto& what : RowCheck(row, operations, bundle).run())
      errors.push_back({static_cast<int>(i), std::move(what)});
    if (!row.identifier().empty() && !identifiers.insert(row.identifier()).second)
      errors.push_back({static_cast<int>(i), "a second row of id \"" + row.identifier() + "\""});
  }
  return errors;
}

}  // namespace preferences
