#pragma once

#include "prefs/pages/DependentListController.h"

// The option pages that are a list and little else.
namespace prefs {

// Which radios and features a profile switches, and at which brightness.
class PowerSavingListController : public DependentListController {
 public:
  using DependentListController::DependentListController;
  std::string_view className() const override { return "PowerSavingListController"; }
  std::span<const DependencyRule> rules() const override { return ownRules; }
  static const std::span<const DependencyRule> ownRules;
};

// What a profile does to ringer, volume and sounds.
class SoundsListController : public DependentListController {
 public:
  using DependentListController::DependentListController;
  std::string_view className() const override { return "SoundsListController"; }
  std::span<const DependencyRule> rules() const override { return ownRules; }
  static const std::span<const DependencyRule> ownRules;
};

// What low power mode switches. Its options can be changed only while the mode is off.
class LowPowerListController : public DependentListController {
 public:
  using DependentListController::DependentListController;
  std::string_view className() const override { return "LowPowerListController"; }
  std::span<const DependencyRule> rules() const override { return ownRules; }
  static const std::span<const DependencyRule> ownRules;

  void setSpecifierViewEnabled(uikit::TableViewCell* cell, bool enabled);
  // Evaluates, for the rows that came into view.
  void scrollViewDidScroll(uikit::View* view) override;

  const preferences::Operations& operations() const override { return ownOperations; }
  static const preferences::Operations ownOperations;
};

// Under which conditions a profile fires. Its rows are stored by the platform's setter; evaluating
// the page tints two of its controls.
class ConditionsListController : public EvaluatedListController {
 public:
  using EvaluatedListController::EvaluatedListController;
  std::string_view className() const override { return "ConditionsListController"; }

  void setSegmentColor();

  const preferences::Operations& operations() const override { return ownOperations; }
  static const preferences::Operations ownOperations;

 protected:
  std::string_view evaluationSelector() const override { return "setSegmentColor"; }
  void evaluate() override { setSegmentColor(); }
};

// What a profile does besides, and the extension's colors. Rows only.
class ExtrasListController : public preferences::PSListController {
 public:
  using PSListController::PSListController;
  std::string_view className() const override { return "ExtrasListController"; }

  const preferences::Operations& operations() const override { return ownOperations; }
  static const preferences::Operations ownOperations;
};

}  // namespace prefs
