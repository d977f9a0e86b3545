#pragma once

#include <string>
#include <vector>

#include "apps/cli/command.h"

namespace cli {

// A line that has been read: a command, or text to print in its place (help, the version).
struct Line {
  const Command* command = nullptr;
  Arguments arguments{};
  std::string text{};
};

// Reads the line, and its common options into the session. Options may stand anywhere, "--" ends
// them; a value follows its option or a "=" in it, and the last one counts. A number isn't an
// option though it begins with "-".
Outcome<Line> readLine(const std::vector<std::string>& words, Session& session);

// Null where there is none of that name; an empty group is that of commands of one word.
const Group* groupNamed(std::string_view name);
const Command* commandNamed(std::string_view group, std::string_view name);
std::string nameOf(const Command& command);           // one word or two
const Option* anyOptionNamed(std::string_view name);  // whoever's it is; "-h" and "-V" too

// What --help prints: of a command, of a group, else of the program.
std::string helpOf(const Command& command);
std::string helpOf(const Group& group);
std::string help();

std::span<const Option> commonOptions();
inline constexpr std::string_view kRoot = "--root";
inline constexpr std::string_view kContacts = "--contacts";
inline constexpr std::string_view kHelp = "--help";
inline constexpr std::string_view kVersion = "--version";

}  // namespace cli
