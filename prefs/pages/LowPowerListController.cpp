#include "prefs/pages/LowPowerListController.h"

namespace prefs {
namespace {

constexpr DependencyRule whileModeIsOff(std::string_view row) {
  return {"lowpowermodeenabled", row, By::Interaction, Effect::EnabledWhileOff};
}

constexpr DependencyRule kRules[] = {
    {"lowpowercustbrightenabled", "lowpowercustbright"},
    whileModeIsOff("lowpowerioslowpowermode"),
    whileModeIsOff("lowpowerairplanemode"),
    whileModeIsOff("lowpowerwifi"),
    whileModeIsOff("lowpowerlocationservices"),
    whileModeIsOff("lowpowerbluetooth"),
    whileModeIsOff("lowpowermobiledata"),
    whileModeIsOff("lowpowermobiledatarate"),
    whileModeIsOff("lowpowerpersonalhotspot"),
    whileModeIsOff("lowpowervpn"),
    whileModeIsOff("lowpowerbgapprefresh"),
    whileModeIsOff("lowpowerautoupdates"),
    whileModeIsOff("lowpowerreducemotion"),
    whileModeIsOff("lowpowergrayscale"),
    whileModeIsOff("lowpowerhandoff"),
    whileModeIsOff("lowpowersiri"),
    whileModeIsOff("lowpowerautolock"),
    whileModeIsOff("lowpowerautobrightness"),
    whileModeIsOff("lowpowercustbrightenabled"),
    {"lowpowermodeenabled", "lowpowercustbright", By::Interaction, Effect::DimmedWhileOn},
};

}  // namespace

const preferences::Operations LowPowerListController::ownOperations{
    []() -> preferences::OperationTable {
      return {
          {"setSpecifierView:enabled:", &LowPowerListController::setSpecifierViewEnabled},
          {"scrollViewDidScroll:", &LowPowerListController::scrollViewDidScroll},
      };
    },
    &DependentListController::ownOperations};

std::span<const DependencyRule> LowPowerListController::rules() const {
  return kRules;
}

void LowPowerListController::setSpecifierViewEnabled(uikit::TableViewCell* cell, bool enabled) {
  setCellState(cell, By::Interaction, enabled);
}

void LowPowerListController::scrollViewDidScroll(uikit::View*) {
  setSliderEnableDisable();
}

}  // namespace prefs
