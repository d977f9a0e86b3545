#include <algorithm>
#include <map>

#include "apps/cli/argument.h"
#include "apps/cli/commands/commands.h"
#include "apps/cli/number_text.h"
#include "platform/foundation/text.h"
#include "prefs/core/names.h"

namespace cli {
namespace {

Failure noKey(const std::string& key) {
  return {ExitCode::NotFound, "no key \"" + key + "\""};
}

Outcome<Done> readOne(Session& session, const std::string& key) {
  const auto value = session.device().preferences().copyAppValue(key, prefs::kDomain);
  if (const auto worked = session.storeWorked(); !worked) return worked;
  if (!value) return noKey(key);
  session.print(session.json ? textOf(toJson(*value)) : plainTextOf(*value));
  return Done{};
}

Outcome<Done> readAll(Session& session) {
  foundation::Preferences& preferences = session.device().preferences();
  plist::Dictionary domain =
      preferences.copyMultiple(preferences.copyKeyList(prefs::kDomain), prefs::kDomain);
  if (session.json)
    session.printJson(toJson(std::move(domain)));
  else
    for (const auto& [key, value] : domain) session.print(key + " = " + textOf(toJson(value)));
  return session.storeWorked();
}

Outcome<Done> change(Session& session, const std::string& key, const plist::Value& value) {
  foundation::Preferences& preferences = session.device().preferences();
  const auto stored = preferences.setAppValue(key, value, prefs::kDomain);
  if (!stored) return Failure{ExitCode::Failed, stored.error().message()};
  session.warnings = session.device().takeProblems();
  const auto flushed = preferences.appSynchronize(prefs::kDomain);
  if (!flushed) return Failure{ExitCode::Failed, flushed.error().message()};
  return Done{};
}

Outcome<Done> remove(Session& session, const std::string& key) {
  const bool there = session.device().preferences().copyAppValue(key, prefs::kDomain).has_value();
  if (const auto worked = session.storeWorked(); !worked) return worked;
  if (!there) return noKey(key);
  return change(session, key, {});
}

enum class Kind { Text, Integer, Real, Boolean };

std::optional<plist::Value> booleanIn(std::string text) {
  std::ranges::transform(text, text.begin(),
                         [](char c) { return c >= 'A' && c <= 'Z' ? c + 32 : c; });
  if (text == "true" || text == "yes" || text == "1") return plist::Value(true);
  if (text == "false" || text == "no" || text == "0") return plist::Value(false);
  return std::nullopt;
}

std::optional<plist::Value> valueOf(Kind kind, const std::string& text) {
  if (kind == Kind::Boolean) return booleanIn(text);
  if (kind == Kind::Integer)
    if (auto integer = numberIn<std::int64_t>(text)) return plist::Value(*integer);
  if (kind == Kind::Real)
    if (auto real = numberIn<double>(text)) return plist::Value(*real);
  if (kind == Kind::Text && foundation::isUtf8(text)) return plist::Value(text);
  return std::nullopt;
}

Outcome<Done> write(Session& session, const std::string& key, Kind kind, const std::string& text) {
  constexpr const char* kWanted[] = {"text in UTF-8", "an integer of 64 bits", "a real number",
                                     "a boolean"};
  if (!foundation::isUtf8(key)) return Failure{ExitCode::WrongUse, "the key is no UTF-8"};
  const auto value = valueOf(kind, text);
  if (!value)
    return Failure{ExitCode::WrongUse,
                   "\"" + text + "\" is not " + kWanted[static_cast<int>(kind)]};
  return change(session, key, *value);
}

}  // namespace

Run declareDefaultsRead(CLI::App& app, Session& session) {
  auto key = addArgument(app, "KEY", "Only this key's value");
  app.get_option("KEY")->required(false);
  return [&session, key] { return key->empty() ? readAll(session) : readOne(session, *key); };
}

Run declareDefaultsWrite(CLI::App& app, Session& session) {
  auto key = addArgument(app, "KEY", "The key to store under");
  auto text = std::make_shared<std::string>();
  app.add_option("VALUE", *text, "The value, text unless its kind is named")
      ->required()
      ->type_name("");
  auto kinds = std::make_shared<std::map<Kind, bool>>();
  const auto addKind = [&](const char* name, Kind kind, const char* description) {
    return app.add_flag(name, (*kinds)[kind], description);
  };
  addKind("--int", Kind::Integer, "The value is an integer of 64 bits (also -int)");
  addKind("--float", Kind::Real, "The value is a real number (also -float)");
  addKind("--bool", Kind::Boolean, "The value is true or false (also -bool)");
  addKind("--string", Kind::Text, "The value is text (also -string)");
  return [&session, key, text, kinds]() -> Outcome<Done> {
    std::vector<Kind> named;
    for (auto [kind, given] : *kinds)
      if (given) named.push_back(kind);
    if (named.size() > 1) return Failure{ExitCode::WrongUse, "more than one kind is named"};
    return write(session, *key, named.empty() ? Kind::Text : named.front(), *text);
  };
}

Run declareDefaultsDelete(CLI::App& app, Session& session) {
  auto key = addArgument(app, "KEY", "The key to remove");
  return [&session, key] { return remove(session, *key); };
}

}  // namespace cli
