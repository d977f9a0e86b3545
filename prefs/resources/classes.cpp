#include "prefs/resources/classes.h"

#include <vector>

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

struct Page {
  preferences::PageClass known;
  std::span<const DependencyRule> rules{};
};

template <class T>
Page page(std::string_view name, std::string_view list) {
  Page page{{name, create<T>, &T::ownOperations, list}};
  if constexpr (requires { T::ownRules; }) page.rules = T::ownRules;
  return page;
}

// A page whose list bears the class's name.
template <class T>
Page page(std::string_view name) {
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

const std::vector<Page>& pages() {
  static const std::vector<Page> kPages{
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
  return kPages;
}

const preferences::CellClass kCells[] = {
    cell<QuorvantisSwitchTableCell>("QuorvantisSwitchTableCell"),
    cell<QuorvantisProfileActiveSwitchTableCell>("QuorvantisProfileActiveSwitchTableCell"),
    cell<ZorvekColorPickerQuorvantisLinkCell>("ZorvekColorPickerQuorvantisLinkCell"),
};

}  // namespace

std::span<const preferences::PageClass> pageClasses() {
  static const auto kClasses = [] {
    std::vector<preferences::PageClass> classes;
    for (const Page& page : pages()) classes.push_back(page.known);
    return classes;
  }();
  return kClasses;
}
std::span<const preferences::CellClass> cellClasses() {
  return kCells;
}
std::span<const DependencyRule> rulesOfPage(std::string_view name) {
  for (const Page& page : pages())
    if (page.known.name == name) return page.rules;
  return {};
}

}  // namespace prefs
