#include "apps/cli/argument.h"
#include "apps/cli/columns.h"
#include "apps/cli/commands/commands.h"
#include "apps/cli/page_on_show.h"

namespace cli {
namespace {

struct PageEntry {
  std::string pageClass, title;
  std::size_t rows;
};

Outcome<PageEntry> describe(Session& session, std::string_view pageClass) {
  auto page = PageOnShow::open(session, pageClass);
  if (!page) return page.error();
  host::SettingsApplication& application = (*page)->application();
  std::size_t rows = 0;
  if (auto* list = application.shownList()) rows = list->specifiers().size();
  if (auto* table = application.shownTable()) rows = static_cast<std::size_t>(table->rowCount());
  return PageEntry{std::string(pageClass), application.shownPage()->title, rows};
}

Outcome<Done> pages(Session& session) {
  Json::array_t document;
  Columns columns;
  for (const auto& known : session.device().environment().bundle.pages) {
    auto page = describe(session, known.name);
    if (!page) return page.error();
    const auto& [pageClass, title, rows] = *page;
    if (session.json)
      document.push_back({{"class", pageClass}, {"title", title}, {"rows", rows}});
    else
      columns.add(
          {pageClass, (title.empty() ? "" : title + " ") + "(" + std::to_string(rows) + " rows)"});
  }
  if (session.json)
    session.printJson(Json(std::move(document)));
  else
    for (const std::string& line : columns.lines()) session.print(line);
  return session.storeWorked();
}

}  // namespace

Run declarePages(CLI::App&, Session& session) {
  return [&session] { return pages(session); };
}

}  // namespace cli
