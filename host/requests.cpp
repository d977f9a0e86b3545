#include <algorithm>

#include "host/settings_application.h"

namespace host {
namespace {

using preferences::Argument;
using preferences::Operation;
using preferences::PSListController;
using preferences::PSSpecifier;

constexpr std::string_view kDidBecomeActive = "UIApplicationDidBecomeActiveNotification";

Argument argumentFor(PSSpecifier& row) {
  return static_cast<foundation::Object*>(&row);
}

}  // namespace

Outcome<SettingsApplication::Row> SettingsApplication::operableRow(
    const RowReference& reference) const {
  if (const auto refused = refusedForAlert()) return *refused;
  const auto found = row(reference);
  if (!found) return found.error();
  PSSpecifier& row = **found;
  const std::string name = "\"" + row.identifier() + "\"";
  if (!row.isBuilt()) return Refusal{RefusalCode::NotBuilt, "row " + name + " is off screen"};
  if (isUsable(row)) return std::static_pointer_cast<PSSpecifier>(row.shared_from_this());
  const std::string_view by = shownList()->dimmedBy(row.identifier());
  std::string reason = "row " + name + " is dimmed";
  if (!by.empty()) reason += " by \"" + std::string(by) + "\"";
  if (shownList()->dimmingLags(row.identifier())) reason += " until its rules are applied again";
  return Refusal{RefusalCode::Disabled, reason};
}

Outcome<Done> SettingsApplication::set(const RowReference& reference, const plist::Value& value) {
  const auto found = operableRow(reference);
  if (!found) return found.error();
  const auto changed = changeRow(*shownList(), **found, value);
  if (changed) buildVisibleRows();
  return changed;
}

// An action takes its sender or nothing.
void SettingsApplication::send(std::string_view selector, foundation::Object& target,
                               foundation::Object& sender) {
  auto* page = dynamic_cast<preferences::PSViewController*>(&target);
  const Operation* action = page ? page->operations().find(selector) : nullptr;
  if (!action) return;
  const Argument arguments[] = {&sender};
  action->run(target, std::span(arguments, std::min<std::size_t>(action->arity(), 1)));
}

Outcome<SettingsApplication::Choices> SettingsApplication::choices(const RowReference& reference) {
  const auto found = row(reference);
  if (!found) return found.error();
  PSSpecifier& row = **found;
  if (!preferences::hasChoices(row.cellType()))
    return Refusal{RefusalCode::BadRequest, "row \"" + row.identifier() + "\" has no choices"};
  shownList()->loadChoices(row);
  return Choices{row.values, row.titles};
}

Outcome<Done> SettingsApplication::scroll(int first) {
  if (const auto refused = refusedForAlert()) return *refused;
  if (pages_.empty()) return noPage();
  if (first < 0 || first >= entries())
    return Refusal{RefusalCode::BadValue, "there is no entry " + std::to_string(first)};
  firstRows_.back() = std::min(first, lastFirst());
  buildVisibleRows();
  if (PSListController* page = shownList()) {
    page->scrollViewDidScroll(nullptr);
    buildVisibleRows();
  }
  return Done{};
}

Outcome<Done> SettingsApplication::show(int first, int count) {
  viewport_ = std::max(count, 1);
  const auto done = scroll(first);
  if (!done) buildVisibleRows();
  return done;
}

Outcome<Done> SettingsApplication::select(int section, int index) {
  if (const auto refused = refusedForAlert()) return *refused;
  if (pages_.empty()) return noPage();
  uikit::TableView* table = shownTable();
  const bool exists = table && section >= 0 && index >= 0 &&
                      section < table->source->numberOfSectionsInTableView(*table) &&
                      index < table->source->tableViewNumberOfRowsInSection(*table, section);
  const std::string name = std::to_string(section) + "." + std::to_string(index);
  if (!exists) return Refusal{RefusalCode::NoRow, "the shown page has no table row " + name};
  if (!table->cellForRowAtIndexPath({section, index}))
    return Refusal{RefusalCode::NotBuilt, "table row " + name + " is off screen"};
  table->source->tableViewDidSelectRowAtIndexPath(*table, {section, index});
  buildVisibleRows();
  return Done{};
}

Outcome<Done> SettingsApplication::drag(int tag, double value, bool release) {
  if (const auto refused = refusedForAlert()) return *refused;
  if (pages_.empty()) return noPage();
  const std::string name = "the slider of tag " + std::to_string(tag);
  if (!shownTable() || !shownPage()->hasSlider(tag))
    return Refusal{RefusalCode::NoRow, "no slider has the tag " + std::to_string(tag)};
  auto* slider = dynamic_cast<uikit::Slider*>(shownTable()->viewWithTag(tag));
  if (!slider) return Refusal{RefusalCode::NotBuilt, name + " is off screen"};
  if (!(value >= slider->minimumValue() && value <= slider->maximumValue()))
    return Refusal{RefusalCode::BadValue, name + " takes a number within its range"};
  const auto held = slider->shared_from_this();
  slider->drag(static_cast<float>(value));
  if (release) slider->endTracking();
  buildVisibleRows();
  return Done{};
}

void SettingsApplication::activate() {
  static_cast<void>(environment_.preferences.synchronize());
  environment_.defaultCenter.postNotificationName(kDidBecomeActive, nullptr);
  buildVisibleRows();
}

void SettingsApplication::layout() {
  layOutRows();
  buildVisibleRows();
}

Outcome<Done> SettingsApplication::reload() {
  if (pages_.empty()) return noPage();
  static_cast<void>(environment_.preferences.synchronize());
  if (PSListController* page = shownList())
    page->reloadSpecifiers();
  else if (uikit::TableView* table = shownTable())
    table->reloadData();
  buildVisibleRows();
  return Done{};
}

// Tries each way of reading the texts that name rows, as text first.
std::optional<Argument> SettingsApplication::run(const Operation& operation,
                                                 std::span<const Argument> arguments) {
  PSListController* list = shownList();
  std::vector<Row> rows(arguments.size());
  std::vector<std::size_t> ambiguous;
  for (std::size_t i = 0; list && i < arguments.size(); ++i) {
    const auto* value = std::get_if<plist::Value>(&arguments[i]);
    PSSpecifier* row = value && value->text() ? list->specifierForID(*value->text()) : nullptr;
    if (!row) continue;
    rows[i] = std::static_pointer_cast<PSSpecifier>(row->shared_from_this());
    ambiguous.push_back(i);
  }
  for (std::size_t asRows = 0; asRows < std::size_t{1} << ambiguous.size(); ++asRows) {
    std::vector<Argument> given(arguments.begin(), arguments.end());
    for (std::size_t bit = 0; bit < ambiguous.size(); ++bit)
      if (asRows >> bit & 1) given[ambiguous[bit]] = argumentFor(*rows[ambiguous[bit]]);
    if (auto result = operation.run(*pages_.back(), given)) return result;
  }
  return std::nullopt;
}

Outcome<Argument> SettingsApplication::call(std::string_view selector,
                                            std::span<const Argument> arguments) {
  if (pages_.empty()) return noPage();
  const Operation* operation = shownPage()->operations().find(selector);
  const std::string name = "\"" + std::string(selector) + "\"";
  if (!operation)
    return Refusal{RefusalCode::BadRequest, "the shown page has no operation " + name};
  if (operation->arity() != arguments.size())
    return Refusal{RefusalCode::BadRequest,
                   name + " takes " + std::to_string(operation->arity()) + " arguments"};
  auto result = run(*operation, arguments);
  if (!result) return Refusal{RefusalCode::BadRequest, name + " can't take these arguments"};
  buildVisibleRows();
  return *result;
}

}  // namespace host
