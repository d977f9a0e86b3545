#include "apps/cli/argument.h"
#include "apps/cli/commands/commands.h"
#include "apps/cli/trigger.h"
#include "prefs/core/preference_store.h"
#include "prefs/profiles/profile_snapshot.h"

namespace cli {
namespace {

Outcome<Done> show(Session& session, const std::string& trigger) {
  const auto profile = readProfile(session.device().environment(), trigger);
  if (!profile) return profile.error();
  if (session.json)
    session.printJson(toJson(*profile));
  else
    for (const auto& [key, value] : *profile) session.print(key + " = " + textOf(toJson(value)));
  return Done{};
}

void printDifferences(Session& session, const std::vector<prefs::Difference>& differences) {
  const auto json = [](const std::optional<plist::Value>& value) {
    return value ? toJson(*value) : Json();
  };
  Json::array_t document;
  for (const auto& [key, from, to] : differences) {
    if (session.json)
      document.push_back({{"key", key}, {"from", json(from)}, {"to", json(to)}});
    else
      session.print(key + ": " + textOf(json(from)) + " -> " + textOf(json(to)));
  }
  if (session.json) session.printJson(Json(std::move(document)));
}

// Against the settings as they are now, or against another profile.
Outcome<Done> diff(Session& session, const std::string& trigger, const std::string& other) {
  const preferences::Environment& environment = session.device().environment();
  const auto profile = readProfile(environment, trigger);
  if (!profile) return profile.error();
  if (!other.empty()) {
    const auto second = readProfile(environment, other);
    if (!second) return second.error();
    printDifferences(session, prefs::differences(*profile, *second));
    return Done{};
  }
  const plist::Dictionary domain = prefs::wholeDomainRead(environment.preferences);
  printDifferences(session, prefs::differences(domain, prefs::domainAfterLoad(*profile, domain)));
  return session.storeWorked();
}

}  // namespace

Run declareProfileShow(CLI::App& app, Session& session) {
  auto trigger = addArgument(app, "TRIGGER", "The trigger, by its ID or its title");
  return [&session, trigger] { return show(session, *trigger); };
}

Run declareProfileDiff(CLI::App& app, Session& session) {
  auto trigger = addArgument(app, "TRIGGER", "The trigger, by its ID or its title");
  auto other = addArgument(app, "TRIGGER2", "Another one; without it, what a load would change");
  app.get_option("TRIGGER2")->required(false);
  return [&session, trigger, other] { return diff(session, *trigger, *other); };
}

}  // namespace cli
