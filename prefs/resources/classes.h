#pragma once

#include <span>

#include "platform/preferences/bundle.h"

// Every class of the bundle that a specifier list can name.
namespace prefs {

inline constexpr std::string_view kPrincipalClass = "quorvantisprefsListController";

std::span<const preferences::PageClass> pageClasses();
std::span<const preferences::CellClass> cellClasses();

}  // namespace prefs
