#include "apps/cli/command.h"

namespace cli {
namespace {

using drive::toJson;

Json orNull(const std::optional<std::string>& text) {
  return text ? Json(*text) : Json();
}

Json describe(const host::RowView& row) {
  Json described = {{"id", row.id},
                    {"label", row.label},
                    {"cell", row.cellType},
                    {"value", toJson(row.value)},
                    {"usable", row.usable}};
  if (row.whyNot) described["dimmedBy"] = row.whyNot->by.empty() ? Json() : Json(row.whyNot->by);
  return described;
}

void addRow(const host::RowView& row, Listing& listing) {
  listing.document.push_back(describe(row));
  if (row.kind == host::RowKind::Group) return listing.columns.addHeader(row.label);
  std::string value = row.shown;
  if (row.whyNot)
    value += row.whyNot->by.empty() ? "  (dimmed)" : "  (dimmed by " + row.whyNot->by + ")";
  listing.columns.add({row.label.empty() ? row.id : row.label, row.key, value});
}

// A table page's rows have no ids: they are named by section and index.
void addTable(const host::PageView& page, Listing& listing) {
  int entry = 0;
  for (std::size_t section = 0; section < page.sections.size(); ++section) {
    listing.columns.addHeader(page.sections[section].title);
    for (int index = 0; index < page.sections[section].rows; ++index, ++entry) {
      const host::TableRowView& row = page.tableRows.at(entry);
      listing.add({{"id", std::to_string(section) + "." + std::to_string(index)},
                   {"label", orNull(row.title)},
                   {"cell", row.reuseIdentifier},
                   {"value", orNull(row.detail)},
                   {"usable", row.usable}},
                  {row.title.value_or(""), row.detail.value_or("")});
    }
  }
}

int rowsOf(const host::PageView& page) {
  int rows = static_cast<int>(page.rows.size());
  for (const host::SectionView& section : page.sections) rows += section.rows;
  return rows;
}

}  // namespace

Outcome<Done> listPages(Session& session, const Arguments&) {
  const auto pages = session.settings().pages();
  if (!pages) return failureOf(pages.error());
  Listing listing;
  for (const host::PageView& page : *pages) {
    const int rows = rowsOf(page);
    listing.add({{"class", page.pageClass}, {"title", page.title}, {"rows", rows}},
                {page.pageClass, (page.title.empty() ? "" : page.title + " ") + "(" +
                                     std::to_string(rows) + " rows)"});
  }
  session.print(listing);
  return session.storeWorked();
}

Outcome<Done> showPage(Session& session, const Arguments& arguments) {
  const auto page = session.settings().page(arguments[0]);
  if (!page) {
    Failure failure = failureOf(page.error());
    if (failure.code == ExitCode::NotFound) failure.reason += "; quorvantis pages lists them";
    return failure;
  }
  Listing listing;
  for (const host::RowView& row : page->rows) addRow(row, listing);
  addTable(*page, listing);
  session.print(listing);
  return session.storeWorked();
}

Outcome<Done> getValue(Session& session, const Arguments& arguments) {
  const auto value = session.settings().value(arguments[0]);
  if (!value) return failureOf(value.error());
  session.printValue(*value);
  return session.storeWorked();
}

Outcome<Done> setValue(Session& session, const Arguments& arguments) {
  const host::UserChange change(session.device().backups(), "set " + arguments[0]);
  auto stored = session.settings().set(arguments[0], arguments[1]);
  if (!stored) return failureOf(stored.error());
  session.warnings = std::move(*stored);
  return Done{};
}

Outcome<Done> listChoices(Session& session, const Arguments& arguments) {
  const auto choices = session.settings().choices(arguments[0]);
  if (!choices) return failureOf(choices.error());
  const auto& [values, titles] = **choices;
  if (values.empty())
    if (const auto why = session.takeWarnings(); !why.empty())
      return Failure{ExitCode::Failed, why.front().message()};
  Listing listing;
  for (std::size_t i = 0; i < values.size(); ++i)
    listing.add({{"value", toJson(values[i])}, {"title", titles[i]}},
                {drive::plainTextOf(values[i]), titles[i]});
  session.print(listing);
  return session.storeWorked();
}

}  // namespace cli
