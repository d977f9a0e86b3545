#include <algorithm>

#include "apps/cli/argument.h"
#include "apps/cli/color_choice.h"
#include "apps/cli/columns.h"
#include "apps/cli/commands/commands.h"
#include "apps/cli/page_on_show.h"

namespace cli {
namespace {

using preferences::CellType;
using preferences::PSListController;
using preferences::PSSpecifier;

std::string dimmedBy(PSListController& page, PSSpecifier& row) {
  const auto whyNot = host::describeRow(page, row).whyNot;
  return whyNot ? whyNot->by : std::string();
}

Json describe(PSListController& page, PSSpecifier& row) {
  const bool usable = host::isUsable(row);
  Json described = {{"id", row.identifier()},
                    {"label", row.name()},
                    {"cell", nameOf(row.cellType())},
                    {"value", toJson(page.valueOf(row))},
                    {"usable", usable}};
  if (usable) return described;
  const std::string by = dimmedBy(page, row);
  described["dimmedBy"] = by.empty() ? Json() : Json(by);
  return described;
}

// What the row shows of its value to a person.
std::string shownValue(PSListController& page, PSSpecifier& row) {
  const plist::Value value = page.valueOf(row);
  if (value.isNothing()) return {};
  if (const std::string* title = row.titleForValue(value)) return *title;
  if (auto* control = dynamic_cast<uikit::Switch*>(row.control()))
    return control->isOn() ? "on" : "off";
  if (value.text() && leadsToColorPicker(row.textForKey("detail")))
    return shownColor(plainTextOf(value));
  return plainTextOf(value);
}

void printRows(Session& session, PSListController& page) {
  Columns columns;
  for (const auto& row : page.specifiers()) {
    if (row->cellType() == CellType::PSGroupCell) {
      columns.addHeader(row->name());
      continue;
    }
    std::string value = shownValue(page, *row);
    if (!host::isUsable(*row)) {
      const std::string by = dimmedBy(page, *row);
      value += by.empty() ? "  (dimmed)" : "  (dimmed by " + by + ")";
    }
    columns.add({row->name().empty() ? row->identifier() : row->name(),
                 std::string(row->textForKey("key")), value});
  }
  for (const std::string& line : columns.lines()) session.print(line);
}

// A table page's rows have no ids: they are named by section and index.
Json describe(uikit::TableView& table, uikit::IndexPath path) {
  const uikit::TableViewCell* cell = table.cellForRowAtIndexPath(path);
  const auto text = [](const std::optional<std::string>& text) {
    return text ? Json(*text) : Json();
  };
  return {{"id", std::to_string(path.section) + "." + std::to_string(path.row)},
          {"label", text(cell->textLabel.text)},
          {"cell", cell->reuseIdentifier},
          {"value", text(cell->detailTextLabel.text)},
          {"usable", cell->enabled() && cell->userInteractionEnabled()}};
}

void printRows(Session& session, uikit::TableView& table) {
  Columns columns;
  for (int i = 0, section = -1; i < table.rowCount(); ++i) {
    const uikit::IndexPath path = table.pathOfRow(i);
    for (; section < path.section; ++section)
      columns.addHeader(table.source->tableViewTitleForHeaderInSection(table, section + 1));
    const uikit::TableViewCell* cell = table.cellForRowAtIndexPath(path);
    columns.add({cell->textLabel.text.value_or(""), cell->detailTextLabel.text.value_or("")});
  }
  for (const std::string& line : columns.lines()) session.print(line);
}

Outcome<Done> page(Session& session, const std::string& pageClass) {
  auto shown = PageOnShow::open(session, pageClass);
  if (!shown) return shown.error();
  Json::array_t rows;
  if (PSListController* list = (*shown)->application().shownList()) {
    if (!session.json) printRows(session, *list);
    for (const auto& row : list->specifiers()) rows.push_back(describe(*list, *row));
  } else if (uikit::TableView* table = (*shown)->application().shownTable()) {
    if (!session.json) printRows(session, *table);
    for (int i = 0; i < table->rowCount(); ++i)
      rows.push_back(describe(*table, table->pathOfRow(i)));
  }
  if (session.json) session.printJson(Json(std::move(rows)));
  return session.storeWorked();
}

}  // namespace

Run declarePage(CLI::App& app, Session& session) {
  auto pageClass = addArgument(app, "CLASS", "The page's class, as `pages` lists it");
  return [&session, pageClass] { return page(session, *pageClass); };
}

}  // namespace cli
