#include "host/settings_application.h"
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

Outcome<SettingsApplication::Page> SettingsApplication::load(std::string_view pageClass, Row opener,
                                                             Page parent) {
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

void SettingsApplication::launch() {
  static_cast<void>(launch(environment_.bundle.principalClass));
}

Outcome<Done> SettingsApplication::launch(std::string_view pageClass) {
  auto page = load(pageClass, nullptr, nullptr);
  if (!page) return page.error();
  if (!pages_.empty()) pages_.back()->viewWillDisappear(false);
  if (environment_.screen) environment_.screen->dismissAll();
  while (!pages_.empty()) pages_.pop_back();
  pages_.push_back(*page);
  firstRows_.assign(1, 0);
  pages_.back()->viewWillAppear(true);
  buildVisibleRows();
  return Done{};
}

Outcome<Done> SettingsApplication::push(std::string_view pageClass, Row opener) {
  auto page = load(pageClass, std::move(opener), pages_.back());
  if (!page) return page.error();
  pages_.back()->viewWillDisappear(true);
  pages_.push_back(*page);
  firstRows_.push_back(0);
  pages_.back()->viewWillAppear(true);
  buildVisibleRows();
  return Done{};
}

Outcome<Done> SettingsApplication::open(std::string_view pageClass,
                                        plist::Dictionary rowProperties) {
  if (const auto refused = refusedForAlert()) return *refused;
  if (pages_.empty()) return noPage();
  return push(pageClass,
              std::make_shared<PSSpecifier>(CellType::PSLinkCell, std::move(rowProperties)));
}

Outcome<Done> SettingsApplication::back() {
  if (const auto refused = refusedForAlert()) return *refused;
  if (pages_.size() < 2) return Refusal{RefusalCode::NoPage, "no page to go back to"};
  const Page left = std::move(pages_.back());
  pages_.pop_back();
  firstRows_.pop_back();
  left->viewWillDisappear(true);
  pages_.back()->viewWillAppear(true);
  layOutRows();
  buildVisibleRows();
  return Done{};
}

Outcome<Done> SettingsApplication::tap(const RowReference& reference) {
  const auto found = operableRow(reference);
  if (!found) return found.error();
  const Row row = *found;
  if (row->cellType() == CellType::PSButtonCell)
    send(row->textForKey("action"), *pages_.back(), *row);
  const bool leads = row->cellType() != CellType::PSButtonCell;
  std::string_view detail = leads ? row->textForKey("detail") : std::string_view();
  if (detail.empty() && row->cellType() == CellType::PSLinkListCell)
    detail = "PSListItemsController";
  if (!detail.empty()) return push(detail, row);
  buildVisibleRows();
  return Done{};
}

}  // namespace host
