#include "apps/cli/argument.h"
#include "apps/cli/color_choice.h"
#include "apps/cli/commands/commands.h"
#include "apps/cli/number_text.h"
#include "apps/cli/page_on_show.h"
#include "apps/cli/row_lookup.h"
#include "apps/cli/store_change.h"
#include "platform/foundation/text.h"

namespace cli {
namespace {

using preferences::PSSpecifier;

Failure badValue(const PSSpecifier& row, const std::string& what) {
  return {ExitCode::WrongUse, "\"" + row.identifier() + "\" " + what};
}

Outcome<plist::Value> choiceNamed(host::SettingsApplication& application, PSSpecifier& row,
                                  const std::string& text) {
  const auto choices = application.choices(row.identifier());
  if (!choices) return failureOf(choices.error());
  for (const plist::Value& value : choices->values)
    if (plainTextOf(value) == text) return value;
  return badValue(row, "has no choice \"" + text + "\"; quorvantis choices " + row.identifier() +
                           " lists them");
}

// The value that the text stands for in a row of this kind.
Outcome<plist::Value> valueFor(host::SettingsApplication& application, PSSpecifier& row,
                               const std::string& text) {
  if (preferences::hasChoices(row.cellType())) return choiceNamed(application, row, text);
  if (dynamic_cast<uikit::Switch*>(row.control())) {
    if (text != "true" && text != "false") return badValue(row, "takes true or false");
    return plist::Value(text == "true");
  }
  if (dynamic_cast<uikit::Slider*>(row.control())) {
    const auto number = numberIn<double>(text);
    if (!number) return badValue(row, "takes a number");
    return plist::Value(*number);
  }
  if (!foundation::isUtf8(text)) return badValue(row, "takes text in UTF-8");
  return plist::Value(text);
}

Outcome<Done> set(Session& session, const std::string& key, const std::string& text) {
  const auto found = findRow(session.device().environment().bundle, key);
  if (!found) return found.error();
  auto page = PageOnShow::open(session, found->page->name);
  if (!page) return page.error();
  host::SettingsApplication& application = (*page)->application();
  const auto row = application.row(std::string(found->id()));
  if (!row) return failureOf(row.error());
  if (leadsToColorPicker(found->text("detail")))
    return changeStore(session, [&] { return chooseColor(application, **row, text); });
  if (!host::isUsable(**row)) return failureOf(application.set((*row)->identifier(), {}).error());
  const auto value = valueFor(application, **row, text);
  if (!value) return value.error();
  return changeStore(session, [&]() -> Outcome<Done> {
    const auto changed = application.set((*row)->identifier(), *value);
    if (!changed) return failureOf(changed.error());
    return Done{};
  });
}

}  // namespace

Run declareSet(CLI::App& app, Session& session) {
  auto key = addArgument(app, "KEY", "The row's preference key");
  auto value = std::make_shared<std::string>();
  app.add_option("VALUE", *value,
                 "true or false, a number, a text, #RRGGBB, or one that `choices` lists")
      ->required()
      ->type_name("");
  return [&session, key, value] { return set(session, *key, *value); };
}

}  // namespace cli
