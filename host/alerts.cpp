#include "host/application.h"

namespace host {

std::span<const std::shared_ptr<uikit::Alert>> Application::alerts() const {
  if (!environment_.screen) return {};
  return environment_.screen->alerts();
}

uikit::Alert* Application::topmostAlert() const {
  return environment_.screen ? environment_.screen->topmost() : nullptr;
}

Application::Result Application::run(const Press& request) {
  const uikit::Alert* alert = topmostAlert();
  if (!alert) return Refusal{RefusalCode::NoAlert, "no alert is on screen"};
  const auto* title = std::get_if<std::string>(&request.button);
  const auto index = title ? alert->buttonTitled(*title) : std::get<int>(request.button);
  const std::string name = title ? '"' + *title + '"' : std::to_string(*index);
  if (!index || !environment_.screen->press(*index))
    return Refusal{RefusalCode::NoButton, "the alert has no button " + name};
  return plist::Value();
}

Application::Result Application::run(const Pick& request) {
  const uikit::Alert* alert = topmostAlert();
  if (!alert) return Refusal{RefusalCode::NoAlert, "no alert is on screen"};
  uikit::PickerView* picker = alert->picker();
  if (!picker || !picker->turn(request.row, 0))
    return Refusal{RefusalCode::BadValue,
                   "the alert has no picker row " + std::to_string(request.row)};
  return plist::Value();
}

Application::Result Application::run(const Bar&) {
  preferences::PSViewController* page = shownPage();
  if (!page) return noPage();
  const auto button = page->navigationItem.rightBarButtonItem;
  if (!button) return Refusal{RefusalCode::BadRequest, "the shown page has no bar button"};
  if (const auto target = button->target.lock()) send(button->action, *target, *button);
  return plist::Value();
}

}  // namespace host
