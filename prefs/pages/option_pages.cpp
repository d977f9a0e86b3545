#include "prefs/pages/option_pages.h"

#include "prefs/keys.h"
#include "prefs/pages/switch_cells.h"

namespace prefs {
namespace {

constexpr DependencyRule kPowerSavingRules[] = {
    {key::custbrightenabled, key::custbright},
};

constexpr DependencyRule kSoundsRules[] = {
    {key::customvolumeenabled, key::customvolume},
};

constexpr DependencyRule whileModeIsOff(Key row) {
  return {key::lowpowermodeenabled, row, By::Interaction, Effect::EnabledWhileOff};
}

constexpr DependencyRule kLowPowerRules[] = {
    {key::lowpowercustbrightenabled, key::lowpowercustbright},
    whileModeIsOff(key::lowpowerioslowpowermode),
    whileModeIsOff(key::lowpowerairplanemode),
    whileModeIsOff(key::lowpowerwifi),
    whileModeIsOff(key::lowpowerlocationservices),
    whileModeIsOff(key::lowpowerbluetooth),
    whileModeIsOff(key::lowpowermobiledata),
    whileModeIsOff(key::lowpowermobiledatarate),
    whileModeIsOff(key::lowpowerpersonalhotspot),
    whileModeIsOff(key::lowpowervpn),
    whileModeIsOff(key::lowpowerbgapprefresh),
    whileModeIsOff(key::lowpowerautoupdates),
    whileModeIsOff(key::lowpowerreducemotion),
    whileModeIsOff(key::lowpowergrayscale),
    whileModeIsOff(key::lowpowerhandoff),
    whileModeIsOff(key::lowpowersiri),
    whileModeIsOff(key::lowpowerautolock),
    whileModeIsOff(key::lowpowerautobrightness),
    whileModeIsOff(key::lowpowercustbrightenabled),
    {key::lowpowermodeenabled, key::lowpowercustbright, By::Interaction, Effect::DimmedWhileOn},
};

constexpr Key kTintedRows[] = {key::firewhenbattery, key::fireat};

}  // namespace

const std::span<const DependencyRule> PowerSavingListController::ownRules = kPowerSavingRules;
const std::span<const DependencyRule> SoundsListController::ownRules = kSoundsRules;
const std::span<const DependencyRule> LowPowerListController::ownRules = kLowPowerRules;

const preferences::Operations LowPowerListController::ownOperations{
    []() -> preferences::OperationTable {
      return {
          {"setSpecifierView:enabled:", &LowPowerListController::setSpecifierViewEnabled},
          {"scrollViewDidScroll:", &LowPowerListController::scrollViewDidScroll},
      };
    },
    &DependentListController::ownOperations};

void LowPowerListController::setSpecifierViewEnabled(uikit::TableViewCell* cell, bool enabled) {
  setCellState(cell, By::Interaction, enabled);
}

void LowPowerListController::scrollViewDidScroll(uikit::View*) {
  setSliderEnableDisable();
}

const preferences::Operations ConditionsListController::ownOperations{
    []() -> preferences::OperationTable {
      return {{"setSegmentColor", &ConditionsListController::setSegmentColor}};
    },
    &EvaluatedListController::ownOperations};

void ConditionsListController::setSegmentColor() {
  for (Key row : kTintedRows)
    if (uikit::Control* control = getViewForID(std::string(row)))
      control->tintColor = accentColor();
}

const preferences::Operations ExtrasListController::ownOperations{
    []() -> preferences::OperationTable {
      return {{"specifiers", &ExtrasListController::loadRows}};
    },
    &PSListController::ownOperations};

}  // namespace prefs
