#include "apps/cli/command.h"

namespace cli {
namespace {

constexpr Argument kKey{"KEY", "The row's preference key"};
constexpr Argument kTrigger{"TRIGGER", "The trigger, by its ID or its title"};
constexpr Option kOverwrite{"--overwrite", "Replace the profile that the trigger has"};

constexpr Group kGroups[] = {
    {"profile", "Work with saved profiles"},
    {"defaults", "Work with the stored values themselves, as another process would"},
};

constexpr Command kCommands[] = {
    {"", "pages", "List the pages", listPages},
    {"",
     "page",
     "List the rows of a page as it shows them",
     showPage,
     {{"CLASS", "The page's class, as `pages` lists it"}}},
    {"", "get", "Print the value that a row shows", getValue, {kKey}},
    {"",
     "set",
     "Change a row's value, as a user would",
     setValue,
     {kKey,
      {"VALUE", "true or false, a number, a text, #RRGGBB, or one that `choices` lists",
       Argument::Required, true}}},
    {"", "choices", "List the values and titles that a row offers", listChoices, {kKey}},
    {"profile", "list", "List the saved profiles", listProfiles},
    {"profile",
     "save",
     "Save the settings as the profile of a trigger",
     saveProfile,
     {kTrigger},
     {kOverwrite}},
    {"profile", "load", "Set all settings as a profile has them", loadProfile, {kTrigger}},
    {"profile",
     "delete",
     "Remove a profile",
     deleteProfile,
     {kTrigger},
     {{"--recursive", "Remove a folder of that name with all that it holds"}}},
    {"profile", "show", "Print a profile's values", showProfile, {kTrigger}},
    {"profile",
     "diff",
     "Print what a load would change, or what differs between two profiles",
     compareProfiles,
     {kTrigger,
      {"TRIGGER2", "Another one; without it, what a load would change", Argument::Optional}}},
    {"profile",
     "export",
     "Write a profile as an XML property list",
     exportProfile,
     {kTrigger, {"FILE", "The file to write; - is standard output"}}},
    {"profile",
     "import",
     "Make a profile of a property list",
     importProfile,
     {{"FILE", "A property list, XML or binary, or a keyed archive; - is standard input"}},
     {kOverwrite}},
    {"", "triggers", "List the triggers that a profile can have", listTriggers},
    {"",
     "log",
     "Print the battery log, newest first",
     showLog,
     {},
     {{"--follow",
       "Go on with new entries as they come, until interrupted; with --json one a line"}}},
    {"",
     "watch",
     "Print cross-process notifications as they arrive",
     watch,
     {{"NAME", "Only notifications of these names", Argument::Repeated}}},
    {"defaults",
     "read",
     "Print the stored values, or one of them",
     readStore,
     {{"KEY", "Only this key's value", Argument::Optional}}},
    {"defaults",
     "write",
     "Store a value, as another process would",
     writeStore,
     {{"KEY", "The key to store under"},
      {"VALUE", "The value, text unless its kind is named", Argument::Required, true}},
     {{"-int", "The value is an integer of 64 bits"},
      {"-float", "The value is a real number"},
      {"-bool", "The value is true or false"},
      {"-string", "The value is text"}}},
    {"defaults",
     "delete",
     "Remove a stored value",
     removeFromStore,
     {{"KEY", "The key to remove"}}},
    {"",
     "drive",
     "Converse with the Settings host, one JSON object a line",
     converse,
     {},
     {{"--idiom", "phone or tablet", "IDIOM"},
      {"--viewport", "How many entries the screen shows", "N"}}},
};

}  // namespace

std::span<const Command> commands() {
  return kCommands;
}

std::span<const Group> groups() {
  return kGroups;
}

}  // namespace cli
