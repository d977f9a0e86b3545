#include "drive/scene_json.h"

namespace drive {
namespace {

using host::TableRowView;

Json panelJson(const std::optional<host::SliderPanelView>& panel) {
  if (!panel) return nullptr;
  Json::array_t values, frames;
  for (const host::PartSliderView& slider : panel->sliders) {
    values.push_back(toJson(slider.value));
    frames.push_back(frameJson(slider.frame));
  }
  return {{"panel", frameJson(panel->frame)},
          {"values", std::move(values)},
          {"frames", std::move(frames)}};
}

Json imageJson(const TableRowView& row) {
  if (!row.image) return nullptr;
  return {{"hex", row.image->hex()},
          {"size", Json::array({row.imageSize.width, row.imageSize.height})}};
}

// `row` is null while it is off screen.
Json tableRowJson(const TableRowView* row, double height) {
  Json described = {{"built", row != nullptr}, {"height", height}};
  if (!row) return described;
  described["title"] = orNull(row->title);
  described["detail"] = orNull(row->detail);
  described["image"] = imageJson(*row);
  described["border"] = row->borderWidth;
  described["checkmark"] = row->ticked;
  described["tag"] = row->tag;
  described["sliders"] = panelJson(row->panel);
  return described;
}

}  // namespace

Json sectionsJson(const host::PageView& table) {
  Json::array_t sections;
  int next = 0;  // counted over all sections
  for (const host::SectionView& section : table.sections) {
    Json::array_t rows;
    for (int i = 0; i < section.rows; ++i, ++next) {
      const auto found = table.tableRows.find(next);
      const TableRowView* row = found == table.tableRows.end() ? nullptr : &found->second;
      rows.push_back(tableRowJson(row, section.rowHeight));
    }
    sections.push_back({{"title", section.title}, {"rows", std::move(rows)}});
  }
  return sections;
}

}  // namespace drive
