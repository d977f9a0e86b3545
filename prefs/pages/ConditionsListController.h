#pragma once

#include "prefs/pages/EvaluatedListController.h"

namespace prefs {

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

}  // namespace prefs
