#include "prefs/profiles/saved_profiles.h"

#include "apps/cli/argument.h"
#include "apps/cli/columns.h"
#include "apps/cli/commands/commands.h"

namespace cli {
namespace {

Outcome<Done> list(Session& session) {
  const auto saved =
      prefs::savedProfiles(session.device().environment(), prefs::TitleForm::WithDescription);
  if (!saved.failure.empty()) return Failure{ExitCode::Failed, saved.failure};
  Json::array_t document;
  Columns columns;
  for (std::size_t i = 0; i < saved.paths.size(); ++i) {
    document.push_back({{"path", saved.paths[i]}, {"title", saved.titles[i]}});
    columns.add({saved.paths[i], saved.titles[i]});
  }
  if (session.json)
    session.printJson(Json(std::move(document)));
  else
    for (const std::string& line : columns.lines()) session.print(line);
  for (const auto& [path, reason] : saved.skipped) session.warnings.push_back(path + ": " + reason);
  return Done{};
}

}  // namespace

Run declareProfileList(CLI::App&, Session& session) {
  return [&session] { return list(session); };
}

}  // namespace cli
