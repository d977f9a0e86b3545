#include "apps/cli/command.h"
#include "apps/cli/terminal.h"
#include "host/describe.h"
#include "host/text.h"

namespace cli {
namespace {

using drive::toJson;

std::string_view kindOf(const host::RowView& row) {
  if (row.kind == host::RowKind::Color) return "color";
  if (std::holds_alternative<host::SwitchView>(row.control)) return "switch";
  if (std::holds_alternative<host::SliderView>(row.control)) return "number";
  if (std::holds_alternative<host::SegmentsView>(row.control)) return "choice";
  if (std::holds_alternative<host::TextView>(row.control)) return "text";
  const auto* link = std::get_if<host::LinkView>(&row.control);
  return link && link->choices ? "choice" : "value";
}

Json choicesJson(const preferences::Choices& choices) {
  Json::array_t document;
  for (std::size_t i = 0; i < choices.values.size(); ++i)
    document.push_back({{"value", toJson(choices.values[i])}, {"title", choices.titles[i]}});
  return Json(std::move(document));
}

std::string choicesText(const preferences::Choices& choices) {
  std::string text;
  for (const std::string& title : choices.titles) text += (text.empty() ? "" : ", ") + title;
  return text;
}

// One object, and a column of its members.
Listing descriptionOf(const host::SettingView& setting, const std::string& kind,
                      const preferences::Choices* choices) {
  const host::RowView& row = setting.row;
  const std::string& key = row.key.empty() ? row.id : row.key;
  Listing listing = Listing::ofObject();
  listing.addMember("key", key, key);
  listing.addMember("label", row.label, row.label);
  listing.addMember("class", setting.pageClass, setting.pageClass);
  listing.addMember("page", setting.pageTitle, setting.pageTitle);
  listing.addMember("kind", kind, kind);
  if (const auto* slider = std::get_if<host::SliderView>(&row.control)) {
    listing.addMember("minimum", double{slider->minimum}, host::numberText(slider->minimum));
    listing.addMember("maximum", double{slider->maximum}, host::numberText(slider->maximum));
  }
  if (choices) listing.addMember("choices", choicesJson(*choices), choicesText(*choices));
  listing.addMember("default", toJson(row.standard), row.standardShown);
  listing.addMember("value", toJson(row.value), row.shown);
  if (row.whyNot) {
    const Json by = row.whyNot->by.empty() ? Json() : Json(row.whyNot->by);
    listing.document["dimmedBy"] = by;
    listing.columns.add({"state", row.whyNot->words()});
  }
  return listing;
}

host::Settings::Scope scopeOf(const Arguments& arguments) {
  return {arguments.words, arguments.value("--page").value_or(""), arguments.has("--all")};
}

// "Wi-Fi (Power Saving) and 2 more"
std::string andMore(const std::string& first, std::size_t count) {
  return count > 1 ? first + " and " + std::to_string(count - 1) + " more" : first;
}

std::string nameOf(Session& session, const std::string& key) {
  return host::labelOf(session.device().environment().bundle, key);
}

std::string nameOf(Session& session, const host::Settings::Scope& scope) {
  if (scope.all) return "all";
  if (!scope.page.empty()) return scope.page;
  return andMore(nameOf(session, scope.keys.front()), scope.keys.size());
}

Outcome<Done> checkScope(const host::Settings::Scope& scope) {
  const int given = !scope.keys.empty() + !scope.page.empty() + scope.all;
  if (given == 1) return Done{};
  return Failure{ExitCode::WrongUse, given == 0
                                         ? "KEY, --page CLASS or --all is required"
                                         : "only one of KEY, --page CLASS and --all can be given"};
}

}  // namespace

Outcome<Done> getValue(Session& session, const Arguments& arguments) {
  const auto value = session.settings().value(arguments[0]);
  if (!value) return failureOf(value.error());
  session.printValue(*value);
  return session.storeWorked();
}

Outcome<Done> setValues(Session& session, const Arguments& arguments) {
  std::vector<host::Settings::KeyAndText> texts;
  for (std::size_t i = 0; i + 1 < arguments.words.size(); i += 2)
    texts.emplace_back(arguments[i], arguments[i + 1]);
  const host::UserChange change(session.device().backups(),
                                "set " + andMore(nameOf(session, arguments[0]), texts.size()));
  auto stored = session.settings().set(texts);
  if (!stored) {
    Failure failure = failureOf(stored.error());
    if (failure.code == ExitCode::NotFound && texts.size() > 1)
      failure.reason += "; a value with blanks has to stand in quotes";
    return failure;
  }
  session.warnings = std::move(*stored);
  return Done{};
}

Outcome<Done> resetValues(Session& session, const Arguments& arguments) {
  const auto scope = scopeOf(arguments);
  if (const auto checked = checkScope(scope); !checked) return checked;
  host::Settings settings = session.settings();
  if (arguments.has("--dry-run")) {
    const auto changes = settings.changesOfReset(scope);
    if (!changes) return failureOf(changes.error());
    printDifferences(session, *changes);
    return Done{};
  }
  const host::UserChange change(session.device().backups(), "reset " + nameOf(session, scope),
                                host::Backups::Label::Fixed, "reset");
  auto stored = settings.reset(scope);
  if (!stored) return failureOf(stored.error());
  session.warnings = std::move(*stored);
  return Done{};
}

Outcome<Done> listSettings(Session& session, const Arguments& arguments) {
  const auto settings = session.settings().list();
  if (!settings) return failureOf(settings.error());
  Listing listing;
  for (const auto& [pageClass, title, row] : *settings) {
    const bool onlyChanged = arguments.has("--changed");
    if (onlyChanged && !row.changed) continue;
    listing.add({{"key", row.key},
                 {"value", toJson(row.value)},
                 {"default", toJson(row.standard)},
                 {"shown", row.shown},
                 {"class", pageClass},
                 {"label", row.label}},
                {row.key, row.shown, title + " > " + row.label},
                row.changed && !onlyChanged ? Style::Bold : Style::Plain);
  }
  session.print(listing, "no setting differs from its default");
  return session.storeWorked();
}

Outcome<Done> describeSetting(Session& session, const Arguments& arguments) {
  host::Settings settings = session.settings();
  const auto setting = settings.describe(arguments[0]);
  if (!setting) return failureOf(setting.error());
  const host::RowView& row = setting->row;
  const std::string kind(kindOf(row));
  const bool offers = kind == "choice" || kind == "color";
  const auto choices = offers ? settings.choices(arguments[0]) : host::ChoiceList();
  if (!choices) return failureOf(choices.error());
  session.print(descriptionOf(*setting, kind, choices->get()));
  return session.storeWorked();
}

Outcome<Done> listChoices(Session& session, const Arguments& arguments) {
  const auto choices = session.settings().choices(arguments[0]);
  if (!choices) return failureOf(choices.error());
  const auto& [values, titles] = **choices;
  if (values.empty())
    if (const auto why = session.takeWarnings(); !why.empty())
      return Failure{ExitCode::Failed, why.front().message()};
  Listing listing;
  for (std::size_t i = 0; i < values.size(); ++i)
    listing.add({{"value", toJson(values[i])}, {"title", titles[i]}},
                {drive::plainTextOf(values[i]), titles[i]});
  session.print(
      listing,
      "there is nothing to choose from; quorvantis where prints where files are looked for");
  if (session.json || terminalWidth() == 0) return session.storeWorked();
  const auto setting = session.settings().describe(arguments[0]);
  if (setting && setting->row.standardShown == host::kUnset)
    session.print("(quorvantis set " + arguments[0] + " None unsets it)");
  return session.storeWorked();
}

}  // namespace cli
