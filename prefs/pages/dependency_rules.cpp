#include "prefs/pages/dependency_rules.h"

namespace prefs {
namespace {

bool isOn(const preferences::PSSpecifier* row) {
  const preferences::PSTableCell* cell = row ? row->cellObject() : nullptr;
  const uikit::Control* control = cell ? cell->control() : nullptr;
  return control && control->isOn();
}

bool applies(Effect effect, bool on) {
  return effect != Effect::DimmedWhileOn || on;
}
bool enables(Effect effect, bool on) {
  return on == (effect == Effect::EnabledWhileOn);
}

// Inline, since it runs for every row of a page on every scroll event.
inline void applyState(uikit::TableViewCell& cell, By by, bool enabled) {
  if (by == By::CellEnabled)
    cell.setEnabled(enabled);
  else
    cell.setUserInteractionEnabled(enabled);
  cell.setAlpha(enabled ? 1.0 : kDimmedOpacity);
}

bool isDimmed(const uikit::TableViewCell& cell) {
  return !cell.userInteractionEnabled() || !cell.enabled();
}

}  // namespace

void setCellState(uikit::TableViewCell* cell, By by, bool enabled) {
  if (cell) applyState(*cell, by, enabled);
}

void BoundRules::bind(std::span<const DependencyRule> rules, preferences::PSListController& page) {
  rules_ = rules;
  runs_.clear();
  const DependencyRule* last = nullptr;
  for (const DependencyRule& rule : rules) {
    const bool sameRun = last && last->controllingSwitch == rule.controllingSwitch &&
                         last->by == rule.by && last->effect == rule.effect;
    if (!sameRun)
      runs_.push_back({page.specifierForID(rule.controllingSwitch), rule.by, rule.effect, {}});
    if (const auto* row = page.specifierForID(rule.dependentRow))
      runs_.back().dependentRows.push_back(row);
    last = &rule;
  }
}

void BoundRules::evaluate() const {
  for (const Run& run : runs_) {
    const bool on = isOn(run.controllingSwitch);
    if (!applies(run.effect, on)) continue;
    const bool enabled = enables(run.effect, on);
    for (const preferences::PSSpecifier* row : run.dependentRows)
      if (auto* cell = row->cellObject()) applyState(*cell, run.by, enabled);
  }
}

BoundRules::Dimming BoundRules::dimmingOf(std::string_view row,
                                          preferences::PSListController& page) const {
  const preferences::PSSpecifier* dependent = page.specifierForID(row);
  if (!dependent || !dependent->isBuilt() || !isDimmed(*dependent->cellObject())) return {};
  std::string_view last, dimming;
  for (const DependencyRule& rule : rules_) {
    if (rule.dependentRow != row) continue;
    last = rule.controllingSwitch;
    const bool on = isOn(page.specifierForID(last));
    if (applies(rule.effect, on)) dimming = enables(rule.effect, on) ? std::string_view() : last;
  }
  return dimming.empty() ? Dimming{last, !last.empty()} : Dimming{dimming};
}

}  // namespace prefs
