#include <algorithm>

#include "host/application.h"
#include "platform/preferences/PSListItemsController.h"
#include "prefs/colorpicker/ZorvekColorPickerQuorvantis.h"
#include "prefs/colorpicker/ZorvekColorPickerQuorvantisLinkCell.h"
#include "prefs/core/names.h"
#include "prefs/keys.h"

namespace host {
namespace {

using preferences::PSListController;
using preferences::PSListItemsController;
using preferences::PSSpecifier;
using prefs::ZorvekColorPickerQuorvantis;
using prefs::ZorvekColorPickerQuorvantisLinkCell;

// A cell that shows a color finds its value out as it is laid out, and keeps one that is removed.
void followValue(PSListController& page, PSSpecifier& row) {
  if (!row.isBuilt() || page.valueOf(row) == row.propertyForKey("value")) return;
  page.refreshRow(row);
  auto* color = dynamic_cast<ZorvekColorPickerQuorvantisLinkCell*>(row.cellObject());
  if (!color) return;
  color->selectedColor.reset();
  color->layoutSubviews();
}

// The rows whose choices are read from profiles and battery log.
constexpr std::string_view kReadFromFiles[] = {prefs::kSavedProfilesRow, prefs::key::profile,
                                               prefs::kBatteryLogRow};

void readAnew(PSListController& page, PSSpecifier& row) {
  if (std::ranges::find(kReadFromFiles, row.identifier()) != std::end(kReadFromFiles))
    page.loadChoices(row);
}

void followColor(ZorvekColorPickerQuorvantis& page, foundation::Preferences& preferences) {
  plist::Value color = page.defaultColor;
  if (page.prefKey && page.appID)
    color = preferences.copyAppValue(*page.prefKey, *page.appID).value_or(color);
  if (color == page.selectedColor) return;
  page.selectedColor = std::move(color);
  page.table()->reloadData();
}

}  // namespace

void Application::follow(Lists lists) {
  const auto seen = environment_.preferences.refresh(prefs::kDomain);
  damage_.reset();
  if (!seen && seen.error().kind == platform::ErrorKind::Damaged)
    damage_ = onMachine(problemOf(Source::Settings, seen.error()), environment_.root);
  const bool anew = lists == Lists::ReadAnew;
  for (const Page& page : pages_) {
    if (auto* list = dynamic_cast<PSListController*>(page.get())) {
      for (const Row& row : list->specifiers()) {
        if (anew) readAnew(*list, *row);
        followValue(*list, *row);
      }
    } else if (auto* choices = dynamic_cast<PSListItemsController*>(page.get())) {
      choices->tableView().reloadData();
    } else if (auto* picker = dynamic_cast<ZorvekColorPickerQuorvantis*>(page.get())) {
      followColor(*picker, environment_.preferences);
    }
  }
}

}  // namespace host
