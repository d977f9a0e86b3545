#pragma once

#include "apps/cli/command.h"

namespace cli {

// What the completion scripts call: `quorvantis __complete WORD…`, the words after the program's
// name up to and with the one that is being typed. Prints what that one can be, one a line: the
// word, a tab and what it means; ":files" where it is a file's name. What can't be looked up is
// left out without a message.
inline constexpr char kComplete[] = "__complete";
Outcome<Done> completeLine(Session& session, const Arguments& arguments);

}  // namespace cli
