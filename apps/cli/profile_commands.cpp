#include "apps/cli/command.h"
#include "host/profiles.h"
#include "host/user_file.h"

namespace cli {
namespace {

using drive::textOf;
using drive::toJson;
using host::Profiles;

constexpr std::string_view kStandardOutput = "-";

Profiles profilesOf(Session& session) {
  return Profiles(session.device().environment());
}

Outcome<host::Trigger> triggerNamed(const std::string& text) {
  if (auto trigger = host::findTrigger(text)) return std::move(*trigger);
  return Failure{ExitCode::NotFound, "no trigger \"" + text + "\"; quorvantis triggers lists them"};
}

Profiles::Existing existing(const Arguments& arguments) {
  return arguments.has("--overwrite") ? Profiles::Existing::Overwrite : Profiles::Existing::Keep;
}

Outcome<Done> done(const host::Attempt<Done>& attempt) {
  if (!attempt) return failureOf(attempt.error());
  return Done{};
}

// Against the settings as they are now, or against another profile.
Outcome<std::vector<Profiles::Difference>> compare(Session& session, const Arguments& arguments) {
  const auto trigger = triggerNamed(arguments[0]);
  if (!trigger) return trigger.error();
  if (arguments[1].empty()) {
    auto changes = profilesOf(session).changesOfLoad(*trigger);
    if (!changes) return failureOf(changes.error());
    return std::move(*changes);
  }
  const auto other = triggerNamed(arguments[1]);
  if (!other) return other.error();
  auto differences = profilesOf(session).differences(*trigger, *other);
  if (!differences) return failureOf(differences.error());
  return std::move(*differences);
}

}  // namespace

void printDifferences(Session& session, const std::vector<Profiles::Difference>& differences) {
  const auto json = [](const std::optional<plist::Value>& value) {
    return value ? toJson(*value) : Json();
  };
  Json::array_t document;
  for (const auto& [key, from, to] : differences) {
    if (!session.json) session.print(key + ": " + textOf(json(from)) + " -> " + textOf(json(to)));
    document.push_back({{"key", key}, {"from", json(from)}, {"to", json(to)}});
  }
  if (session.json) session.printJson(Json(std::move(document)));
}

void printEntries(Session& session, const plist::Dictionary& entries) {
  if (session.json) return session.printJson(toJson(entries));
  for (const auto& [key, value] : entries) session.print(key + " = " + textOf(toJson(value)));
}

Outcome<Done> listProfiles(Session& session, const Arguments&) {
  const auto profiles = profilesOf(session).list();
  if (!profiles) return failureOf(profiles.error());
  Listing listing;
  for (const auto& [path, title] : *profiles)
    listing.add({{"path", path}, {"title", title}}, {path, title});
  session.print(listing);
  return Done{};
}

Outcome<Done> saveProfile(Session& session, const Arguments& arguments) {
  const auto trigger = triggerNamed(arguments[0]);
  if (!trigger) return trigger.error();
  const host::UserChange change(session.device().backups(), "save " + trigger->profileID);
  return done(profilesOf(session).save(*trigger, existing(arguments)));
}

Outcome<Done> loadProfile(Session& session, const Arguments& arguments) {
  const auto trigger = triggerNamed(arguments[0]);
  if (!trigger) return trigger.error();
  const host::UserChange change(session.device().backups(), "load " + trigger->profileID);
  return done(profilesOf(session).load(*trigger));
}

Outcome<Done> deleteProfile(Session& session, const Arguments& arguments) {
  const auto trigger = triggerNamed(arguments[0]);
  if (!trigger) return trigger.error();
  const host::UserChange change(session.device().backups(), "delete " + trigger->profileID);
  return done(profilesOf(session).remove(*trigger, arguments.has("--recursive")
                                                       ? Profiles::Folders::Remove
                                                       : Profiles::Folders::Refuse));
}

Outcome<Done> showProfile(Session& session, const Arguments& arguments) {
  const auto trigger = triggerNamed(arguments[0]);
  if (!trigger) return trigger.error();
  const auto profile = profilesOf(session).read(*trigger);
  if (!profile) return failureOf(profile.error());
  printEntries(session, *profile);
  return Done{};
}

Outcome<Done> compareProfiles(Session& session, const Arguments& arguments) {
  const auto differences = compare(session, arguments);
  if (!differences) return differences.error();
  printDifferences(session, *differences);
  return Done{};
}

Outcome<Done> exportProfile(Session& session, const Arguments& arguments) {
  const auto trigger = triggerNamed(arguments[0]);
  if (!trigger) return trigger.error();
  const auto xml = profilesOf(session).exportXml(*trigger);
  if (!xml) return failureOf(xml.error());
  if (arguments[1] != kStandardOutput) {
    const auto written = host::writeUserFile(arguments[1], *xml);
    if (!written) return failureOf(written.error());
    return Done{};
  }
  std::string text(xml->begin(), xml->end());
  if (text.ends_with('\n')) text.pop_back();
  session.print(text);
  return Done{};
}

Outcome<Done> importProfile(Session& session, const Arguments& arguments) {
  const auto bytes = host::readUserFile(arguments[0]);
  if (!bytes) return failureOf(bytes.error());
  const host::UserChange change(session.device().backups(), "import");
  const auto imported = profilesOf(session).import(*bytes, existing(arguments));
  if (imported) return Done{};
  Failure failure = failureOf(imported.error());
  if (imported.error().problem.path.empty()) failure.reason = arguments[0] + ": " + failure.reason;
  return failure;
}

Outcome<Done> listTriggers(Session& session, const Arguments&) {
  Listing listing;
  for (const host::Trigger& trigger : host::triggers())
    listing.add({{"value", trigger.profileID}, {"title", trigger.title}},
                {trigger.profileID, trigger.title});
  session.print(listing);
  return Done{};
}

}  // namespace cli
