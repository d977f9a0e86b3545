#include "host/undo.h"

#include <algorithm>
#include <utility>

#include "host/change_making.h"
#include "prefs/core/names.h"

namespace host {
namespace {

// What a set that failed has left to be stored is the user's last change.
platform::Result<platform::Done> endChanges(preferences::Environment& environment,
                                            Backups& backups) {
  if (const auto opened = backups.open(); !opened) return opened;
  backups.endChange();
  static_cast<void>(environment.preferences.finish(std::chrono::milliseconds(0)));
  return platform::Done{};
}

History::Latest next(preferences::Environment& environment, Backups& backups, History::Way way) {
  if (const auto ended = endChanges(environment, backups); !ended) return ended.error();
  return backups.history().next(way);
}

Attempt<Undone> move(preferences::Environment& environment, Backups& backups, History::Way way) {
  if (const auto ended = endChanges(environment, backups); !ended)
    return failureOf(Source::Backups, ended.error());
  History& history = backups.history();
  const bool undoing = way == History::Way::Undo;
  const Failure nothing =
      failure(Source::Backups, Failure::NotFound,
              undoing ? "there is nothing to undo" : "there is nothing to redo");
  // Without a trace in the host's state then.
  if (history.isEmpty(way) && !backups.changeNote().isThere()) return nothing;
  backups.prepare();
  const auto locked = history.lock();
  if (!locked) return failureOf(Source::Backups, locked.error());
  if (const auto damaged = history.takeDamaged(way))
    return failureOf(Source::Backups, *damaged,
                     std::string("the last change can't be ") +
                         (undoing ? "undone" : "done again") +
                         ", since what was kept of it is lost; another " +
                         (undoing ? "undo" : "redo") + " is about the one before it");
  const auto last = history.next(way);
  if (!last) return failureOf(Source::Backups, last.error());
  if (!*last) return nothing;
  if (const auto damage = backups.store().damage(prefs::kDomain))
    return failureOf(Source::Settings, *damage);
  const auto& [number, recorded] = **last;
  const Change change = undoing ? reversed(recorded) : recorded;
  auto left = apply(environment, backups, change,
                    undoing ? ChangeNote::Kind::Undo : ChangeNote::Kind::Redo);
  if (!left && left.error().reason != Failure::Unconfirmed) return left.error();
  const auto moved = history.move(number, way);
  if (!moved)
    backups.warn(
        "\"" + change.what + "\" is still the next to be " + (undoing ? "undone" : "done again"),
        moved.error());
  if (!left) return left.error();
  const bool done = left->size() < change.files.size() + change.settings.size();
  return Undone{change.what, done, std::move(*left)};
}

}  // namespace

Attempt<Undone> undo(preferences::Environment& environment, Backups& backups) {
  return move(environment, backups, History::Way::Undo);
}

Attempt<Undone> redo(preferences::Environment& environment, Backups& backups) {
  return move(environment, backups, History::Way::Redo);
}

History::Latest nextUndo(preferences::Environment& environment, Backups& backups) {
  return next(environment, backups, History::Way::Undo);
}

History::Latest nextRedo(preferences::Environment& environment, Backups& backups) {
  return next(environment, backups, History::Way::Redo);
}

std::string asDone(const std::string& what) {
  constexpr std::pair<std::string_view, std::string_view> kVerbs[] = {
      {"load", "loaded"},     {"save", "saved"},       {"delete", "deleted"},
      {"import", "imported"}, {"restore", "restored"}, {"copy", "copied"}};
  const std::size_t end = std::min(what.find(' '), what.size());
  for (const auto& [verb, done] : kVerbs)
    if (what.compare(0, end, verb) == 0) return std::string(done) + what.substr(end);
  return what;
}

}  // namespace host
