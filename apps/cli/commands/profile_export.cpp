#include "apps/cli/argument.h"
#include "apps/cli/commands/commands.h"
#include "apps/cli/trigger.h"
#include "apps/cli/user_file.h"

namespace cli {
namespace {

constexpr std::string_view kStandardOutput = "-";

Outcome<Done> exportProfile(Session& session, const std::string& trigger, const std::string& file) {
  preferences::Environment& environment = session.device().environment();
  const auto profile = readProfile(environment, trigger);
  if (!profile) return profile.error();
  const auto xml = environment.xml.write(*profile);
  if (!xml) return Failure{ExitCode::Failed, xml.error().message()};
  if (file != kStandardOutput) return writeUserFile(file, *xml);
  std::string text(xml->begin(), xml->end());
  if (text.ends_with('\n')) text.pop_back();
  session.print(text);
  return Done{};
}

}  // namespace

Run declareProfileExport(CLI::App& app, Session& session) {
  auto trigger = addArgument(app, "TRIGGER", "The trigger, by its ID or its title");
  auto file = addArgument(app, "FILE", "The file to write; - is standard output");
  return [&session, trigger, file] { return exportProfile(session, *trigger, *file); };
}

}  // namespace cli
