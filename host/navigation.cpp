#include "host/application.h"
#include "platform/preferences/PSListItemsController.h"

namespace host {
namespace {

using preferences::CellType;
using preferences::PSListController;
using preferences::PSListItemsController;
using preferences::PSSpecifier;

Refusal noPage(std::string_view pageClass) {
  return {RefusalCode::NoPage, "no page class \"" + std::string(pageClass) + "\""};
}

}  // namespace

Outcome<Application::Page> Application::load(std::string_view pageClass, Row opener, Page parent) {
  const preferences::PageClass* known = environment_.bundle.pageClass(pageClass);
  if (!known) return noPage(pageClass);
  Page page = known->create(environment_);
  const bool choices = dynamic_cast<PSListItemsController*>(page.get());
  if (choices && !dynamic_cast<PSListController*>(parent.get()))
    return Refusal{RefusalCode::BadRequest, "choices can only be opened from a row of a list"};
  static_cast<void>(environment_.preferences.synchronize());
  if (opener) page->setOpener(std::move(opener), std::move(parent));
  page->loadView();
  page->viewDidLoad();
  return page;
}

Application::Result Application::run(const Launch& request) {
  const auto principal = environment_.bundle.principalClass;
  auto page = load(request.page.empty() ? principal : request.page, nullptr, nullptr);
  if (!page) return page.error();
  if (!pages_.empty()) pages_.back()->viewWillDisappear(false);
  if (environment_.screen) environment_.screen->dismissAll();
  while (!pages_.empty()) pages_.pop_back();
  pages_.push_back(*page);
  firstRows_.assign(1, 0);
  pages_.back()->viewWillAppear(true);
  return plist::Value();
}

Application::Result Application::push(std::string_view pageClass, Row opener) {
  auto page = load(pageClass, std::move(opener), pages_.back());
  if (!page) return page.error();
  pages_.back()->viewWillDisappear(true);
  pages_.push_back(*page);
  firstRows_.push_back(0);
  pages_.back()->viewWillAppear(true);
  return plist::Value();
}

Application::Result Application::run(const Open& request) {
  if (pages_.empty()) return noPage();
  return push(request.page, std::make_shared<PSSpecifier>(CellType::PSLinkCell, request.row));
}

Application::Result Application::run(const Back&) {
  if (pages_.size() < 2) return Refusal{RefusalCode::NoPage, "no page to go back to"};
  const Page left = std::move(pages_.back());
  pages_.pop_back();
  firstRows_.pop_back();
  left->viewWillDisappear(true);
  pages_.back()->viewWillAppear(true);
  layOutRows();
  buildVisibleRows();  // while the page that was left is still there
  return plist::Value();
}

// A row that leads somewhere pushes its page, a row of choices its choices, a button runs its
// action; any other row does nothing.
Application::Result Application::run(const Tap& request) {
  const Row row = sharedRow(request.row);
  if (row->cellType() == CellType::PSButtonCell) {
    send(row->textForKey("action"), *pages_.back(), *row);
    return plist::Value();
  }
  std::string_view detail = row->textForKey("detail");
  if (detail.empty() && row->cellType() == CellType::PSLinkListCell)
    detail = "PSListItemsController";
  return detail.empty() ? plist::Value() : push(detail, row);
}

}  // namespace host
