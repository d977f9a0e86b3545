#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "apps/cli/session.h"
#include "host/profiles.h"
#include "host/user_file.h"

namespace cli {

// What a word can be, for the completion of a line that is being typed.
enum class Words {
  Any,
  Files,
  Commands,
  Keys,
  WatchedKeys,
  Values,
  Pages,
  Triggers,
  SavedProfiles,
  Snapshots,
  Idioms,
  Shells
};

// A word of the line that isn't an option.
struct Argument {
  enum Need { Required, Optional, Repeated, OnceOrMore };
  const char* name = nullptr;
  const char* description = nullptr;
  Words words = Words::Any;
  Need need = Required;
  bool mayBeEmpty = false;
};

struct Option {
  const char* name = nullptr;  // with its dashes
  const char* description = nullptr;
  const char* value = nullptr;  // what its value is called; null for a flag
  Words words = Words::Any;     // what its value can be
};

inline constexpr std::string_view kValues = "--values";  // of watch

// What a line gives to its command.
struct Arguments {
  std::vector<std::string> words;
  std::vector<std::pair<std::string_view, std::string>> options;  // by their names

  // The argument of that number, counted from 0; empty when it isn't given.
  const std::string& operator[](std::size_t index) const;
  bool has(std::string_view option) const { return value(option).has_value(); }
  std::optional<std::string> value(std::string_view option) const;
  host::Existing existing() const;  // what --overwrite, or its absence, says
};

struct Command {
  const char* group = "";  // the first word of two, or empty
  const char* name;
  const char* description;
  Outcome<Done> (*run)(Session& session, const Arguments& arguments);
  Argument arguments[2] = {};
  Option options[4] = {};
  const char* example;              // what may follow "quorvantis "
  bool argumentsMayRepeat = false;  // all of them together, any number of times
};

// A first word that commands share.
struct Group {
  const char* name;
  const char* description;
};

// In the order of the help.
std::span<const Command> commands();
std::span<const Group> groups();

// As host::profileNamed; also by the path that a profile has on this machine.
Outcome<host::Trigger> profileNamed(Session& session, const std::string& name);

// As lines "key: from -> to", of what their rows show, and of profiles what would become of them;
// what a row shows alike before and after is counted, or listed too where `stored` is true
// (nothing: the command has no --stored). With --json one document of all, with the values
// themselves; what is absent is null.
void printDifferences(Session& session, const std::vector<host::Profiles::Difference>& differences,
                      std::optional<bool> stored = std::nullopt);
Json orNull(const std::optional<plist::Value>& value);
// As lines "key = value", or as one document.
void printEntries(Session& session, const plist::Dictionary& entries);
// The same with what a row shows of it, where that says more: "wifi = 2  (Off)".
void printSettings(Session& session, const plist::Dictionary& values);

Outcome<Done> listPages(Session& session, const Arguments& arguments);
Outcome<Done> showPage(Session& session, const Arguments& arguments);
Outcome<Done> search(Session& session, const Arguments& arguments);
Outcome<Done> showPlaces(Session& session, const Arguments& arguments);

Outcome<Done> getValue(Session& session, const Arguments& arguments);
Outcome<Done> setValues(Session& session, const Arguments& arguments);
Outcome<Done> resetValues(Session& session, const Arguments& arguments);
Outcome<Done> listSettings(Session& session, const Arguments& arguments);
Outcome<Done> describeSetting(Session& session, const Arguments& arguments);
Outcome<Done> listChoices(Session& session, const Arguments& arguments);
Outcome<Done> exportSettings(Session& session, const Arguments& arguments);
Outcome<Done> importSettings(Session& session, const Arguments& arguments);

Outcome<Done> listProfiles(Session& session, const Arguments& arguments);
Outcome<Done> saveProfile(Session& session, const Arguments& arguments);
Outcome<Done> loadProfile(Session& session, const Arguments& arguments);
Outcome<Done> copyProfile(Session& session, const Arguments& arguments);
Outcome<Done> deleteProfile(Session& session, const Arguments& arguments);
Outcome<Done> showProfile(Session& session, const Arguments& arguments);
Outcome<Done> compareProfiles(Session& session, const Arguments& arguments);
Outcome<Done> exportProfile(Session& session, const Arguments& arguments);
Outcome<Done> importProfile(Session& session, const Arguments& arguments);
Outcome<Done> listTriggers(Session& session, const Arguments& arguments);

Outcome<Done> listSnapshots(Session& session, const Arguments& arguments);
Outcome<Done> showSnapshot(Session& session, const Arguments& arguments);
Outcome<Done> compareSnapshot(Session& session, const Arguments& arguments);
Outcome<Done> restoreSnapshot(Session& session, const Arguments& arguments);
Outcome<Done> undo(Session& session, const Arguments& arguments);
Outcome<Done> redo(Session& session, const Arguments& arguments);
Outcome<Done> repair(Session& session, const Arguments& arguments);

Outcome<Done> readStore(Session& session, const Arguments& arguments);
Outcome<Done> writeStore(Session& session, const Arguments& arguments);
Outcome<Done> removeFromStore(Session& session, const Arguments& arguments);

Outcome<Done> showLog(Session& session, const Arguments& arguments);
Outcome<Done> watch(Session& session, const Arguments& arguments);
Outcome<Done> converse(Session& session, const Arguments& arguments);

Outcome<Done> showHelp(Session& session, const Arguments& arguments);
Outcome<Done> printCompletions(Session& session, const Arguments& arguments);

}  // namespace cli
