#include "apps/cli/commands/commands.h"

namespace cli {
namespace {

constexpr Command kCommands[] = {
    {"", "pages", "List the pages", declarePages},
    {"", "page", "List the rows of a page as it shows them", declarePage},
    {"", "get", "Print the value that a row shows", declareGet},
    {"", "set", "Change a row's value, as a user would", declareSet},
    {"", "choices", "List the values and titles that a row offers", declareChoices},
    {"profile", "list", "List the saved profiles", declareProfileList},
    {"profile", "save", "Save the settings as the profile of a trigger", declareProfileSave},
    {"profile", "load", "Set all settings as a profile has them", declareProfileLoad},
    {"profile", "delete", "Remove a profile", declareProfileDelete},
    {"profile", "show", "Print a profile's values", declareProfileShow},
    {"profile", "diff", "Print what a load would change, or what differs between two profiles",
     declareProfileDiff},
    {"profile", "export", "Write a profile as an XML property list", declareProfileExport},
    {"profile", "import", "Make a profile of a property list", declareProfileImport},
    {"", "triggers", "List the triggers that a profile can have", declareTriggers},
    {"", "log", "Print the battery log, newest first", declareLog},
    {"", "watch", "Print cross-process notifications as they arrive", declareWatch},
    {"defaults", "read", "Print the stored values, or one of them", declareDefaultsRead},
    {"defaults", "write", "Store a value, as another process would", declareDefaultsWrite},
    {"defaults", "delete", "Remove a stored value", declareDefaultsDelete},
    {"", "drive", "Converse with the Settings host, one JSON object a line", declareDrive},
};

}  // namespace

std::span<const Command> commands() {
  return kCommands;
}

}  // namespace cli
