#include "prefs/pages/ExtrasListController.h"

namespace prefs {

const preferences::Operations ExtrasListController::ownOperations{
    []() -> preferences::OperationTable {
      return {{"specifiers", &ExtrasListController::loadRows}};
    },
    &PSListController::ownOperations};

const preferences::PSListController::Specifiers& ExtrasListController::specifiers() {
  if (!specifiers_) specifiers_ = loadSpecifiersFromPlistNameTarget("ExtrasListController", *this);
  return *specifiers_;
}

}  // namespace prefs
