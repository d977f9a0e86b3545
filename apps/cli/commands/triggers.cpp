#include "prefs/profiles/triggers.h"

#include "apps/cli/argument.h"
#include "apps/cli/columns.h"
#include "apps/cli/commands/commands.h"

namespace cli {
namespace {

Outcome<Done> triggers(Session& session) {
  const plist::Array values = prefs::triggerValues(), titles = prefs::triggerTitles();
  Json::array_t document;
  Columns columns;
  for (std::size_t i = 0; i < values.size(); ++i) {
    document.push_back({{"value", toJson(values[i])}, {"title", toJson(titles[i])}});
    columns.add({plainTextOf(values[i]), plainTextOf(titles[i])});
  }
  if (session.json)
    session.printJson(Json(std::move(document)));
  else
    for (const std::string& line : columns.lines()) session.print(line);
  return Done{};
}

}  // namespace

Run declareTriggers(CLI::App&, Session& session) {
  return [&session] { return triggers(session); };
}

}  // namespace cli
