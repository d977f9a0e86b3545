#pragma once

#include "prefs/pages/DependentListController.h"

namespace prefs {

// What low power mode switches. Its options can be changed only while the mode is off.
class LowPowerListController : public DependentListController {
 public:
  using DependentListController::DependentListController;
  std::string_view className() const override { return "LowPowerListController"; }
  std::span<const DependencyRule> rules() const override;

  void setSpecifierViewEnabled(uikit::TableViewCell* cell, bool enabled);
  // Rows that came into view get their state.
  void scrollViewDidScroll(uikit::View* view) override;

  const preferences::Operations& operations() const override { return ownOperations; }
  static const preferences::Operations ownOperations;
};

}  // namespace prefs
