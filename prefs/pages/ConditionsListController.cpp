#include "prefs/pages/ConditionsListController.h"

#include "prefs/pages/colors.h"

namespace prefs {

const preferences::Operations ConditionsListController::ownOperations{
    []() -> preferences::OperationTable {
      return {{"setSegmentColor", &ConditionsListController::setSegmentColor}};
    },
    &EvaluatedListController::ownOperations};

void ConditionsListController::setSegmentColor() {
  for (const char* row : {"firewhenbattery", "fireat"})
    if (uikit::Control* control = getViewForID(row)) control->tintColor = accentColor();
}

}  // namespace prefs
