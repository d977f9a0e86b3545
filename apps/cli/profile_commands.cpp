#include <map>

#include "apps/cli/command.h"
#include "apps/cli/terminal.h"
#include "host/places.h"

namespace cli {
namespace {

using drive::toJson;
using host::Profiles;

Profiles profilesOf(Session& session) {
  return Profiles(session.device().environment());
}

template <class T>
Outcome<T> orFailure(host::Attempt<T> attempt) {
  if (!attempt) return failureOf(attempt.error());
  return std::move(*attempt);
}

// The path of each trigger's own file.
std::map<std::string, std::string> ownPaths() {
  std::map<std::string, std::string> paths;
  for (const host::Trigger& trigger : host::triggers()) paths[trigger.profileID] = trigger.path;
  return paths;
}

// Against the settings as they are now, or against another profile.
Outcome<std::vector<Profiles::Difference>> compare(Session& session, const Arguments& arguments) {
  const auto trigger = profileNamed(session, arguments[0]);
  if (!trigger) return trigger.error();
  if (arguments[1].empty()) return orFailure(profilesOf(session).changesOfLoad(*trigger));
  const auto other = profileNamed(session, arguments[1]);
  if (!other) return other.error();
  return orFailure(profilesOf(session).differences(*trigger, *other));
}

}  // namespace

Outcome<host::Trigger> profileNamed(Session& session, const std::string& name) {
  return orFailure(host::profileNamed(host::platformPath(session.device().environment(), name)));
}

Outcome<Done> listProfiles(Session& session, const Arguments&) {
  const auto profiles = profilesOf(session).list();
  if (!profiles) return failureOf(profiles.error());
  const auto own = ownPaths();
  const bool isShown = terminalWidth() > 0;  // scripts get three columns
  const auto placeOf = [&](const host::SavedProfile& profile) {
    if (!isShown) return std::string();
    const auto path = own.find(profile.trigger);
    return path != own.end() && path->second == profile.path ? "" : "  " + profile.path;
  };
  Listing listing;
  for (const host::SavedProfile& profile : *profiles)
    if (session.json)  // there may be very many
      listing.document.push_back(
          {{"path", profile.path},
           {"title", profile.longTitle()},
           {"trigger", profile.trigger.empty() ? Json() : Json(profile.trigger)},
           {"active", profile.active}});
    else
      listing.columns.add({profile.trigger, profile.longTitle(),
                           (profile.active ? "active" : "not active") + placeOf(profile)},
                          profile.active ? Style::Plain : Style::Dim);
  session.print(listing, "no profile is saved; quorvantis profile save TRIGGER saves one");
  return Done{};
}

Outcome<Done> saveProfile(Session& session, const Arguments& arguments) {
  const auto trigger = orFailure(host::triggerNamed(arguments[0]));
  if (!trigger) return trigger.error();
  const host::UserChange change(session.device().backups(),
                                "save " + host::profileName(trigger->path));
  return orFailure(profilesOf(session).save(*trigger, arguments.existing()));
}

Outcome<Done> loadProfile(Session& session, const Arguments& arguments) {
  if (arguments.has("--dry-run")) return compareProfiles(session, arguments);
  if (arguments.has("--stored"))
    return Failure{ExitCode::WrongUse, "--stored belongs to --dry-run"};
  const auto trigger = profileNamed(session, arguments[0]);
  if (!trigger) return trigger.error();
  const host::UserChange change(session.device().backups(),
                                "load " + host::profileName(trigger->path));
  return orFailure(profilesOf(session).load(*trigger));
}

Outcome<Done> copyProfile(Session& session, const Arguments& arguments) {
  const auto from = profileNamed(session, arguments[0]);
  if (!from) return from.error();
  const auto to = orFailure(host::triggerNamed(arguments[1]));
  if (!to) return to.error();
  const host::UserChange change(session.device().backups(),
                                "copy to " + host::profileName(to->path));
  return orFailure(profilesOf(session).copy(*from, *to, arguments.existing()));
}

Outcome<Done> deleteProfile(Session& session, const Arguments& arguments) {
  const auto trigger = profileNamed(session, arguments[0]);
  if (!trigger) return trigger.error();
  const host::UserChange change(session.device().backups(),
                                "delete " + host::profileName(trigger->path));
  const auto folders =
      arguments.has("--recursive") ? Profiles::Folders::Remove : Profiles::Folders::Refuse;
  return orFailure(profilesOf(session).remove(*trigger, folders));
}

Outcome<Done> showProfile(Session& session, const Arguments& arguments) {
  const auto trigger = profileNamed(session, arguments[0]);
  if (!trigger) return trigger.error();
  const auto profile = profilesOf(session).read(*trigger);
  if (!profile) return failureOf(profile.error());
  printSettings(session, *profile);
  return Done{};
}

Outcome<Done> compareProfiles(Session& session, const Arguments& arguments) {
  const auto differences = compare(session, arguments);
  if (!differences) return differences.error();
  printDifferences(session, *differences, arguments.has("--stored"));
  return Done{};
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
