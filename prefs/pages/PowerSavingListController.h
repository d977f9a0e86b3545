#pragma once

#include "prefs/pages/DependentListController.h"

namespace prefs {

// Which radios and features a profile switches, and at which brightness.
class PowerSavingListController : public DependentListController {
 public:
  using DependentListController::DependentListController;
  std::string_view className() const override { return "PowerSavingListController"; }
  std::span<const DependencyRule> rules() const override;
};

}  // namespace prefs
