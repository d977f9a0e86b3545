#include <cerrno>

#include "apps/cli/command.h"
#include "host/recovery.h"
#include "host/text.h"
#include "host/triggers.h"
#include "host/undo.h"

namespace cli {
namespace {

using drive::toJson;

Outcome<host::Recovery> recoveryOf(Session& session) {
  const auto backups = session.backups();
  if (!backups) return backups.error();
  return host::Recovery(session.device().environment(), **backups);
}

Outcome<int> numberIn(const std::string& text) {
  if (const auto number = host::numberIn<int>(text)) return *number;
  return Failure{ExitCode::WrongUse, "\"" + text + "\" is not the number of a snapshot"};
}

// "2026-01-31 12:00:00 UTC"
std::string timeOf(const plist::Date& date) {
  const Json json = toJson(date);
  if (!json.is_object() || !json.front().is_string()) return "an unknown time";
  std::string text = json.front().get<std::string>();
  text.replace(text.find('T'), 1, " ");
  return text.replace(text.find('Z'), 1, " UTC");
}

// What was left stays, and is named.
void warnOfLeft(Session& session, const std::vector<std::string>& left) {
  for (const std::string& name : left)
    session.warnings.push_back({.source = host::Source::Backups,
                                .severity = host::Severity::Warning,
                                .words = name + " stays as it is, since it was changed meanwhile"});
}

Json entryJson(const host::Recovery::Entry& entry) {
  return {{"number", entry.number}, {"time", toJson(entry.time)}, {"before", entry.before}};
}

using Way = host::Attempt<host::Undone> (*)(preferences::Environment&, host::Backups&);

Outcome<Done> goBack(Session& session, Way way, const std::string& done) {
  const auto backups = session.backups();
  if (!backups) return backups.error();
  const auto undone = way(session.device().environment(), **backups);
  if (!undone) return failureOf(undone.error());
  const bool one = undone->left.size() == 1;
  if (!undone->done)
    return Failure{
        ExitCode::Failed,
        "nothing of \"" + undone->what + "\" is " + done + ": " + host::joined(undone->left) +
            (one ? " stays as it is, since it was" : " stay as they are, since they were") +
            " changed after that"};
  session.changed = true;
  if (session.json)
    session.printJson({{"what", undone->what}, {"left", undone->left}});
  else
    session.print(done + ": " + undone->what);
  warnOfLeft(session, undone->left);
  return Done{};
}

// What a restore from then on lacks, where that is known.
std::string lostSince(const host::Recovery::State& state, const plist::Date& time) {
  if (!state.seen || state.seen->time.seconds <= time.seconds) return "";
  return "; what was changed from then until " + timeOf(state.seen->time) + " is not in it";
}

// What is in the place of the file, or of its folder, is not replaced.
std::string wayOut(host::Recovery& recovery, const host::Recovery::State& state) {
  const auto last = recovery.lastGood();
  const int code = state.damage->code;
  if (code == EISDIR || code == ENOTDIR)
    return "; it has to be moved away" +
           (last && *last ? ", then quorvantis snapshot restore " +
                                std::to_string((*last)->number) + " puts settings back"
                          : std::string());
  if (!last || !*last) return "; quorvantis repair --start-anew begins without settings";
  return "; quorvantis repair --restore puts back the snapshot of " + timeOf((*last)->time) + " (" +
         host::beforeWords((*last)->before) + lostSince(state, (*last)->time) +
         "), quorvantis repair --start-anew begins without settings";
}

// Since when it was changed outside, and until when where that is known.
Json stateJson(const host::Recovery::State& state) {
  Json document = {{"settings", state.settings},
                   {"lastChanged", nullptr},
                   {"outside", nullptr},
                   {"profilesOutside", state.profilesOutside}};
  if (!state.seen) return document;
  document["lastChanged"] = toJson(state.seen->time);
  if (state.changedOutside)
    document["outside"] = {{"from", toJson(state.seen->time)}, {"to", nullptr}};
  else if (state.seen->outside)
    document["outside"] = {{"from", toJson(*state.seen->outsideSince)},
                           {"to", toJson(*state.seen->outside)}};
  return document;
}

Outcome<Done> showState(Session& session, host::Recovery& recovery) {
  const auto state = recovery.state();
  if (state.damage)
    return failureOf(host::failure(host::Source::Settings, host::Failure::Failed,
                                   state.damage->message() + wayOut(recovery, state)));
  if (session.json) {
    session.printJson(stateJson(state));
    return Done{};
  }
  session.print("the settings can be read: " + std::to_string(state.settings) +
                (state.settings == 1 ? " value" : " values"));
  if (state.seen) session.print("last changed by quorvantis at " + timeOf(state.seen->time));
  if (state.changedOutside)
    session.print("changed outside since " + timeOf(state.seen->time));
  else if (state.seen && state.seen->outside)
    session.print("changed outside between " + timeOf(*state.seen->outsideSince) + " and " +
                  timeOf(*state.seen->outside));
  for (const std::string& path : state.profilesOutside)
    session.print("changed outside: profile " + host::oneLine(host::profileName(path)));
  return Done{};
}

}  // namespace

Outcome<Done> listSnapshots(Session& session, const Arguments&) {
  auto recovery = recoveryOf(session);
  if (!recovery) return recovery.error();
  const auto snapshots = recovery->snapshots();
  if (!snapshots) return failureOf(snapshots.error());
  Listing listing;
  for (const host::Recovery::Entry& entry : snapshots->entries)
    listing.add(entryJson(entry), {std::to_string(entry.number), timeOf(entry.time),
                                   host::beforeWords(entry.before) +
                                       (entry.hasProfiles ? "" : ", without profiles")});
  session.print(listing,
                "nothing is kept yet; a snapshot is taken before the first change of a day");
  session.warnings = snapshots->unreadable;
  return Done{};
}

Outcome<Done> showSnapshot(Session& session, const Arguments& arguments) {
  auto recovery = recoveryOf(session);
  if (!recovery) return recovery.error();
  const auto number = numberIn(arguments[0]);
  if (!number) return number.error();
  const auto settings = recovery->settingsOf(*number);
  if (!settings) return failureOf(settings.error());
  printSettings(session, *settings);
  return Done{};
}

Outcome<Done> compareSnapshot(Session& session, const Arguments& arguments) {
  auto recovery = recoveryOf(session);
  if (!recovery) return recovery.error();
  const auto number = numberIn(arguments[0]);
  if (!number) return number.error();
  const auto changes = recovery->changesOfRestore(*number);
  if (!changes) return failureOf(changes.error());
  printDifferences(session, *changes);
  return Done{};
}

Outcome<Done> restoreSnapshot(Session& session, const Arguments& arguments) {
  auto recovery = recoveryOf(session);
  if (!recovery) return recovery.error();
  const auto number = numberIn(arguments[0]);
  if (!number) return number.error();
  const auto restored = recovery->restore(*number);
  if (!restored) return failureOf(restored.error());
  session.changed = true;
  if (session.json)
    session.printJson({{"deleted", restored->deleted}, {"left", restored->left}});
  else
    for (const std::string& path : restored->deleted)
      session.print("deleted: " + host::oneLine(host::profileName(path)));
  warnOfLeft(session, restored->left);
  if (!restored->hadProfiles)
    session.warnings.push_back({.source = host::Source::Backups,
                                .severity = host::Severity::Warning,
                                .words = "this snapshot has no profiles; they stay as they are"});
  return Done{};
}

Outcome<Done> undo(Session& session, const Arguments&) {
  return goBack(session, host::undo, "undone");
}

Outcome<Done> redo(Session& session, const Arguments&) {
  return goBack(session, host::redo, "done again");
}

Outcome<Done> repair(Session& session, const Arguments& arguments) {
  auto recovery = recoveryOf(session);
  if (!recovery) return recovery.error();
  const bool restored = arguments.has("--restore"), anew = arguments.has("--start-anew");
  if (restored && anew)
    return Failure{ExitCode::WrongUse, "--restore and --start-anew can't be had together"};
  if (!restored && !anew) return showState(session, *recovery);
  Json document = {{"restored", nullptr}};
  std::string words = "begun without settings";
  if (restored) {
    const auto state = recovery->state();
    const auto last = recovery->restoreLast();
    if (!last) return failureOf(last.error());
    document["restored"] = entryJson(*last);
    words = "restored from " + timeOf(last->time) + ", " + host::beforeWords(last->before) +
            lostSince(state, last->time);
  } else if (const auto begun = recovery->startAnew(); !begun) {
    return failureOf(begun.error());
  }
  session.changed = true;
  if (session.json)
    session.printJson(document);
  else
    session.print(words + "\nthe damaged file is kept beside it; undo doesn't take this back");
  return Done{};
}

}  // namespace cli
