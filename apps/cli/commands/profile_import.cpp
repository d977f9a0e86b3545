#include "apps/cli/profile_import.h"

#include "apps/cli/argument.h"
#include "apps/cli/commands/commands.h"
#include "apps/cli/user_file.h"

namespace cli {
namespace {

Outcome<Done> importProfile(Session& session, const std::string& file, bool overwrite) {
  const auto bytes = readUserFile(file);
  if (!bytes) return bytes.error();
  preferences::Environment& environment = session.device().environment();
  const auto read = readImport(*bytes, environment.xml);
  if (!read) return Failure{read.error().code, file + ": " + read.error().reason};
  const auto& [trigger, values] = *read;
  if (!overwrite && environment.root.hasEntry(trigger.path))
    return Failure{ExitCode::Exists, trigger.path + " exists; --overwrite replaces it"};
  const auto written = prefs::writeProfile(environment, trigger.path, values);
  if (!written) return Failure{ExitCode::Failed, written.error()};
  return Done{};
}

}  // namespace

Run declareProfileImport(CLI::App& app, Session& session) {
  auto file = addArgument(app, "FILE", "A property list, XML or binary, or a keyed archive");
  auto overwrite = std::make_shared<bool>(false);
  app.add_flag("--overwrite", *overwrite, "Replace the profile that the trigger has");
  return [&session, file, overwrite] { return importProfile(session, *file, *overwrite); };
}

}  // namespace cli
