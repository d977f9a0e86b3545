#include "prefs/resources/classes.h"

#include <algorithm>

#include "prefs/colorpicker/ZorvekColorPickerQuorvantis.h"
#include "prefs/colorpicker/ZorvekColorPickerQuorvantisLinkCell.h"
#include "prefs/core/quorvantisprefsListController.h"
#include "prefs/pages/GeneralSettingsController.h"
#include "prefs/pages/UserNotificationListController.h"
#include "prefs/pages/option_pages.h"
#include "prefs/pages/switch_cells.h"
#include "prefs/profiles/ProfilesListController.h"

namespace prefs {
namespace {

template <class T>
std::shared_ptr<preferences::PSViewController> create(preferences::Environment& environment) {
  return std::make_shared<T>(environment);
}

template <class T>
constexpr preferences::PageClass page(std::string_view name, std::string_view list) {
  return {name, create<T>, &T::ownOperations, list};
}

// A page whose list bears the class's name.
template <class T>
constexpr preferences::PageClass page(std::string_view name) {
  return page<T>(name, name);
}

template <class T>
constexpr preferences::CellClass cell(std::string_view name) {
  return {name,
          [](uikit::CellStyle style, std::string reuseIdentifier,
             preferences::PSSpecifier& specifier) -> std::shared_ptr<preferences::PSTableCell> {
            return std::make_shared<T>(style, std::move(reuseIdentifier), specifier);
          }};
}

const preferences::PageClass kPages[] = {
    page<quorvantisprefsListController>(kPrincipalClass, "quorvantisprefs"),
    page<GeneralSettingsController>("GeneralSettingsController"),
    page<PowerSavingListController>("PowerSavingListController"),
    page<LowPowerListController>("LowPowerListController"),
    page<SoundsListController>("SoundsListController"),
    page<UserNotificationListController>("UserNotificationListController"),
    page<ConditionsListController>("ConditionsListController"),
    page<ProfilesListController>("ProfilesListController"),
    page<ExtrasListController>("ExtrasListController"),
    page<ZorvekColorPickerQuorvantis>("ZorvekColorPickerQuorvantis", {}),
};

struct PageRules {
  std::string_view page;
  std::span<const DependencyRule> rules;
};
const PageRules kRules[] = {
    {"PowerSavingListController", PowerSavingListController::ownRules},
    {"LowPowerListController", LowPowerListController::ownRules},
    {"SoundsListController", SoundsListController::ownRules},
    {"UserNotificationListController", UserNotificationListController::ownRules},
};

const preferences::CellClass kCells[] = {
    cell<QuorvantisSwitchTableCell>("QuorvantisSwitchTableCell"),
    cell<QuorvantisProfileActiveSwitchTableCell>("QuorvantisProfileActiveSwitchTableCell"),
    cell<ZorvekColorPickerQuorvantisLinkCell>("ZorvekColorPickerQuorvantisLinkCell"),
};

}  // namespace

std::span<const preferences::PageClass> pageClasses() {
  return kPages;
}
std::span<const preferences::CellClass> cellClasses() {
  return kCells;
}
std::span<const DependencyRule> rulesOfPage(std::string_view name) {
  const auto* page = std::ranges::find(kRules, name, &PageRules::page);
  return page == std::end(kRules) ? std::span<const DependencyRule>() : page->rules;
}

}  // namespace prefs
