#include "apps/cli/drive/page_json.h"

namespace cli {
namespace {

std::vector<const uikit::Slider*> slidersIn(const uikit::View& view) {
  std::vector<const uikit::Slider*> sliders;
  for (const auto& subview : view.subviews())
    if (auto* slider = dynamic_cast<const uikit::Slider*>(subview.get())) sliders.push_back(slider);
  return sliders;
}

// The panel is the cell's subview that holds sliders.
Json slidersJson(const uikit::TableViewCell& cell) {
  for (const auto& panel : cell.subviews()) {
    const auto sliders = slidersIn(*panel);
    if (sliders.empty()) continue;
    Json::array_t values, frames;
    for (const uikit::Slider* slider : sliders) {
      values.push_back(toJson(slider->value()));
      frames.push_back(frameJson(slider->frame));
    }
    return {{"panel", frameJson(panel->frame)},
            {"values", std::move(values)},
            {"frames", std::move(frames)}};
  }
  return nullptr;
}

Json imageJson(const std::optional<uikit::Swatch>& image) {
  if (!image) return nullptr;
  return {{"hex", image->color.hex()},
          {"size", Json::array({image->size.width, image->size.height})}};
}

Json rowJson(uikit::TableView& table, uikit::IndexPath path) {
  const uikit::TableViewCell* cell = table.cellForRowAtIndexPath(path);
  Json row = {{"built", cell != nullptr},
              {"height", table.source->tableViewHeightForRowAtIndexPath(table, path)}};
  if (!cell) return row;
  row["title"] = orNull(cell->textLabel.text);
  row["detail"] = orNull(cell->detailTextLabel.text);
  row["image"] = imageJson(cell->imageView.image);
  row["border"] = cell->imageView.layer.borderWidth.value_or(0.0);
  row["checkmark"] = cell->accessory == uikit::Accessory::Checkmark;
  row["tag"] = cell->tag;
  row["sliders"] = slidersJson(*cell);
  return row;
}

}  // namespace

Json tableSectionsJson(uikit::TableView& table) {
  Json::array_t sections;
  for (int section = 0; section < table.source->numberOfSectionsInTableView(table); ++section) {
    Json::array_t rows;
    const int count = table.source->tableViewNumberOfRowsInSection(table, section);
    for (int row = 0; row < count; ++row) rows.push_back(rowJson(table, {section, row}));
    sections.push_back({{"title", table.source->tableViewTitleForHeaderInSection(table, section)},
                        {"rows", std::move(rows)}});
  }
  return sections;
}

}  // namespace cli
