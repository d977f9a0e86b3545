#include "prefs/pages/DependentListController.h"

#include "prefs/core/preference_store.h"

namespace prefs {

const preferences::Operations DependentListController::ownOperations{
    []() -> preferences::OperationTable {
      return {
          {"setSliderEnableDisable", &DependentListController::setSliderEnableDisable},
          {"setValue:forSpecifier:", &DependentListController::setValueForSpecifier},
      };
    },
    &EvaluatedListController::ownOperations};

const preferences::PSListController::Specifiers& DependentListController::specifiers() {
  if (!specifiers_) {
    PSListController::specifiers();
    bound_.bind(rules(), *this);
  }
  return *specifiers_;
}

BoundRules::Dimming DependentListController::dimmingOf(std::string_view row) {
  specifiers();
  return bound_.dimmingOf(row, *this);
}

void DependentListController::setSliderEnableDisable() {
  specifiers();
  bound_.evaluate();
}

void DependentListController::setValueForSpecifier(const plist::Value& value,
                                                   preferences::PSSpecifier* specifier) {
  pageWrite(*this, environment().preferences, value, specifier);
  setSliderEnableDisable();
}

}  // namespace prefs
