#include "apps/cli/argument.h"
#include "apps/cli/color_choice.h"
#include "apps/cli/columns.h"
#include "apps/cli/commands/commands.h"
#include "apps/cli/page_on_show.h"
#include "apps/cli/row_lookup.h"

namespace cli {
namespace {

using Choices = host::SettingsApplication::Choices;

Choices colorChoices() {
  Choices colors;
  for (const auto& [name, hex] : presetColors()) {
    colors.values.emplace_back(hex);
    colors.titles.emplace_back(name);
  }
  return colors;
}

Outcome<Choices> choicesOf(Session& session, const FoundRow& row) {
  if (leadsToColorPicker(row.text("detail"))) return colorChoices();
  auto page = PageOnShow::open(session, row.page->name);
  if (!page) return page.error();
  auto choices = (*page)->application().choices(std::string(row.id()));
  if (!choices) return failureOf(choices.error());
  return std::move(*choices);
}

Outcome<Done> choices(Session& session, const std::string& key) {
  const auto row = findRow(session.device().environment().bundle, key);
  if (!row) return row.error();
  const auto choices = choicesOf(session, *row);
  if (!choices) return choices.error();
  if (choices->values.empty())
    if (const auto why = session.takeWarnings(); !why.empty())
      return Failure{ExitCode::Failed, why.front()};
  Json::array_t document;
  Columns columns;
  for (std::size_t i = 0; i < choices->values.size(); ++i) {
    document.push_back({{"value", toJson(choices->values[i])}, {"title", choices->titles[i]}});
    columns.add({plainTextOf(choices->values[i]), choices->titles[i]});
  }
  if (session.json)
    session.printJson(Json(std::move(document)));
  else
    for (const std::string& line : columns.lines()) session.print(line);
  return session.storeWorked();
}

}  // namespace

Run declareChoices(CLI::App& app, Session& session) {
  auto key = addArgument(app, "KEY", "The row's preference key");
  return [&session, key] { return choices(session, *key); };
}

}  // namespace cli
