#pragma once

#include <functional>
#include <string>
#include <vector>

#include "apps/cli/outcome.h"
#include "apps/cli/session.h"

namespace CLI {
class App;
}

namespace cli {

// What is to be done once the line has been read.
using Run = std::function<Outcome<Done>()>;

struct Command {
  const char* group;  // the first word of two, or empty
  const char* name;
  const char* description;
  Run (*declare)(CLI::App& app, Session& session);  // its arguments and options
};

// Reads the line into the session's options and gives what it asks for; help and the version are
// printed into the session. Options may stand anywhere, "--" ends them, and a number is no option
// though it begins with "-". Only the command that is named is declared: the line of a command that
// takes no time must not take any either.
Outcome<Run> readCommandLine(const std::vector<std::string>& arguments, Session& session);

}  // namespace cli
