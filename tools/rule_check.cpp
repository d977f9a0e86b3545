#include "tools/rule_check.h"

#include <algorithm>

namespace tools {

using preferences::ListError;

std::vector<ListError> ruleErrors(std::string_view page,
                                  std::span<const prefs::DependencyRule> rules,
                                  const preferences::SpecifierList& list) {
  std::vector<ListError> errors;
  const auto report = [&](int row, std::string_view id, const char* what) {
    ListError error{row, std::string(page) + ": a rule names \"" + std::string(id) + "\", " + what};
    if (std::ranges::find(errors, error.what, &ListError::what) == errors.end())
      errors.push_back(std::move(error));
  };
  const auto rowOf = [&](std::string_view id) {
    const auto row =
        std::ranges::find(list.specifiers, id, [](const auto& each) { return each->identifier(); });
    return row == list.specifiers.end() ? -1 : static_cast<int>(row - list.specifiers.begin());
  };
  for (const prefs::DependencyRule& rule : rules) {
    const int controlling = rowOf(rule.controllingSwitch);
    for (const prefs::Key id : {rule.controllingSwitch, rule.dependentRow})
      if (rowOf(id) < 0) report(-1, id, "and the list has no such row");
    if (controlling >= 0 &&
        list.specifiers[controlling]->cellType() != preferences::CellType::PSSwitchCell)
      report(controlling, rule.controllingSwitch, "which is not a switch");
  }
  return errors;
}

}  // namespace tools
