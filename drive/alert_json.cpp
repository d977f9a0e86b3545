#include "drive/scene_json.h"

namespace drive {
namespace {

const char* nameOf(host::ButtonRole role) {
  switch (role) {
    case host::ButtonRole::Default:
      return "default";
    case host::ButtonRole::Cancel:
      return "cancel";
    case host::ButtonRole::Destructive:
      return "destructive";
  }
  return "default";
}

Json pickerJson(const std::optional<host::AlertPickerView>& picker) {
  if (!picker) return nullptr;
  return {
      {"rows", picker->rows}, {"selected", picker->selected}, {"frame", frameJson(picker->frame)}};
}

}  // namespace

Json alertJson(const host::AlertView& alert) {
  Json::array_t buttons;
  for (const auto& [title, role] : alert.buttons)
    buttons.push_back({{"title", title}, {"role", nameOf(role)}});
  return {{"style", alert.style == host::AlertStyle::Alert ? "alert" : "sheet"},
          {"title", alert.title},
          {"message", alert.message},
          {"buttons", std::move(buttons)},
          {"tag", alert.tag},
          {"picker", pickerJson(alert.picker)}};
}

}  // namespace drive
