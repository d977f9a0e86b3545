#include "apps/cli/drive/page_json.h"

namespace cli {

Json colorJson(const std::optional<uikit::Color>& color) {
  if (!color) return nullptr;
  return {{"hex", color->hex()}, {"alpha", color->alpha}};
}

Json frameJson(const uikit::Rect& frame) {
  return Json::array({frame.x, frame.y, frame.width, frame.height});
}

Json pageJson(const host::SettingsApplication& application) {
  const preferences::PSViewController* page = application.shownPage();
  if (!page) return nullptr;
  Json described = {{"class", page->className()}, {"title", page->title}};
  if (preferences::PSListController* list = application.shownList()) {
    described["barButton"] = page->navigationItem.rightBarButtonItem != nullptr;
    Json::array_t rows;
    for (const auto& row : list->specifiers()) rows.push_back(rowJson(*list, *row));
    described["rows"] = std::move(rows);
    if (!list->loadError().empty()) described["error"] = list->loadError();
  } else if (uikit::TableView* table = application.shownTable()) {
    described["sections"] = tableSectionsJson(*table);
  }
  return described;
}

}  // namespace cli
