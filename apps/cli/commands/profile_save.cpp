#include <cerrno>

#include "apps/cli/argument.h"
#include "apps/cli/commands/commands.h"
#include "apps/cli/trigger.h"
#include "prefs/core/names.h"
#include "prefs/profiles/profile_snapshot.h"

namespace cli {
namespace {

using FileContent = platform::Result<std::vector<std::uint8_t>, foundation::FileError>;

Failure exists(const std::string& path) {
  return {ExitCode::Exists, path + " exists; --overwrite replaces it"};
}

// Whether the domain can be written, found out by storing what it holds already.
Outcome<Done> storeCanBeWritten(foundation::Preferences& preferences,
                                const std::vector<std::string>& keys) {
  if (keys.empty()) return Done{};
  const auto value = preferences.copyAppValue(keys.front(), prefs::kDomain);
  const auto stored =
      preferences.setAppValue(keys.front(), value.value_or(plist::Value()), prefs::kDomain);
  if (!stored) return Failure{ExitCode::Failed, stored.error().message()};
  return Done{};
}

// The file is written before the domain is: when the domain can't be after all, a file goes back to
// what it was. What is no file can't be put back, so that the domain is tried first.
void restore(foundation::DeviceRoot& root, const std::string& path, const FileContent& before) {
  if (before)
    static_cast<void>(root.writeDurably(path, *before));
  else if (before.error().code == ENOENT)
    static_cast<void>(root.remove(path));
}

Outcome<Done> save(Session& session, const std::string& text, bool overwrite) {
  const auto trigger = findTrigger(text);
  if (!trigger) return trigger.error();
  const auto& [profileID, path] = *trigger;
  host::Device& device = session.device();
  foundation::DeviceRoot& root = device.root();
  if (!overwrite && root.hasEntry(path)) return exists(path);

  // Defaults in place of settings that can't be read are no profile of them.
  const auto keys = device.preferences().copyKeyList(prefs::kDomain);
  if (const auto readable = session.storeWorked(); !readable) return readable;
  if (const auto writable = storeCanBeWritten(device.preferences(), keys); !writable)
    return writable;

  const FileContent before = root.read(path);
  const auto saved = prefs::saveProfile(
      device.environment(), profileID, path,
      overwrite ? prefs::Existing::Overwrite : prefs::Existing::Keep, prefs::AfterFailure::Stop);
  if (saved.outcome == prefs::SaveOutcome::Exists) return exists(path);
  if (!saved.failure.empty()) return Failure{ExitCode::Failed, saved.failure};

  auto problems = device.takeProblems();
  const auto remembered =
      device.preferences().copyAppValue(prefs::kProfilePercentage, prefs::kDomain);
  if (!problems.empty() && remembered != plist::Value(profileID)) {
    restore(root, path, before);
    return Failure{ExitCode::Failed, problems.front()};
  }
  session.warnings = std::move(problems);
  return Done{};
}

}  // namespace

Run declareProfileSave(CLI::App& app, Session& session) {
  auto trigger = addArgument(app, "TRIGGER", "The trigger, by its ID or its title");
  auto overwrite = std::make_shared<bool>(false);
  app.add_flag("--overwrite", *overwrite, "Replace the profile that the trigger has");
  return [&session, trigger, overwrite] { return save(session, *trigger, *overwrite); };
}

}  // namespace cli
