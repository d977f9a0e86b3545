#include "apps/cli/command_line.h"
#include "apps/cli/listing.h"
#include "apps/cli/terminal.h"
#include "drive/driver.h"

namespace cli {
namespace {

void addOptions(std::span<const Option> options, Columns& columns) {
  for (const Option& option : options)
    if (option.name)
      columns.add({option.name + (option.value ? " " + std::string(option.value) : ""),
                   option.description});
}

std::string page(const std::string& usage, const std::string& about, const Columns& columns) {
  const std::size_t width = terminalWidth();
  std::string text;
  for (const std::string& line : wrapped(about, width)) text += line + "\n";
  text += "\nUsage: quorvantis " + usage + "\n";
  for (const StyledLine& line : columns.lines(width)) text += "\n" + line.text;
  return text;
}

std::string usageOf(const Command& command) {
  std::string usage = nameOf(command);
  std::string arguments;
  for (const Argument& argument : command.arguments) {
    if (!argument.name) break;
    const std::string name = argument.name;
    arguments += argument.need == Argument::Required     ? " " + name
                 : argument.need == Argument::OnceOrMore ? " " + name + "…"
                 : argument.need == Argument::Optional   ? " [" + name + "]"
                                                         : " [" + name + "…]";
  }
  usage += arguments;
  if (command.argumentsMayRepeat) usage += " [" + arguments.substr(1) + "…]";
  return usage + " [OPTIONS]";
}

}  // namespace

std::string helpOf(const Command& command) {
  Columns columns;
  if (command.arguments[0].name) columns.addHeader("Arguments:");
  for (const Argument& argument : command.arguments)
    if (argument.name) columns.add({argument.name, argument.description});
  columns.addHeader("Options:");
  addOptions(command.options, columns);
  addOptions(commonOptions(), columns);
  std::string text = page(usageOf(command), command.description, columns);
  text += "\n\nExample: quorvantis " + std::string(command.example);
  if (command.run == converse)
    text += "\n\nEach line is a request, {\"do\":\"launch\"} the first; there are " +
            drive::Driver::requests() + ".";
  return text;
}

std::string helpOf(const Group& group) {
  Columns columns;
  columns.addHeader("Commands:");
  for (const Command& command : commands())
    if (std::string_view(command.group) == group.name)
      columns.add({command.name, command.description});
  return page(std::string(group.name) + " COMMAND [OPTIONS]", group.description, columns);
}

std::string help() {
  Columns columns;
  columns.addHeader("Commands:");
  for (const Command& command : commands()) columns.add({nameOf(command), command.description});
  columns.addHeader("Options:");
  addOptions(commonOptions(), columns);
  return page("COMMAND [OPTIONS]", "Quorvantis settings from the command line.", columns) +
         "\n\nA terminal gets colors, unless NO_COLOR=1 is set.";
}

}  // namespace cli
