#pragma once

#include <span>

#include "prefs/pages/EvaluatedListController.h"
#include "prefs/pages/dependency_rules.h"

namespace prefs {

// A page of rows that other rows enable and dim, by the rules it declares.
class DependentListController : public EvaluatedListController {
 public:
  using EvaluatedListController::EvaluatedListController;

  virtual std::span<const DependencyRule> rules() const = 0;

  const Specifiers& specifiers() override;
  // Which switch dims a row now, if one does.
  BoundRules::Dimming dimmingOf(std::string_view row);

  void setSliderEnableDisable();
  // The setter of the page's rows: stores, redraws, flushes, evaluates.
  virtual void setValueForSpecifier(const plist::Value& value, preferences::PSSpecifier* specifier);

  const preferences::Operations& operations() const override { return ownOperations; }
  static const preferences::Operations ownOperations;

 protected:
  std::string_view evaluationSelector() const override { return "setSliderEnableDisable"; }
  void evaluate() override { setSliderEnableDisable(); }

 private:
  BoundRules bound_;
};

}  // namespace prefs
