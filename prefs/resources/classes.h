#pragma once

#include <span>

#include "platform/preferences/bundle.h"
#include "prefs/pages/dependency_rules.h"

// Every class of the bundle that a specifier list can name, and the rules of the pages.
namespace prefs {

inline constexpr std::string_view kPrincipalClass = "quorvantisprefsListController";

std::span<const preferences::PageClass> pageClasses();
std::span<const preferences::CellClass> cellClasses();

// The rules of a page class; none where the name is unknown.
std::span<const DependencyRule> rulesOfPage(std::string_view name);

}  // namespace prefs
