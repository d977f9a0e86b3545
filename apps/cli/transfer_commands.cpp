#include <cerrno>

#include "apps/cli/command.h"
#include "host/profile_import.h"
#include "host/settings_transfer.h"
#include "host/text.h"
#include "host/user_file.h"

// Settings and profiles as files of the user's own.
namespace cli {
namespace {

// A file that holds something else than settings, which an export would destroy.
bool isForeign(Session& session, const std::string& file) {
  if (file == host::kStandardStream) return false;
  const auto bytes = host::readUserFile(file);
  if (!bytes || bytes->empty()) return false;
  const auto list = host::readPropertyList(*bytes, session.device().environment().xml);
  return !list || !list->dictionary() || list->dictionary()->find(host::kArchiver) ||
         host::isProfile(*list->dictionary());
}

Failure exists(const std::string& file, const std::string& what) {
  return {ExitCode::Exists, file + ": " + what + "; --overwrite replaces it"};
}

Outcome<Done> writeOutput(Session& session, const std::string& file, plist::Bytes bytes,
                          host::Existing existing) {
  if (file != host::kStandardStream) {
    const auto written = host::writeUserFile(file, bytes, existing);
    if (!written && written.error().code == EEXIST) return exists(file, "exists");
    if (!written) return failureOf(written.error());
    return Done{};
  }
  std::string text(bytes.begin(), bytes.end());
  if (text.ends_with('\n')) text.pop_back();
  session.print(text);
  return Done{};
}

// Where it isn't about a file on the device it is about the one that was read.
Failure failureOfImport(const host::Failure& reason, const std::string& file) {
  Failure failure = failureOf(reason);
  if (reason.problem.path.empty())
    failure.reason =
        (file == host::kStandardStream ? "standard input" : file) + ": " + failure.reason;
  return failure;
}

}  // namespace

Outcome<Done> exportSettings(Session& session, const Arguments& arguments) {
  if (!arguments.has("--overwrite") && isForeign(session, arguments[0]))
    return exists(arguments[0], "exists, and is not an export of settings");
  host::Settings settings = session.settings();
  const auto exported = host::exportSettings(settings, session.device().environment());
  if (!exported) return failureOf(exported.error());
  if (!exported->refused.empty())
    session.warnings.push_back({.source = host::Source::Settings,
                                .severity = host::Severity::Warning,
                                .words = "import takes these values only where they are stored: " +
                                         host::joined(exported->refused)});
  return writeOutput(session, arguments[0], exported->xml, host::Existing::Overwrite);
}

Outcome<Done> importSettings(Session& session, const Arguments& arguments) {
  const std::string& file = arguments[0];
  const auto bytes = host::readUserFile(file);
  if (!bytes) return failureOf(bytes.error());
  host::Settings settings = session.settings();
  preferences::Environment& environment = session.device().environment();
  const auto changes = host::changesOfImport(settings, environment, *bytes);
  if (!changes) return failureOfImport(changes.error(), file);
  if (arguments.has("--dry-run")) {
    printDifferences(session, *changes);
    return Done{};
  }
  const host::UserChange change(session.device().backups(), "import", host::Backups::Label::Fixed,
                                changes->empty() ? "" : "import");
  const auto imported = host::importSettings(settings, environment, *bytes);
  if (!imported) return failureOfImport(imported.error(), file);
  return Done{};
}

Outcome<Done> exportProfile(Session& session, const Arguments& arguments) {
  const auto trigger = profileNamed(session, arguments[0]);
  if (!trigger) return trigger.error();
  const auto xml = host::Profiles(session.device().environment()).exportXml(*trigger);
  if (!xml) return failureOf(xml.error());
  return writeOutput(session, arguments[1], *xml, arguments.existing());
}

Outcome<Done> importProfile(Session& session, const Arguments& arguments) {
  const auto bytes = host::readUserFile(arguments[0]);
  if (!bytes) return failureOf(bytes.error());
  const host::UserChange change(session.device().backups(), "import");
  const auto imported =
      host::Profiles(session.device().environment()).import(*bytes, arguments.existing());
  if (!imported) return failureOfImport(imported.error(), arguments[0]);
  return Done{};
}

}  // namespace cli
