#include <cerrno>

#include "apps/cli/argument.h"
#include "apps/cli/commands/commands.h"
#include "apps/cli/trigger.h"

namespace cli {
namespace {

Outcome<Done> remove(Session& session, const std::string& text) {
  const auto trigger = findTrigger(text);
  if (!trigger) return trigger.error();
  const auto deleted = prefs::deleteProfile(session.device().environment(), trigger->path);
  if (deleted) return Done{};
  const bool missing = deleted.error().code == ENOENT;
  return failureOf(*trigger, {missing, deleted.error().message()});
}

}  // namespace

Run declareProfileDelete(CLI::App& app, Session& session) {
  auto trigger = addArgument(app, "TRIGGER", "The trigger, by its ID or its title");
  return [&session, trigger] { return remove(session, *trigger); };
}

}  // namespace cli
