#include "apps/cli/completion.h"

#include <algorithm>

#include "apps/cli/command_line.h"
#include "host/closest.h"
#include "host/recovery.h"
#include "host/setting_lookup.h"
#include "host/text.h"

namespace cli {
namespace {

constexpr char kFiles[] = ":files";

struct Candidate {
  std::string text, meaning{};
};
using Candidates = std::vector<Candidate>;

// The words before the one that is being typed.
struct Before {
  std::vector<std::string> words;        // without options
  std::vector<const Option*> options;    // that were given
  const Option* withoutValue = nullptr;  // the one whose value is being typed
  std::string_view typed{};              // of that word so far, in lower case
  bool ended = false;                    // by "--"
};

void setRootOrContacts(const Option& option, const std::string& value, Session& session) {
  if (option.name == kRoot) session.options.root = value;
  if (option.name == kContacts) session.options.contacts = value;
}

Before sortBefore(std::span<const std::string> line, Session& session) {
  Before before;
  for (const std::string& word : line) {
    if (const Option* option = std::exchange(before.withoutValue, nullptr)) {
      setRootOrContacts(*option, word, session);
      continue;
    }
    const std::size_t equals = word.find('=');
    const Option* option = before.ended ? nullptr : anyOptionNamed(word.substr(0, equals));
    if (option) before.options.push_back(option);
    if (option && option->value && equals == std::string::npos) before.withoutValue = option;
    if (option && option->value && equals != std::string::npos)
      setRootOrContacts(*option, word.substr(equals + 1), session);
    if (!option && word == "--" && !before.ended)
      before.ended = true;
    else if (!option)
      before.words.push_back(word);
  }
  return before;
}

// "--page=" of "--page=So", whose value is being typed.
std::string takeAttachedOption(const std::string& word, Before& before) {
  const std::size_t equals = word.find('=');
  if (before.ended || before.withoutValue || equals == std::string::npos) return {};
  const Option* option = anyOptionNamed(word.substr(0, equals));
  if (!option || !option->value) return {};
  before.withoutValue = option;
  return word.substr(0, equals + 1);
}

Candidates commandsAfter(std::span<const std::string> words) {
  Candidates found;
  if (words.size() > 1) return found;
  if (words.empty())
    for (const Group& group : groups()) found.push_back({group.name, group.description});
  const std::string_view group = words.empty() ? "" : std::string_view(words[0]);
  for (const Command& command : commands())
    if (command.group == group) found.push_back({command.name, command.description});
  return found;
}

Candidates optionsOf(const Command* command) {
  Candidates found;
  const auto add = [&](std::span<const Option> options) {
    for (const Option& option : options)
      if (option.name) found.push_back({option.name, option.description});
  };
  if (command) add(command->options);
  add(commonOptions());
  return found;
}

// A choice is offered by its title, unless another one has that too, or a color's digits are typed.
Candidates choicesOf(const preferences::Choices& choices, std::string_view typed) {
  Candidates found;
  for (std::size_t i = 0; i < choices.values.size(); ++i) {
    const std::string value = host::namingText(choices.values[i]).value_or("");
    const std::string& title = choices.titles[i];
    const bool unique = !typed.starts_with('#') && host::indexNamed(title, choices.titles) == i &&
                        std::ranges::count(choices.titles, title) == 1;
    found.push_back(unique && !title.empty() ? Candidate{title, value} : Candidate{value, title});
  }
  return found;
}

Candidates valuesOf(Session& session, const Before& before) {
  const std::string& key = before.words.back();
  host::Settings settings = session.settings();
  if (const auto choices = settings.choices(key)) return choicesOf(**choices, before.typed);
  const auto setting = settings.describe(key);
  if (setting && std::holds_alternative<host::SwitchView>(setting->row.control))
    return {{"on"}, {"off"}};
  return {};
}

Candidates keysOf(Session& session) {
  Candidates found;
  for (const auto& [key, label, page] : host::labeledKeys(session.device().environment().bundle))
    found.push_back({key, label});
  return found;
}

Candidates pagesOf(Session& session) {
  Candidates found;
  const preferences::Bundle& bundle = session.device().environment().bundle;
  for (const preferences::PageClass& page : bundle.pages) {
    const std::string name = host::nameOf(bundle, page);
    found.push_back({std::string(page.name), name});
    if (!name.empty()) found.push_back({name, std::string(page.name)});
  }
  return found;
}

// A trigger as "20", "Battery 20%" and, once the "%" is typed, "20%".
void addTrigger(const std::string& id, const std::string& title, const std::string& longTitle,
                const Before& before, Candidates& found) {
  found.push_back({id, longTitle});
  if (before.typed.ends_with('%') && title.ends_with('%')) found.push_back({id + "%", longTitle});
  found.push_back({title, id});
}

Candidates allTriggers(const Before& before) {
  Candidates found;
  for (const host::Trigger& trigger : host::triggers())
    addTrigger(trigger.profileID, trigger.title, trigger.title, before, found);
  return found;
}

Candidates savedProfiles(Session& session, const Before& before) {
  Candidates found;
  const auto profiles = host::Profiles(session.device().environment()).list();
  if (!profiles) return found;
  for (const host::SavedProfile& profile : *profiles)
    addTrigger(profile.trigger, profile.title, profile.longTitle(), before, found);
  return found;
}

Candidates snapshotsOf(Session& session) {
  Candidates found;
  const auto backups = session.backups();
  if (!backups) return found;
  const auto list = host::Recovery(session.device().environment(), **backups).snapshots();
  if (!list) return found;
  for (const host::Recovery::Entry& entry : list->entries)
    found.push_back({std::to_string(entry.number), host::beforeWords(entry.before)});
  return found;
}

bool isGiven(std::string_view option, const Before& before) {
  return std::ranges::any_of(before.options,
                             [&](const Option* given) { return given->name == option; });
}

Candidates candidatesFor(Session& session, Words words, const Before& before) {
  switch (words) {
    case Words::Any:
      return {};
    case Words::Files:
      return {{kFiles}};
    case Words::Commands:
      return commandsAfter(std::span(before.words).subspan(1));
    case Words::Keys:
      return keysOf(session);
    case Words::WatchedKeys:
      return isGiven(kValues, before) ? keysOf(session) : Candidates();
    case Words::Values:
      return valuesOf(session, before);
    case Words::Pages:
      return pagesOf(session);
    case Words::Triggers:
      return allTriggers(before);
    case Words::SavedProfiles:
      return savedProfiles(session, before);
    case Words::Snapshots:
      return snapshotsOf(session);
    case Words::Idioms:
      return {{"phone"}, {"tablet"}};
    case Words::Shells:
      return {{"bash"}, {"zsh"}, {"fish"}};
  }
  return {};
}

// Which argument of the command comes after so many words.
const Argument* argumentAfter(const Command& command, std::size_t words) {
  const std::size_t count = command.arguments[1].name ? 2 : command.arguments[0].name ? 1 : 0;
  if (count == 0) return nullptr;
  const Argument& last = command.arguments[count - 1];
  if (words < count) return &command.arguments[words];
  if (command.argumentsMayRepeat) return &command.arguments[words % count];
  const bool many = last.need == Argument::Repeated || last.need == Argument::OnceOrMore;
  return many ? &last : nullptr;
}

Candidates candidatesAfter(Session& session, const Before& before) {
  if (before.withoutValue) return candidatesFor(session, before.withoutValue->words, before);
  const std::vector<std::string>& words = before.words;
  const bool inGroup = !words.empty() && groupNamed(words[0]);
  const std::size_t taken = inGroup ? 2 : 1;
  const Command* command = nullptr;
  if (words.size() >= taken) command = commandNamed(inGroup ? words[0] : "", words[taken - 1]);
  if (!before.ended && before.typed.starts_with('-')) return optionsOf(command);
  if (words.size() < taken) return commandsAfter(words);
  const Argument* argument = command ? argumentAfter(*command, words.size() - taken) : nullptr;
  return argument ? candidatesFor(session, argument->words, before) : Candidates();
}

}  // namespace

Outcome<Done> completeLine(Session& session, const Arguments& arguments) {
  session.options.root = host::defaultRoot();
  session.options.state = host::defaultState();
  std::span<const std::string> line = arguments.words;
  if (line.empty()) return Done{};
  const std::string& word = line.back();
  Before before = sortBefore(line.first(line.size() - 1), session);
  const std::string attached = takeAttachedOption(word, before);
  const std::string typed = host::lowerCase(word.substr(attached.size()));
  before.typed = typed;
  const auto matches = [&](const std::string& text) {
    return text == kFiles || host::lowerCase(text).starts_with(typed);
  };
  for (const auto& [text, meaning] : candidatesAfter(session, before)) {
    if (text.empty() || !matches(text)) continue;
    const std::string option = text == kFiles ? std::string() : attached;
    session.print(option + host::oneLine(text) + "\t" + host::oneLine(meaning));
  }
  session.takeWarnings();
  return Done{};
}

}  // namespace cli
