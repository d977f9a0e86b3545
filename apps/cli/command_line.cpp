#include "apps/cli/command_line.h"

#include <algorithm>

#include "apps/cli/completion.h"
#include "host/closest.h"

namespace cli {
namespace {

constexpr Option kCommonOptions[] = {
    {kRoot.data(),
     "The device root, a folder; else QUORVANTIS_ROOT, else ~/.local/share/quorvantis", "DIR",
     Words::Files},
    {kContacts.data(), "Another folder of vCards", "DIR", Words::Files},
    {"--json", "Print one JSON document"},
    {kVersion.data(), "Print the version; short: -V"},
    {kHelp.data(), "Print this help; short: -h"},
};

// Not listed by the help.
constexpr Command kCompleteCommand{.name = kComplete,
                                   .description = "Print what the word being typed can be",
                                   .run = completeLine,
                                   .example = "__complete set wifi \"\""};

Failure wrongUse(std::string reason) {
  return {ExitCode::WrongUse, std::move(reason)};
}

Failure unexpected(const std::string& word) {
  return wrongUse("unexpected argument \"" + word + "\"");
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

Failure noOption(std::string_view name) {
  std::vector<std::string> known;
  for (const Option& option : kCommonOptions) known.emplace_back(option.name);
  for (const Command& command : commands())
    for (const Option& option : command.options)
      if (option.name) known.emplace_back(option.name);
  return wrongUse("no option \"" + std::string(name) +
                  "\"; a text that begins with \"-\" follows after --" +
                  host::didYouMean(name == "-v" ? kVersion : name, known));
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
    const Option* option = anyOptionNamed(name);
    if (!option) return noOption(name);
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

Failure noCommand(const std::vector<std::string>& words, const Group* group) {
  if (words.empty()) return wrongUse("no command is given; quorvantis --help lists them");
  if (group && words.size() == 1)
    return wrongUse("\"" + words[0] + "\" needs a command; quorvantis " + words[0] +
                    " --help lists them");
  std::vector<std::string> known;
  for (const Command& command : commands())
    if (!group || command.group == std::string_view(group->name))
      known.emplace_back(!group && *command.group ? command.group : command.name);
  const std::string& wrong = words[group ? 1 : 0];
  if (!group && !isOption(wrong))
    for (const Option& option : kCommonOptions) known.emplace_back(option.name);
  const std::string first = group ? words[0] + " " : "";
  return wrongUse("no command \"" + first + wrong + "\"; quorvantis " + first +
                  "--help lists them" + host::didYouMean(wrong, known));
}

std::string requiredMessage(const Command& command, const Argument& argument,
                            std::string_view before) {
  const std::string message = std::string(argument.name) + " is required";
  if (argument.words != Words::Values) return message + "; try quorvantis " + command.example;
  const std::size_t equals = before.find('=');
  if (equals != std::string_view::npos)
    return message + "; did you mean " + command.name + " " +
           std::string(before.substr(0, equals)) + " \"" + std::string(before.substr(equals + 1)) +
           "\"?";
  return message + "; in a shell, a value with blanks or # has to stand in quotes";
}

// How many words the command's arguments take, or why these can't be its arguments.
Outcome<std::size_t> takeOnce(const Command& command, std::span<const std::string> words) {
  std::size_t taken = 0;
  for (const Argument& argument : command.arguments) {
    if (!argument.name) break;
    const bool needed =
        argument.need == Argument::Required || argument.need == Argument::OnceOrMore;
    if (taken == words.size() && needed)
      return wrongUse(requiredMessage(command, argument, taken > 0 ? words[taken - 1] : ""));
    const bool many = argument.need == Argument::Repeated || argument.need == Argument::OnceOrMore;
    const std::size_t end = many ? words.size() : std::min(taken + 1, words.size());
    for (; taken < end; ++taken)
      if (words[taken].empty() && !argument.mayBeEmpty)
        return wrongUse(std::string(argument.name) + " must not be empty");
  }
  return taken;
}

Outcome<Done> checkArguments(const Command& command, const Arguments& given) {
  std::span<const std::string> words = given.words;
  do {
    const auto taken = takeOnce(command, words);
    if (!taken) return taken.error();
    words = words.subspan(*taken);
  } while (command.argumentsMayRepeat && !words.empty());
  if (!words.empty()) return unexpected(words[0]);
  for (const auto& [name, value] : given.options)
    if (!optionNamed(kCommonOptions, name) && !optionNamed(command.options, name))
      return wrongUse(nameOf(command) + " has no option " + std::string(name));
  return Done{};
}

// What only prints texts of the program itself needs no device.
bool needsRoot(const Command& command) {
  return command.run != showHelp && command.run != printCompletions;
}

Outcome<Done> takeCommonOptions(const Command& command, const Arguments& arguments,
                                Session& session) {
  session.json = arguments.has("--json");
  session.options.contacts = arguments.value(kContacts);
  session.options.root = arguments.value(kRoot).value_or(host::defaultRoot());
  session.options.state = host::defaultState();
  if (session.options.root.empty() && needsRoot(command))
    return wrongUse("no device root: give --root DIR or set QUORVANTIS_ROOT");
  return Done{};
}

}  // namespace

const std::string& Arguments::operator[](std::size_t index) const {
  static const std::string kNone;
  return index < words.size() ? words[index] : kNone;
}

host::Existing Arguments::existing() const {
  return has("--overwrite") ? host::Existing::Overwrite : host::Existing::Keep;
}

std::optional<std::string> Arguments::value(std::string_view option) const {
  const auto given = std::find_if(options.rbegin(), options.rend(),
                                  [&](const auto& each) { return each.first == option; });
  return given == options.rend() ? std::nullopt : std::optional(given->second);
}

const Option* anyOptionNamed(std::string_view name) {
  if (name == "-h") name = kHelp;
  if (name == "-V") name = kVersion;
  if (const Option* common = optionNamed(kCommonOptions, name)) return common;
  for (const Command& command : commands())
    if (const Option* own = optionNamed(command.options, name)) return own;
  return nullptr;
}

std::string nameOf(const Command& command) {
  return (*command.group ? std::string(command.group) + " " : "") + command.name;
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

std::span<const Option> commonOptions() {
  return kCommonOptions;
}

Outcome<std::string> helpOn(const std::vector<std::string>& words) {
  if (words.empty()) return help();
  const Group* group = groupNamed(words[0]);
  if (group && words.size() == 1) return helpOf(*group);
  const Command* command = commandNamed(group ? group->name : "", words[group ? 1 : 0]);
  if (command) return helpOf(*command);
  return noCommand(words, group);
}

Outcome<Line> readLine(const std::vector<std::string>& words, Session& session) {
  if (!words.empty() && words[0] == kComplete)
    return Line{&kCompleteCommand, {.words = {words.begin() + 1, words.end()}, .options = {}}};
  auto sorted = sortWords(words);
  if (!sorted) return sorted.error();
  Line line{.arguments = std::move(*sorted)};
  std::vector<std::string>& rest = line.arguments.words;
  const Group* group = groupNamed(line.arguments[0]);
  line.command = commandNamed(group ? group->name : "", line.arguments[group ? 1 : 0]);
  if (line.arguments.has(kVersion)) return Line{.text = "quorvantis " QUORVANTIS_VERSION};
  if (line.arguments.has(kHelp)) {
    auto text = helpOn(rest);
    if (!text) return text.error();
    return Line{.text = std::move(*text)};
  }
  if (!line.command) return noCommand(rest, group);
  rest.erase(rest.begin(), rest.begin() + (group ? 2 : 1));
  if (const auto checked = checkArguments(*line.command, line.arguments); !checked)
    return checked.error();
  if (const auto taken = takeCommonOptions(*line.command, line.arguments, session); !taken)
    return taken.error();
  return line;
}

Outcome<Done> showHelp(Session& session, const Arguments& arguments) {
  const std::vector<std::string>& words = arguments.words;
  const auto text = helpOn(words);
  if (!text) return text.error();
  const std::size_t taken = groupNamed(arguments[0]) ? 2 : 1;
  if (words.size() > taken) return unexpected(words[taken]);
  session.print(*text);
  return Done{};
}

}  // namespace cli
