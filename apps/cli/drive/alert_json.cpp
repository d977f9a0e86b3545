#include "apps/cli/drive/page_json.h"

namespace cli {
namespace {

const char* nameOf(uikit::ButtonRole role) {
  switch (role) {
    case uikit::ButtonRole::Default:
      return "default";
    case uikit::ButtonRole::Cancel:
      return "cancel";
    case uikit::ButtonRole::Destructive:
      return "destructive";
  }
  return "default";
}

Json pickerJson(uikit::PickerView* picker) {
  if (!picker) return nullptr;
  return {{"rows", picker->titlesInComponent(0)},
          {"selected", picker->selectedRowInComponent(0)},
          {"frame", frameJson(picker->frame)}};
}

}  // namespace

Json alertJson(const uikit::Alert& alert) {
  Json::array_t buttons;
  for (const auto& [title, role] : alert.buttons())
    buttons.push_back({{"title", title}, {"role", nameOf(role)}});
  return {{"style", alert.style() == uikit::AlertStyle::Alert ? "alert" : "sheet"},
          {"title", alert.title},
          {"message", alert.message},
          {"buttons", std::move(buttons)},
          {"tag", alert.tag},
          {"picker", pickerJson(alert.picker())}};
}

}  // namespace cli
