#include "apps/cli/drive/page_json.h"

namespace cli {
namespace {

using preferences::PSSpecifier;

Json valueOf(const uikit::Control& control, const PSSpecifier& row) {
  if (auto* button = dynamic_cast<const uikit::Switch*>(&control)) return button->isOn();
  if (auto* slider = dynamic_cast<const uikit::Slider*>(&control)) return toJson(slider->value());
  if (auto* field = dynamic_cast<const uikit::TextField*>(&control)) return field->text;
  auto* segments = dynamic_cast<const uikit::SegmentedControl*>(&control);
  const auto chosen = segments ? static_cast<std::size_t>(segments->selectedSegmentIndex) : 0;
  return segments && chosen < row.values().size() ? toJson(row.values()[chosen]) : Json();
}

const char* kindOf(const uikit::Control& control) {
  if (dynamic_cast<const uikit::Switch*>(&control)) return "switch";
  if (dynamic_cast<const uikit::Slider*>(&control)) return "slider";
  if (dynamic_cast<const uikit::TextField*>(&control)) return "text";
  return "segment";
}

Json controlJson(const uikit::Control* control, const PSSpecifier& row) {
  if (!control) return nullptr;
  Json described = {{"kind", kindOf(*control)}, {"value", valueOf(*control, row)}};
  if (auto* slider = dynamic_cast<const uikit::Slider*>(control)) {
    described["min"] = toJson(slider->minimumValue());
    described["max"] = toJson(slider->maximumValue());
  }
  described["tint"] = colorJson(control->tintColor);
  if (auto* button = dynamic_cast<const uikit::Switch*>(control))
    described["onTint"] = colorJson(button->onTintColor);
  described["background"] = colorJson(control->backgroundColor);
  described["cornerRadius"] = orNull(control->layer.cornerRadius);
  return described;
}

template <class T>
const T* firstOf(const uikit::View& view) {
  for (const auto& subview : view.subviews())
    if (auto* found = dynamic_cast<const T*>(subview.get())) return found;
  return nullptr;
}

Json swatchJson(const uikit::ImageView& view) {
  return {{"hidden", view.hidden},
          {"hex", view.image ? Json(view.image->color.hex()) : Json()},
          {"frame", frameJson(view.frame)},
          {"borderWidth", view.layer.borderWidth.value_or(0.0)}};
}

Json labelJson(const uikit::Label& label) {
  return {
      {"hidden", label.hidden}, {"text", orNull(label.text)}, {"frame", frameJson(label.frame)}};
}

// A cell that shows a colour has the swatch and the word for it in its content view.
void addBuilt(const preferences::PSTableCell& cell, const PSSpecifier& row, Json& described) {
  described["interaction"] = cell.userInteractionEnabled();
  described["enabled"] = cell.enabled();
  described["alpha"] = cell.alpha();
  described["control"] = controlJson(cell.control(), row);
  if (auto* swatch = firstOf<uikit::ImageView>(cell.contentView))
    described["swatch"] = swatchJson(*swatch);
  if (auto* label = firstOf<uikit::Label>(cell.contentView))
    described["valueLabel"] = labelJson(*label);
}

}  // namespace

Json rowJson(preferences::PSListController& page, PSSpecifier& row) {
  const std::string_view cellClass = row.textForKey("cellClass");
  Json described = {
      {"id", row.identifier()},         {"label", row.name()},
      {"cell", nameOf(row.cellType())}, {"cellClass", cellClass.empty() ? Json() : Json(cellClass)},
      {"built", row.isBuilt()},         {"value", toJson(page.valueOf(row))}};
  if (row.isBuilt()) addBuilt(*row.cellObject(), row, described);
  return described;
}

}  // namespace cli
