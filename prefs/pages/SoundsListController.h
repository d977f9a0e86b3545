#pragma once

#include "prefs/pages/DependentListController.h"

namespace prefs {

// What a profile does to ringer, volume and sounds.
class SoundsListController : public DependentListController {
 public:
  using DependentListController::DependentListController;
  std::string_view className() const override { return "SoundsListController"; }
  std::span<const DependencyRule> rules() const override;
};

}  // namespace prefs
