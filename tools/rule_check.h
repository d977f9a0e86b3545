#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "platform/preferences/specifier_list.h"
#include "prefs/pages/dependency_rules.h"

namespace tools {

// What is wrong with the rules of a page against its list: each rule needs both its rows, and the
// controlling one must be a switch. Each fault is reported once, with the page's name and the id.
std::vector<preferences::ListError> ruleErrors(std::string_view page,
                                               std::span<const prefs::DependencyRule> rules,
                                               const preferences::SpecifierList& list);

}  // namespace tools
