#include "apps/cli/command.h"
#include "host/color_choice.h"
#include "host/places.h"
#include "host/search.h"

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
  listing.columns.add({row.label.empty() ? row.id : row.label, row.key, value},
                      row.whyNot ? Style::Dim : Style::Plain);
}

// A group's footer stands below its rows.
void addRows(const host::PageView& page, Listing& listing) {
  std::string footer;
  const auto endGroup = [&] {
    if (!footer.empty()) listing.columns.addNote(footer);
  };
  for (const host::RowView& row : page.rows) {
    if (row.kind == host::RowKind::Group) {
      endGroup();
      footer = row.footer;
    }
    addRow(row, listing);
  }
  endGroup();
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
                  {row.title.value_or(""), row.detail.value_or("")},
                  row.usable ? Style::Plain : Style::Dim);
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
                {page.pageClass,
                 (host::leadsToColorPicker(page.pageClass) ? host::kColorPickerName : page.title) +
                     " (" + std::to_string(rows) + " rows)"});
  }
  session.print(listing);
  return session.storeWorked();
}

Outcome<Done> showPage(Session& session, const Arguments& arguments) {
  const auto page = session.settings().page(arguments[0]);
  if (!page) return failureOf(page.error());
  Listing listing;
  addRows(*page, listing);
  addTable(*page, listing);
  session.print(listing);
  return session.storeWorked();
}

Outcome<Done> search(Session& session, const Arguments& arguments) {
  const auto pages = session.settings().pages();
  if (!pages) return failureOf(pages.error());
  const auto profiles = host::Profiles(session.device().environment()).list();
  if (!profiles) return failureOf(profiles.error());
  std::string words;
  for (const std::string& word : arguments.words) words += word + " ";
  Listing listing;
  for (const auto& [pageClass, id, label, where] : host::SearchIndex(*pages, *profiles).find(words))
    listing.add({{"class", pageClass}, {"id", id}, {"label", label}, {"where", where}},
                {label, id, where});
  session.print(listing,
                "nothing matches; quorvantis pages lists the pages, quorvantis list the settings");
  return session.storeWorked();
}

Outcome<Done> showPlaces(Session& session, const Arguments&) {
  host::Device& device = session.device();
  const host::Places places =
      host::placesOf(device.environment(), device.contactsFolder(), host::defaultState());
  Listing listing = Listing::ofObject();
  for (const auto& [name, path] : {std::pair("root", places.root),
                                   {"settings", places.settings},
                                   {"profiles", places.profiles},
                                   {"log", places.log},
                                   {"contacts", places.contacts},
                                   {"sounds", places.sounds},
                                   {"state", places.state}})
    listing.addMember(name, path.empty() ? Json() : Json(path), path);
  session.print(listing);
  return Done{};
}

}  // namespace cli
