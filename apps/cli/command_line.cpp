#include "apps/cli/command_line.h"

#include <algorithm>

#include "apps/cli/cli11.h"
#include "apps/cli/commands/commands.h"
#include "apps/cli/split_arguments.h"

namespace cli {
namespace {

constexpr const char* kAbout = "Quorvantis settings from the command line.";

// A group of commands has a name of its own, as in "profile list".
struct Group {
  std::string_view name;
  const char* description;
};
constexpr Group kGroups[] = {
    {"profile", "Work with saved profiles"},
    {"defaults", "Work with the stored values themselves, as another process would"},
};

const Group* groupNamed(std::string_view name) {
  const auto* found = std::ranges::find(kGroups, name, &Group::name);
  return found == std::end(kGroups) ? nullptr : found;
}

// What a line begins with: a command, or at least the name of a group.
struct Beginning {
  const Command* command = nullptr;
  std::size_t words = 0;
};

Beginning beginningOf(const std::vector<std::string>& words) {
  const auto word = [&](std::size_t i) { return i < words.size() ? words[i] : ""; };
  const std::size_t names = groupNamed(word(0)) ? 2 : 1;
  for (const Command& command : commands())
    if (word(0) == (names == 2 ? command.group : command.name) &&
        (names == 1 ? !*command.group : word(1) == command.name))
      return {&command, names};
  return {nullptr, names - 1};
}

std::string refuseEmpty(const std::string& text) {
  return text.empty() ? "names no folder" : "";
}

void addCommonOptions(CLI::App& app, Session& session) {
  app.add_option("--root", session.options.root, "The device root, a folder")
      ->type_name("DIR")
      ->check(refuseEmpty);
  app.add_option("--contacts", session.options.contacts, "Another folder of vCards")
      ->type_name("DIR")
      ->check(refuseEmpty);
  app.add_flag("--json", session.json, "Print one JSON document");
  app.set_version_flag("--version", "quorvantis " QUORVANTIS_VERSION);
}

CLI::App* groupOf(const Command& command, CLI::App& app) {
  if (!*command.group) return &app;
  const auto made =
      app.get_subcommands([&](CLI::App* each) { return each->get_name() == command.group; });
  if (!made.empty()) return made.front();
  return app.add_subcommand(command.group, groupNamed(command.group)->description)
      ->fallthrough()
      ->require_subcommand(1);
}

Run declare(const Command& command, CLI::App& app, Session& session) {
  CLI::App* own = groupOf(command, app)->add_subcommand(command.name, command.description);
  return command.declare(*own->fallthrough(), session);
}

// As CLI11 takes it: the last word first.
std::vector<std::string> reversed(const Beginning& beginning, const SplitArguments& words) {
  const auto arguments = words.others.begin() + static_cast<std::ptrdiff_t>(beginning.words);
  std::vector<std::string> line(words.others.begin(), arguments);
  line.insert(line.end(), words.options.begin(), words.options.end());
  line.emplace_back("--");
  line.insert(line.end(), arguments, words.others.end());
  return {line.rbegin(), line.rend()};
}

Failure wrongUse(std::string reason) {
  return {ExitCode::WrongUse, std::move(reason)};
}

Failure noCommand(const SplitArguments& words) {
  if (words.others.empty()) return wrongUse("no command is given; quorvantis --help lists them");
  std::string name = words.others[0], help = "quorvantis --help";
  if (groupNamed(name)) {
    help = "quorvantis " + name + " --help";
    name += words.others.size() > 1 ? " " + words.others[1] : " …";
  }
  return wrongUse("no command \"" + name + "\"; " + help + " lists them");
}

std::string helpOf(const CLI::App& app) {
  std::string help = app.help();
  help.erase(help.find_last_not_of('\n') + 1);
  return help;
}

Outcome<Done> checkOptions(Session& session) {
  if (session.options.root.empty()) session.options.root = host::defaultRoot();
  if (session.options.root.empty())
    return wrongUse("no device root: give --root DIR or set QUORVANTIS_ROOT");
  return Done{};
}

Outcome<Run> readWithLibrary(const SplitArguments& words, Session& session) {
  const Beginning beginning = beginningOf(words.others);
  CLI::App app(kAbout, "quorvantis");
  addCommonOptions(app, session);
  Run run;
  if (beginning.command)
    run = declare(*beginning.command, app, session);
  else
    for (const Command& each : commands()) declare(each, app, session);
  try {
    app.parse(reversed(beginning, words));
  } catch (const CLI::CallForVersion& version) {
    session.print(version.what());
    return Run([] { return Done{}; });
  } catch (const CLI::CallForHelp&) {
    session.print(helpOf(app));
    return Run([] { return Done{}; });
  } catch (const CLI::Error& error) {
    if (!beginning.command) return noCommand(words);
    return wrongUse(error.what());
  }
  if (!beginning.command) return noCommand(words);
  return run;
}

// Whether that is all there is.
bool readCommonOptions(const std::vector<std::string>& options, Session& session) {
  for (auto option = options.begin(); option != options.end(); ++option) {
    if (*option == "--json")
      session.json = true;
    else if (*option == "--root" && !option[1].empty())
      session.options.root = *++option;
    else if (*option == "--contacts" && !option[1].empty())
      session.options.contacts = *++option;
    else
      return false;
  }
  return true;
}

// What scripts run in loops, `get KEY`, is read without the library, which takes longer to set up
// than the command itself.
std::optional<Run> readQuickly(const SplitArguments& words, Session& session) {
  const auto& others = words.others;
  if (others.size() != 2 || others[0] != "get" || others[1].empty()) return std::nullopt;
  if (!readCommonOptions(words.options, session)) return std::nullopt;
  return Run([&session, key = others[1]] { return get(session, key); });
}

}  // namespace

Outcome<Run> readCommandLine(const std::vector<std::string>& arguments, Session& session) {
  const SplitArguments words = splitArguments(arguments);
  if (!words.unfinished.empty()) return wrongUse(words.unfinished + " needs a value");
  Outcome<Run> run = Run();
  if (auto quick = readQuickly(words, session))
    run = std::move(*quick);
  else
    run = readWithLibrary(words, session);
  if (!run) return run;
  const auto checked = checkOptions(session);
  if (!checked) return checked.error();
  return run;
}

}  // namespace cli
