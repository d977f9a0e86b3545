#pragma once

#include "platform/preferences/PSListController.h"

namespace prefs {

// A page whose live controls are evaluated 0.1 s after each appearance and, while it is shown,
// whenever the application becomes active. What evaluating means is the page's own.
class EvaluatedListController : public preferences::PSListController {
 public:
  using PSListController::PSListController;

  // The control or the cell of a row; null when there is no such row, or it isn't built.
  uikit::Control* getViewForID(const std::string& identifier);
  preferences::PSTableCell* getCellForID(const std::string& identifier);

  void viewWillAppear(bool animated) override;
  void viewWillDisappear(bool animated) override;

  const preferences::Operations& operations() const override { return ownOperations; }
  static const preferences::Operations ownOperations;

 protected:
  virtual std::string_view evaluationSelector() const = 0;
  virtual void evaluate() = 0;  // what that selector names
};

}  // namespace prefs
