#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "host/history.h"
#include "host/last_seen.h"
#include "host/load_note.h"
#include "host/snapshots.h"

namespace host {

// What this host remembers of a device root, in a folder of its own below `state`, named after the
// root's real path: snapshots, the history of this user's changes, a load under way, and what the
// settings file was last. It watches the store and the pages, so every face of the host has it.
//
// The folder is looked for when something is about to change: what only reads costs nothing. A
// change is made though nothing can be kept of it; that is reported as a warning.
class Backups : public foundation::ChangeObserver {
 public:
  using Clock = std::function<std::chrono::system_clock::time_point()>;

  Backups(preferences::Environment& environment, std::string state,
          std::chrono::milliseconds lockPatience, platform::Report warn,
          Clock clock = std::chrono::system_clock::now);
  ~Backups() override;

  // Takes a snapshot before what the text says ("reset"). An error also while the settings can't be
  // read, so that the good ones stay.
  platform::Result<int> keep(const std::string& before);
  // Likewise, with a warning for an error.
  void keepOrWarn(const std::string& before);

  // Finds the folder; an error where the root's real path can't be told. Everything does it when it
  // needs it, and nothing is kept where it fails, but the three that follow presuppose that it has
  // succeeded.
  platform::Result<platform::Done> open();

  Snapshots& snapshots();
  History& history();
  LastSeen& lastSeen();
  // The settings as another process sees and changes them.
  foundation::Preferences& store() { return store_; }
  // The settings file as it is; empty without one.
  std::vector<std::uint8_t> domainBytes() const;

  // Finishes a load that was stopped half-way, and takes the day's snapshot. Is done before each
  // change; a window does it as it starts.
  void prepare();

  // As preferences::ProfileGuard: a snapshot before a load, an import, an overwriting save and a
  // delete, and the note of a load.
  std::shared_ptr<void> guard(const preferences::ProfileStep& step);

  // What happens in between is one change of this user's, and stands in the history afterwards.
  void beginChange(std::string what);
  void endChange();
  // Puts a change into the history that was made otherwise, without what was left out of it.
  void remember(Change change, const std::vector<std::string>& left);

  void willChange(std::string_view domain) override;
  void didChange(std::string_view domain, const foundation::KeyChanges& changes) override;

 private:
  struct State;
  State& state();
  bool isOpen();  // else it warns, once
  plist::Date now() const;
  void takeDailySnapshot();
  void warn(std::string what, const platform::Error& cause) const;

  preferences::Environment& environment_;
  std::string folder_;
  std::chrono::milliseconds lockPatience_;
  platform::Report warn_;
  Clock clock_;
  foundation::Preferences store_;
  std::unique_ptr<State> state_;
  std::optional<Change> change_;  // that has been begun
  std::int64_t day_ = -1;         // when the day's snapshot was looked for last, since 1970
  bool loadsFinished_ = false, warned_ = false;
};

// A change of this user's, from the one brace to the other; `backups` may be null.
class UserChange {
 public:
  UserChange(Backups* backups, std::string what) : backups_(backups) {
    if (backups_) backups_->beginChange(std::move(what));
  }
  ~UserChange() {
    if (backups_) backups_->endChange();
  }
  UserChange(const UserChange&) = delete;
  UserChange& operator=(const UserChange&) = delete;

 private:
  Backups* backups_;
};

}  // namespace host
