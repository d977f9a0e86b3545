#include <type_traits>
#include <utility>

#include "prefs/colorpicker/ZorvekColorPickerQuorvantis.h"

namespace prefs {
namespace {

using Page = ZorvekColorPickerQuorvantis;
using uikit::IndexPath;
using uikit::TableView;

// A call by selector may leave out the table: the page has but one.
TableView& tableOf(Page& page, TableView* table) {
  return table ? *table : *page.table();
}

plist::Value asValue(const plist::Value& value) {
  return value;
}
plist::Value asValue(bool value) {
  return value;
}
plist::Value asValue(const std::optional<std::string>& text) {
  return text ? plist::Value(*text) : plist::Value();
}
plist::Value asValue(const std::optional<IndexPath>& path) {
  return path ? plist::Value(plist::Array{path->section, path->row}) : plist::Value();
}

template <auto property>
plist::Value get(Page& page) {
  return asValue(page.*property);
}

template <auto property>
using TypeOf = std::remove_reference_t<decltype(std::declval<Page&>().*property)>;

template <auto property>
void set(Page& page, const TypeOf<property>& value) {
  page.*property = value;
}

}  // namespace

const preferences::Operations ZorvekColorPickerQuorvantis::ownOperations{
    []() -> preferences::OperationTable {
      return {
          {"palettes", &Page::palettes},
          {"loadView", &Page::loadView},
          {"viewDidLoad", &Page::viewDidLoad},
          {"numberOfSectionsInTableView:",
           +[](Page& page, TableView* table) {
             return page.numberOfSectionsInTableView(tableOf(page, table));
           }},
          {"tableView:titleForHeaderInSection:",
           +[](Page& page, TableView* table, int section) {
             return page.tableViewTitleForHeaderInSection(tableOf(page, table), section);
           }},
          {"tableView:numberOfRowsInSection:",
           +[](Page& page, TableView* table, int section) {
             return page.tableViewNumberOfRowsInSection(tableOf(page, table), section);
           }},
          {"tableView:heightForRowAtIndexPath:",
           +[](Page& page, TableView* table, IndexPath path) {
             return page.tableViewHeightForRowAtIndexPath(tableOf(page, table), path);
           }},
          {"tableView:cellForRowAtIndexPath:",
           +[](Page& page, TableView* table, IndexPath path) {
             page.tableViewCellForRowAtIndexPath(tableOf(page, table), path);
           }},
          {"tableView:didSelectRowAtIndexPath:",
           +[](Page& page, TableView* table, IndexPath path) {
             page.tableViewDidSelectRowAtIndexPath(tableOf(page, table), path);
           }},
          {"notifyTweak:", &Page::notifyTweak},
          {"sliderAction:", &Page::sliderAction},
          {"sliderDidEndSliding:", &Page::sliderDidEndSliding},
          {"presetColorExists:", &Page::presetColorExists},
          {"specialColors", &Page::specialColors},
          {"iOSColors", &Page::iOSColors},
          {"crayonColors", &Page::crayonColors},
          {"customColor", &Page::customColor},
          {"sortPaletteByHue:", &Page::sortPaletteByHue},
          // A call can't hand in a color, which isn't an object: the sliders stand at 0.
          {"getSliderViewWithColor:",
           +[](Page& page, foundation::Object*) { page.getSliderViewWithColor({}); }},
          {"setCustomColor:notifyTweak:", &Page::setCustomColorNotifyTweak},
          {"selectedColor", get<&Page::selectedColor>},
          {"setSelectedColor:", set<&Page::selectedColor>},
          {"defaultColor", get<&Page::defaultColor>},
          {"setDefaultColor:", set<&Page::defaultColor>},
          {"selectedIndexPath", get<&Page::selectedIndexPath>},
          {"setSelectedIndexPath:", set<&Page::selectedIndexPath>},
          {"prefKey", get<&Page::prefKey>},
          {"setPrefKey:", set<&Page::prefKey>},
          {"appID", get<&Page::appID>},
          {"setAppID:", set<&Page::appID>},
          {"notificationKey", get<&Page::notificationKey>},
          {"setNotificationKey:", set<&Page::notificationKey>},
          {"refreshPreviewNotificationKey", get<&Page::refreshPreviewNotificationKey>},
          {"setRefreshPreviewNotificationKey:", set<&Page::refreshPreviewNotificationKey>},
          {"allowAutomatic", get<&Page::allowAutomatic>},
          {"setAllowAutomatic:", set<&Page::allowAutomatic>},
      };
    },
    &PSViewController::ownOperations};

}  // namespace prefs
