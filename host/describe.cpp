#include "host/describe.h"

#include "host/application.h"

namespace host {
namespace {

PageView describePage(const Application& application, const Application::Page& page) {
  PageView view;
  view.number = application.numberOf(page);
  view.pageClass = page->className();
  view.title = page->title;
  return view;
}

void describeShown(const Application& application, PageView& view) {
  preferences::PSViewController& page = *application.shownPage();
  view.barButton = page.navigationItem.rightBarButtonItem != nullptr;
  view.firstShown = application.firstShown();
  if (preferences::PSListController* list = application.shownList()) {
    for (const auto& row : list->specifiers()) view.rows.push_back(describeRow(*list, *row));
    view.error = list->loadError();
  } else if (page.table()) {
    describeTable(page, view.firstShown, application.viewport(), view);
  }
}

// What rows hold meanwhile are defaults, or what was true once.
void withhold(RowView& row) {
  row.kind = RowKind::Value;
  row.value = row.standard = plist::Value();
  row.shown = "unknown";
  row.changed = row.usable = false;
  row.alpha = 1;
  row.control = std::monostate();
  row.whyNot = WhyNot{.instead = "the settings can't be read"};
}

void withhold(PageView& page) {
  page.barButton = false;
  for (RowView& row : page.rows)
    if (!row.key.empty()) withhold(row);
  for (auto* rows : {&page.tableRows, &page.offScreen})
    for (auto& [index, row] : *rows) row.ticked = row.usable = false;
  page.chosen = -1;
  page.opener.reset();
}

}  // namespace

Scene describe(const Application& application) {
  Scene scene;
  for (const auto& page : application.pages())
    scene.pages.push_back(describePage(application, page));
  if (!scene.pages.empty()) describeShown(application, scene.pages.back());
  for (const auto& alert : application.alerts()) {
    scene.alerts.push_back(describeAlert(*alert, application.shownList()));
    scene.alerts.back().number = application.numberOf(alert);
    scene.alerts.back().failures = application.failuresOf(alert);
  }
  scene.problems = application.problems();
  scene.damage = application.damage();
  if (!scene.damage) return scene;
  if (!scene.pages.empty()) withhold(scene.pages.back());
  std::erase_if(scene.problems, [](const Problem& problem) { return problem.damage; });
  return scene;
}

}  // namespace host
