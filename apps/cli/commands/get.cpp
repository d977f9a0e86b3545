#include "apps/cli/argument.h"
#include "apps/cli/commands/commands.h"
#include "apps/cli/page_on_show.h"
#include "apps/cli/row_lookup.h"
#include "platform/foundation/text.h"

namespace cli {
namespace {

// What the page's getter says.
Outcome<plist::Value> askPage(Session& session, const FoundRow& row) {
  auto page = PageOnShow::open(session, row.page->name);
  if (!page) return page.error();
  host::SettingsApplication& application = (*page)->application();
  auto found = application.row(std::string(row.id()));
  if (!found) return failureOf(found.error());
  return application.shownList()->valueOf(**found);
}

plist::Value storedOrDefault(Session& session, const FoundRow& row) {
  const plist::Value* standard = row.properties.find("default");
  plist::Value value = standard ? *standard : plist::Value();
  if (!row.text("key").empty() && !row.text("defaults").empty())
    if (auto stored =
            session.device().preferences().copyAppValue(row.text("key"), row.text("defaults")))
      value = std::move(*stored);
  const plist::Value* negate = row.properties.find("negate");
  const bool negated = negate && foundation::boolValue(*negate);
  return negated ? plist::Value(!foundation::boolValue(value)) : value;
}

// No page is made for a row without a getter of its own: this is the command that scripts run in
// loops.
Outcome<plist::Value> valueOf(Session& session, const FoundRow& row) {
  if (!row.text("get").empty()) return askPage(session, row);
  return storedOrDefault(session, row);
}

}  // namespace

Outcome<Done> get(Session& session, const std::string& key) {
  const auto row = findRow(session.device().environment().bundle, key);
  if (!row) return row.error();
  const auto value = valueOf(session, *row);
  if (!value) return value.error();
  session.print(session.json ? textOf(toJson(*value)) : plainTextOf(*value));
  return session.storeWorked();
}

Run declareGet(CLI::App& app, Session& session) {
  auto key = addArgument(app, "KEY", "The row's preference key");
  return [&session, key] { return get(session, *key); };
}

}  // namespace cli
