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

}  // namespace

Scene describe(const Application& application) {
  Scene scene;
  for (const auto& page : application.pages())
    scene.pages.push_back(describePage(application, page));
  if (!scene.pages.empty()) describeShown(application, scene.pages.back());
  for (const auto& alert : application.alerts()) {
    scene.alerts.push_back(describeAlert(*alert, application.shownList()));
    scene.alerts.back().number = application.numberOf(alert);
  }
  scene.problems = application.problems();
  return scene;
}

}  // namespace host
