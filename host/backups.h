#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "host/change_note.h"
#include "host/history.h"
#include "host/kept_sets.h"
#include "host/last_seen.h"
#include "host/load_note.h"
#include "host/seen_profiles.h"
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

  // Takes a snapshot before what the text says ("reset"), of the settings alone, with a warning,
  // where the profiles are too large for it. An error also while the settings can't be read, so
  // that the good ones stay.
  platform::Result<int> keep(const std::string& before);
  // Likewise, with a warning for an error. Whether there is one now.
  bool keepOrWarn(const std::string& before);

  // Finds the folder; an error where the root's real path can't be told. Everything does it when it
  // needs it, and nothing is kept where it fails, but the five that follow presuppose that it has
  // succeeded.
  platform::Result<platform::Done> open();

  Snapshots& snapshots();
  History& history();
  ChangeNote& changeNote();
  LastSeen& lastSeen();
  SeenProfiles& seenProfiles();
  std::chrono::milliseconds lockPatience() const { return lockPatience_; }
  // The settings as another process sees and changes them.
  foundation::Preferences& store() { return store_; }
  // checksumOf() the settings file as it is; of no bytes without one, or where it can't be read.
  std::uint64_t domainChecksum() const;

  // Finishes a load or another change that was stopped half-way, and takes the day's snapshot. Is
  // done before each change and is no part of it; a window does it as it starts.
  void prepare();

  // As preferences::ProfileGuard: a snapshot before a load, an import, an overwriting save and a
  // delete, and the note of a load.
  std::shared_ptr<void> guard(const preferences::ProfileStep& step);

  // What happens in between is one change of this user's, and stands in the history afterwards, if
  // anything has changed. One that was begun before ends. The label is `what`; with Label::Default
  // a profile's step gives it another one ("load Battery 20%"). With a text for `snapshot` one is
  // kept before what that says, just before the settings are changed first; of a change that is
  // refused, or turns out to be none, none. Without memory for it a change is forgotten.
  enum class Label { Fixed, Default };
  void beginChange(std::string what, Label label = Label::Fixed, std::string snapshot = {});
  void endChange() noexcept;
  bool isChanging() const { return change_.has_value(); }
  // Puts a change into the history that was made otherwise, without what was left out of it.
  void remember(Change change, const std::vector<std::string>& left);
  // Is called with the label of each change that has entered the history.
  void setStepHandler(std::function<void(const std::string& what)> handler) {
    stepHandler_ = std::move(handler);
  }
  // Reports what was done all the same.
  void warn(std::string what, const platform::Error& cause) const;

  // What sets of earlier changes had left to be stored, and is stored by now, enters the history: a
  // step for each change.
  void rememberKept();

  void willChange(std::string_view domain) override;
  void didChange(std::string_view domain, const foundation::DomainChange& change) override;
  void didKeep(std::string_view domain, const foundation::KeyChanges& kept) override;

 private:
  struct State;
  State& state();
  bool isOpen();  // else it warns, once
  plist::Date now() const;
  void takeDailySnapshot();
  void noteFile(const preferences::ProfileStep& step);
  void recordChange();

  preferences::Environment& environment_;
  std::string folder_;
  std::chrono::milliseconds lockPatience_;
  platform::Report warn_;
  Clock clock_;
  foundation::Preferences store_;
  std::unique_ptr<State> state_;
  std::optional<Change> change_;  // that has been begun
  Label label_ = Label::Fixed;    // of it
  std::string snapshot_;          // what one is to be kept before; empty: none
  int number_ = 0;                // of it, or of the latest one
  KeptSets kept_;
  std::function<void(const std::string& what)> stepHandler_;
  std::int64_t day_ = -1;  // when the day's snapshot was looked for last, since 1970
  bool preparing_ = false, prepared_ = false, warned_ = false;
};

// A change of this user's, from the one brace to the other; `backups` may be null.
class UserChange {
 public:
  UserChange(Backups* backups, std::string what, Backups::Label label = Backups::Label::Fixed,
             std::string snapshot = {})
      : backups_(backups) {
    if (backups_) backups_->beginChange(std::move(what), label, std::move(snapshot));
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
