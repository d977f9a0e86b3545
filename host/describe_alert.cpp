#include <algorithm>

#include "host/describe.h"
#include "platform/uikit/alert_controller.h"

namespace host {
namespace {

ButtonRole roleOf(uikit::ButtonRole role) {
  switch (role) {
    case uikit::ButtonRole::Cancel:
      return ButtonRole::Cancel;
    case uikit::ButtonRole::Destructive:
      return ButtonRole::Destructive;
    case uikit::ButtonRole::Default:
      break;
  }
  return ButtonRole::Default;
}

void describeAnchor(const uikit::PopoverAnchor& anchor, preferences::PSListController* page,
                    AlertView& view) {
  view.atBarButton = anchor.barButtonItem != nullptr;
  const auto source = anchor.sourceView.lock();
  if (!source || !page) return;
  const auto& rows = page->specifiers();
  const auto found = std::ranges::find(rows, source.get(), [](const auto& row) {
    return static_cast<uikit::View*>(row->cellObject());
  });
  if (found != rows.end()) view.atRow = static_cast<int>(found - rows.begin());
}

}  // namespace

AlertView describeAlert(uikit::Alert& alert, preferences::PSListController* page) {
  AlertView view;
  view.style =
      alert.style() == uikit::AlertStyle::ActionSheet ? AlertStyle::Sheet : AlertStyle::Alert;
  view.title = alert.title;
  view.message = alert.message;
  for (const auto& [title, role] : alert.buttons()) view.buttons.push_back({title, roleOf(role)});
  view.tag = alert.tag;
  if (uikit::PickerView* picker = alert.picker())
    view.picker = {picker->titlesInComponent(0), picker->selectedRowInComponent(0), picker->frame};
  if (auto* controller = dynamic_cast<uikit::AlertController*>(&alert))
    describeAnchor(controller->popover, page, view);
  return view;
}

}  // namespace host
