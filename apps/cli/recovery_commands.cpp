#include "apps/cli/command.h"
#include "host/recovery.h"
#include "host/text.h"
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
    session.warnings.push_back(
        {.source = host::Source::Backups,
         .severity = host::Severity::Warning,
         .words = name + " stays as it is: another program has changed it since"});
}

using Way = host::Attempt<host::Undone> (*)(preferences::Environment&, host::Backups&);

Outcome<Done> goBack(Session& session, Way way, const std::string& done) {
  const auto backups = session.backups();
  if (!backups) return backups.error();
  const auto undone = way(session.device().environment(), **backups);
  if (!undone) return failureOf(undone.error());
  const bool one = undone->left.size() == 1;
  if (!undone->done)
    return Failure{ExitCode::Failed, "nothing of \"" + undone->what + "\" is " + done + ": " +
                                         host::joined(undone->left) +
                                         (one ? " stays as it is" : " stay as they are") +
                                         ", since another program has changed " +
                                         (one ? "it" : "them")};
  session.changed = true;
  session.print(done + ": " + undone->what);
  warnOfLeft(session, undone->left);
  return Done{};
}

// What a restore from then on lacks, where that is known.
std::string lostSince(const host::Recovery::State& state, const plist::Date& time) {
  if (!state.seen || state.seen->time.seconds <= time.seconds) return "";
  return "; what was changed from then until " + timeOf(state.seen->time) + " is not in it";
}

std::string wayOut(host::Recovery& recovery, const host::Recovery::State& state) {
  const auto last = recovery.lastGood();
  if (!last || !*last) return "; quorvantis repair --start-anew begins without settings";
  return "; quorvantis repair --restore puts back the snapshot of " + timeOf((*last)->time) +
         " (before \"" + (*last)->before + "\"" + lostSince(state, (*last)->time) +
         "), quorvantis repair --start-anew begins without settings";
}

Outcome<Done> showState(Session& session, host::Recovery& recovery) {
  const auto state = recovery.state();
  if (state.damage)
    return Failure{ExitCode::Failed, state.damage->message() + wayOut(recovery, state)};
  session.print("the settings can be read: " + std::to_string(state.settings) +
                (state.settings == 1 ? " value" : " values"));
  if (!state.seen) return Done{};
  session.print("last changed by quorvantis at " + timeOf(state.seen->time));
  if (state.changedOutside)
    session.print("changed outside since " + timeOf(state.seen->time));
  else if (state.seen->outside)
    session.print("changed outside between " + timeOf(*state.seen->outsideSince) + " and " +
                  timeOf(*state.seen->outside));
  return Done{};
}

}  // namespace

Outcome<Done> listSnapshots(Session& session, const Arguments&) {
  auto recovery = recoveryOf(session);
  if (!recovery) return recovery.error();
  const auto snapshots = recovery->snapshots();
  if (!snapshots) return failureOf(snapshots.error());
  Listing listing;
  for (const auto& [number, time, before] : snapshots->entries)
    listing.add({{"number", number}, {"time", toJson(time)}, {"before", before}},
                {std::to_string(number), timeOf(time), "before " + before});
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
  printEntries(session, *settings);
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
  const auto left = recovery->restore(*number);
  if (!left) return failureOf(left.error());
  warnOfLeft(session, *left);
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
  if (restored) {
    const auto state = recovery->state();
    const auto last = recovery->restoreLast();
    if (!last) return failureOf(last.error());
    session.print("restored from " + timeOf(last->time) + ", before \"" + last->before + "\"" +
                  lostSince(state, last->time));
  } else if (anew) {
    const auto begun = recovery->startAnew();
    if (!begun) return failureOf(begun.error());
    session.print("begun without settings");
  } else {
    return showState(session, *recovery);
  }
  session.changed = true;
  session.print("the damaged file is kept beside it; undo doesn't take this back");
  return Done{};
}

}  // namespace cli
