#include "drive/scene_json.h"

namespace drive {
namespace {

using host::ColorView;
using host::SegmentsView;
using host::SliderView;
using host::SwitchView;
using host::TextView;

struct ControlJson {
  Json operator()(const SwitchView& view) const {
    Json control = {{"kind", "switch"}, {"value", view.on}};
    control["tint"] = colorJson(view.look.tint);
    control["onTint"] = colorJson(view.onTint);
    return withLayer(std::move(control), view.look);
  }
  Json operator()(const SliderView& view) const {
    Json control = {{"kind", "slider"}, {"value", toJson(view.value)}};
    control["min"] = toJson(view.minimum);
    control["max"] = toJson(view.maximum);
    control["tint"] = colorJson(view.look.tint);
    return withLayer(std::move(control), view.look);
  }
  Json operator()(const SegmentsView& view) const {
    const auto& values = view.choices->values;
    const auto selected = static_cast<std::size_t>(view.selected);
    Json control = {{"kind", "segment"},
                    {"value", selected < values.size() ? toJson(values[selected]) : Json()}};
    control["tint"] = colorJson(view.look.tint);
    return withLayer(std::move(control), view.look);
  }
  Json operator()(const TextView& view) const {
    Json control = {{"kind", "text"}, {"value", view.text}};
    control["tint"] = colorJson(view.look.tint);
    return withLayer(std::move(control), view.look);
  }
  Json operator()(const auto&) const { return nullptr; }

 private:
  static Json withLayer(Json control, const host::ControlLook& look) {
    control["background"] = colorJson(look.background);
    control["cornerRadius"] = orNull(look.cornerRadius);
    return control;
  }
};

Json swatchJson(const ColorView::Swatch& swatch) {
  return {{"hidden", swatch.hidden},
          {"hex", hexJson(swatch.color)},
          {"frame", frameJson(swatch.frame)},
          {"borderWidth", swatch.borderWidth}};
}

Json labelJson(const ColorView::Label& label) {
  return {
      {"hidden", label.hidden}, {"text", orNull(label.text)}, {"frame", frameJson(label.frame)}};
}

void addBuilt(const host::RowView& row, Json& described) {
  described["interaction"] = row.interaction;
  described["enabled"] = row.enabled;
  described["alpha"] = row.alpha;
  described["control"] = std::visit(ControlJson(), row.control);
  if (auto* color = std::get_if<ColorView>(&row.control)) {
    described["swatch"] = swatchJson(color->swatch);
    described["valueLabel"] = labelJson(color->label);
  }
}

}  // namespace

Json rowJson(const host::RowView& row) {
  Json described = {
      {"id", row.id},         {"label", row.label},
      {"cell", row.cellType}, {"cellClass", row.cellClass.empty() ? Json() : Json(row.cellClass)},
      {"built", row.built},   {"value", toJson(row.value)}};
  if (row.built) addBuilt(row, described);
  return described;
}

}  // namespace drive
