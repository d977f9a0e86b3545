#include "prefs/pages/EvaluatedListController.h"

#include "prefs/core/names.h"

namespace prefs {
namespace {

constexpr foundation::Nanoseconds kEvaluationDelay{100'000'000};

}  // namespace

const preferences::Operations EvaluatedListController::ownOperations{
    []() -> preferences::OperationTable {
      return {
          {"getViewForID:", &EvaluatedListController::getViewForID},
          {"getCellForID:", &EvaluatedListController::getCellForID},
      };
    },
    &PSListController::ownOperations};

uikit::Control* EvaluatedListController::getViewForID(const std::string& identifier) {
  const preferences::PSSpecifier* row = specifierForID(identifier);
  return row ? row->control() : nullptr;
}

preferences::PSTableCell* EvaluatedListController::getCellForID(const std::string& identifier) {
  const preferences::PSSpecifier* row = specifierForID(identifier);
  return row ? row->cellObject() : nullptr;
}

void EvaluatedListController::viewWillAppear(bool animated) {
  PSListController::viewWillAppear(animated);
  environment().defaultCenter.addObserver(*this, evaluationSelector(), kDidBecomeActiveNotification,
                                          nullptr);
  environment().mainQueue.after(kEvaluationDelay,
                                [this, page = shared_from_this()] { evaluate(); });
}

void EvaluatedListController::viewWillDisappear(bool animated) {
  PSListController::viewWillDisappear(animated);
  environment().defaultCenter.removeObserver(*this, kDidBecomeActiveNotification, nullptr);
}

}  // namespace prefs
