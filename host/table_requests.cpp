#include <algorithm>

#include "host/application.h"
#include "platform/uikit/controls.h"
#include "prefs/colorpicker/ZorvekColorPickerQuorvantis.h"

namespace host {

using preferences::PSListController;

Application::Result Application::run(const Scroll& request) {
  if (pages_.empty()) return noPage();
  if (request.first < 0 || request.first >= entries())
    return Refusal{RefusalCode::BadValue, "there is no entry " + std::to_string(request.first)};
  if (request.entries > 0) viewport_ = request.entries;
  firstRows_.back() = std::min(request.first, lastFirst());
  buildVisibleRows();
  if (PSListController* page = shownList()) page->scrollViewDidScroll(nullptr);
  return plist::Value();
}

Application::Result Application::run(const Resize& request) {
  viewport_ = std::max(request.entries, 1);
  return plist::Value();
}

Application::Result Application::run(const Select& request) {
  if (pages_.empty()) return noPage();
  const auto [section, index] = request;
  uikit::TableView* table = shownTable();
  const bool exists = table && section >= 0 && index >= 0 &&
                      section < table->source->numberOfSectionsInTableView(*table) &&
                      index < table->source->tableViewNumberOfRowsInSection(*table, section);
  const std::string name = std::to_string(section) + "." + std::to_string(index);
  if (!exists) return Refusal{RefusalCode::NoRow, "the shown page has no table row " + name};
  if (!table->cellForRowAtIndexPath({section, index}))
    return Refusal{RefusalCode::NotBuilt, "table row " + name + " is off screen"};
  table->source->tableViewDidSelectRowAtIndexPath(*table, {section, index});
  return plist::Value();
}

Application::Result Application::run(const Drag& request) {
  if (pages_.empty()) return noPage();
  const std::string tag = std::to_string(request.tag);
  uikit::View* view = shownTable() ? shownTable()->viewWithTag(request.tag) : nullptr;
  auto* slider = dynamic_cast<uikit::Slider*>(view);
  if (!slider) {
    auto* picker = dynamic_cast<prefs::ZorvekColorPickerQuorvantis*>(shownPage());
    if (!picker || !picker->hasSlider(request.tag))
      return Refusal{RefusalCode::NoRow, "no slider has the tag " + tag};
    return Refusal{RefusalCode::NotBuilt, "the slider of tag " + tag + " is off screen"};
  }
  if (!(request.value >= slider->minimumValue() && request.value <= slider->maximumValue()))
    return Refusal{RefusalCode::BadValue,
                   "the slider of tag " + tag + " takes a number within its range"};
  const auto held = slider->shared_from_this();
  slider->drag(static_cast<float>(request.value));
  if (request.release) slider->endTracking();
  return plist::Value();
}

}  // namespace host
