#include "host/settings_application.h"

#include <algorithm>

#include "platform/uikit/application_frame.h"

namespace host {

using preferences::PSListController;
using preferences::PSSpecifier;

SettingsApplication::SettingsApplication(preferences::Environment& environment, int viewport)
    : environment_(environment), viewport_(std::max(viewport, 1)) {}

SettingsApplication::~SettingsApplication() {
  while (!pages_.empty()) pages_.pop_back();
}

preferences::PSViewController* SettingsApplication::shownPage() const {
  return pages_.empty() ? nullptr : pages_.back().get();
}

PSListController* SettingsApplication::shownList() const {
  return dynamic_cast<PSListController*>(shownPage());
}

uikit::TableView* SettingsApplication::shownTable() const {
  return pages_.empty() ? nullptr : shownPage()->table();
}

Outcome<PSSpecifier*> SettingsApplication::row(const RowReference& reference) const {
  PSListController* page = shownList();
  if (!page) return Refusal{RefusalCode::NoRow, "the shown page has no rows of a list"};
  if (auto* id = std::get_if<std::string>(&reference)) {
    if (PSSpecifier* found = page->specifierForID(*id)) return found;
    return Refusal{RefusalCode::NoRow, "no row \"" + *id + "\""};
  }
  const int index = std::get<int>(reference);
  if (index >= 0 && index < entries()) return page->specifiers()[index].get();
  return Refusal{RefusalCode::NoRow, "no row " + std::to_string(index)};
}

int SettingsApplication::entries() const {
  if (PSListController* page = shownList()) return static_cast<int>(page->specifiers().size());
  uikit::TableView* table = shownTable();
  return table ? table->rowCount() : 0;
}

int SettingsApplication::lastFirst() const {
  return std::max(entries() - viewport_, 0);
}

int SettingsApplication::firstShown() const {
  return firstRows_.empty() ? 0 : firstRows_.back();
}

void SettingsApplication::setViewport(int entries) {
  viewport_ = std::max(entries, 1);
  buildVisibleRows();
}

void SettingsApplication::buildVisibleRows() {
  if (!pages_.empty()) {
    int& first = firstRows_.back();
    first = std::min(first, lastFirst());
    const int shown = std::min(viewport_, entries() - first);
    if (PSListController* page = shownList()) {
      for (int i = first; i < first + shown; ++i)
        if (PSSpecifier& row = *page->specifiers()[i]; !row.isBuilt()) page->buildRow(row);
    } else if (uikit::TableView* table = shownTable()) {
      table->show(first, shown);
    }
    fitToScreen();
  }
  if (changed_) changed_();
}

std::vector<uikit::TableViewCell*> SettingsApplication::cells() const {
  std::vector<uikit::TableViewCell*> made;
  if (PSListController* page = shownList()) {
    for (const Row& row : page->specifiers()) made.push_back(row->cellObject());
  } else if (uikit::TableView* table = shownTable()) {
    for (int i = firstShown(); i < std::min(firstShown() + viewport_, entries()); ++i)
      made.push_back(table->cellForRowAtIndexPath(table->pathOfRow(i)));
  }
  std::erase(made, nullptr);
  return made;
}

void SettingsApplication::layOutRows() {
  for (uikit::TableViewCell* cell : cells()) cell->layoutSubviews();
}

void SettingsApplication::fitToScreen() {
  const double width = uikit::applicationFrame(environment_.idiom).width;
  for (uikit::TableViewCell* cell : cells()) {
    if (cell->frame.width == width) continue;
    cell->frame.width = width;
    cell->layoutSubviews();
  }
}

}  // namespace host
