#include "drive/scene_json.h"

namespace drive {

Json colorJson(const std::optional<uikit::Color>& color) {
  if (!color) return nullptr;
  return {{"hex", color->hex()}, {"alpha", color->alpha}};
}

Json hexJson(const std::optional<uikit::Color>& color) {
  return color ? Json(color->hex()) : Json();
}

Json frameJson(const uikit::Rect& frame) {
  return Json::array({frame.x, frame.y, frame.width, frame.height});
}

Json pageJson(const host::PageView& page) {
  Json described = {{"class", page.pageClass}, {"title", page.title}};
  if (page.isTable) {
    described["sections"] = sectionsJson(page);
    return described;
  }
  described["barButton"] = page.barButton;
  Json::array_t rows;
  for (const host::RowView& row : page.rows) rows.push_back(rowJson(row));
  described["rows"] = std::move(rows);
  if (!page.error.empty()) described["error"] = page.error;
  return described;
}

}  // namespace drive
