#include "apps/cli/command_line.h"

#include <algorithm>

namespace cli {
namespace {

constexpr Option kCommonOptions[] = {
    {"--root", "The device root, a folder", "DIR"},
    {"--contacts", "Another folder of vCards", "DIR"},
    {"--json", "Print one JSON document"},
    {kVersion.data(), "Print the version"},
    {kHelp.data(), "Print this help"},
};

Failure wrongUse(std::string reason) {
  return {ExitCode::WrongUse, std::move(reason)};
}

bool isNegativeNumber(std::string_view word) {
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  if (word.size() > 2 && word[1] == '.') word.remove_prefix(1);
  return word.size() > 1 && isDigit(word[1]);
}

bool isOption(std::string_view word) {
  return word.size() > 1 && word[0] == '-' && !isNegativeNumber(word);
}

const Option* optionNamed(std::span<const Option> options, std::string_view name) {
  const auto found = std::ranges::find_if(
      options, [&](const Option& option) { return option.name && option.name == name; });
  return found == options.end() ? nullptr : &*found;
}

const Option* optionNamed(std::string_view name) {
  if (name == "-h") name = kHelp;
  if (const Option* common = optionNamed(kCommonOptions, name)) return common;
  for (const Command& command : commands())
    if (const Option* own = optionNamed(command.options, name)) return own;
  return nullptr;
}

// The line's words without the command's own, and its options, whoever's they are.
Outcome<Arguments> sortWords(const std::vector<std::string>& line) {
  Arguments sorted;
  auto word = line.begin();
  for (; word != line.end() && *word != "--"; ++word) {
    if (!isOption(*word)) {
      sorted.words.push_back(*word);
      continue;
    }
    const std::size_t equals = word->find('=');
    const std::string name = word->substr(0, equals);
    const Option* option = optionNamed(name);
    if (!option) return wrongUse("no option \"" + name + "\"; quorvantis --help lists them");
    const bool attached = equals != std::string::npos;
    if (!option->value && attached) return wrongUse(name + " takes no value");
    std::string value;
    if (attached) value = word->substr(equals + 1);
    if (option->value && !attached && word + 1 != line.end()) value = *++word;
    if (option->value && value.empty()) return wrongUse(name + " needs a value");
    sorted.options.emplace_back(option->name, std::move(value));
  }
  if (word != line.end()) sorted.words.insert(sorted.words.end(), word + 1, line.end());
  return sorted;
}

const Group* groupNamed(std::string_view name) {
  const auto all = groups();
  const auto found =
      std::ranges::find_if(all, [&](const Group& each) { return each.name == name; });
  return found == all.end() ? nullptr : &*found;
}

const Command* commandNamed(std::string_view group, std::string_view name) {
  const auto all = commands();
  const auto found = std::ranges::find_if(
      all, [&](const Command& each) { return each.group == group && each.name == name; });
  return found == all.end() ? nullptr : &*found;
}

Failure noCommand(const std::vector<std::string>& words, const Group* group) {
  if (words.empty()) return wrongUse("no command is given; quorvantis --help lists them");
  if (group && words.size() == 1)
    return wrongUse("\"" + words[0] + "\" needs a command; quorvantis " + words[0] +
                    " --help lists them");
  if (!group) return wrongUse("no command \"" + words[0] + "\"; quorvantis --help lists them");
  return wrongUse("no command \"" + words[0] + " " + words[1] + "\"; quorvantis " + words[0] +
                  " --help lists them");
}

Outcome<Done> checkArguments(const Command& command, const Arguments& given) {
  std::size_t taken = 0;
  for (const Argument& argument : command.arguments) {
    if (!argument.name) break;
    const std::string name = argument.name;
    if (taken == given.words.size() && argument.need == Argument::Required)
      return wrongUse(name + " is required");
    const std::size_t end = argument.need == Argument::Repeated
                                ? given.words.size()
                                : std::min(taken + 1, given.words.size());
    for (; taken < end; ++taken)
      if (given.words[taken].empty() && !argument.mayBeEmpty)
        return wrongUse(name + " must not be empty");
  }
  if (taken < given.words.size())
    return wrongUse("unexpected argument \"" + given.words[taken] + "\"");
  for (const auto& [name, value] : given.options)
    if (!optionNamed(kCommonOptions, name) && !optionNamed(command.options, name))
      return wrongUse(std::string(command.name) + " has no option " + std::string(name));
  return Done{};
}

Outcome<Done> takeCommonOptions(const Arguments& arguments, Session& session) {
  session.json = arguments.has("--json");
  session.options.contacts = arguments.value("--contacts");
  session.options.root = arguments.value("--root").value_or(host::defaultRoot());
  session.options.state = host::defaultState();
  if (session.options.root.empty())
    return wrongUse("no device root: give --root DIR or set QUORVANTIS_ROOT");
  return Done{};
}

}  // namespace

const std::string& Arguments::operator[](std::size_t index) const {
  static const std::string kNone;
  return index < words.size() ? words[index] : kNone;
}

std::optional<std::string> Arguments::value(std::string_view option) const {
  for (const auto& [name, value] : options)
    if (name == option) return value;
  return std::nullopt;
}

std::span<const Option> commonOptions() {
  return kCommonOptions;
}

Outcome<Line> readLine(const std::vector<std::string>& words, Session& session) {
  auto sorted = sortWords(words);
  if (!sorted) return sorted.error();
  Line line{.arguments = std::move(*sorted)};
  std::vector<std::string>& rest = line.arguments.words;
  const Group* group = groupNamed(line.arguments[0]);
  line.command =
      group ? commandNamed(group->name, line.arguments[1]) : commandNamed("", line.arguments[0]);
  if (line.arguments.has(kVersion)) return Line{.text = "quorvantis " QUORVANTIS_VERSION};
  if (line.arguments.has(kHelp)) {
    if (line.command) return Line{.text = helpOf(*line.command)};
    if (group && rest.size() == 1) return Line{.text = helpOf(*group)};
    if (rest.empty()) return Line{.text = help()};
  }
  if (!line.command) return noCommand(rest, group);
  rest.erase(rest.begin(), rest.begin() + (group ? 2 : 1));
  if (const auto checked = checkArguments(*line.command, line.arguments); !checked)
    return checked.error();
  if (const auto taken = takeCommonOptions(line.arguments, session); !taken) return taken.error();
  return line;
}

}  // namespace cli
