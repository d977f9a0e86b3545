#include "host/settings_application.h"

namespace host {

std::span<const std::shared_ptr<uikit::Alert>> SettingsApplication::alerts() const {
  if (!environment_.screen) return {};
  return environment_.screen->alerts();
}

uikit::Alert* SettingsApplication::topmostAlert() const {
  return environment_.screen ? environment_.screen->topmost() : nullptr;
}

std::optional<Refusal> SettingsApplication::refusedForAlert() const {
  if (!topmostAlert()) return std::nullopt;
  return Refusal{RefusalCode::Modal, "an alert is on screen"};
}

Outcome<Done> SettingsApplication::press(std::string_view button) {
  const uikit::Alert* alert = topmostAlert();
  if (!alert) return Refusal{RefusalCode::NoAlert, "no alert is on screen"};
  const auto index = alert->buttonTitled(button);
  if (!index)
    return Refusal{RefusalCode::NoButton,
                   "the alert has no button \"" + std::string(button) + "\""};
  return press(*index);
}

Outcome<Done> SettingsApplication::press(int button) {
  if (!topmostAlert()) return Refusal{RefusalCode::NoAlert, "no alert is on screen"};
  if (!environment_.screen->press(button))
    return Refusal{RefusalCode::NoButton, "the alert has no button " + std::to_string(button)};
  buildVisibleRows();
  return Done{};
}

Outcome<Done> SettingsApplication::pick(int row) {
  const uikit::Alert* alert = topmostAlert();
  if (!alert) return Refusal{RefusalCode::NoAlert, "no alert is on screen"};
  uikit::PickerView* picker = alert->picker();
  if (!picker || !picker->turn(row, 0))
    return Refusal{RefusalCode::BadValue, "the alert has no picker row " + std::to_string(row)};
  buildVisibleRows();
  return Done{};
}

Outcome<Done> SettingsApplication::tapBarButton() {
  if (const auto refused = refusedForAlert()) return *refused;
  preferences::PSViewController* page = shownPage();
  if (!page) return noPage();
  const auto button = page->navigationItem.rightBarButtonItem;
  if (!button) return Refusal{RefusalCode::BadRequest, "the shown page has no bar button"};
  if (const auto target = button->target.lock()) send(button->action, *target, *button);
  buildVisibleRows();
  return Done{};
}

}  // namespace host
