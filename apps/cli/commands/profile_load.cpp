#include "apps/cli/argument.h"
#include "apps/cli/commands/commands.h"
#include "apps/cli/page_on_show.h"
#include "apps/cli/store_change.h"
#include "apps/cli/trigger.h"
#include "prefs/profiles/ProfilesListController.h"

namespace cli {
namespace {

constexpr std::string_view kProfilePage = "ProfilesListController";

Outcome<Done> load(Session& session, const std::string& text) {
  const auto trigger = findTrigger(text);
  if (!trigger) return trigger.error();
  const auto profile = prefs::readProfile(session.device().environment(), trigger->path);
  if (!profile) return failureOf(*trigger, profile.error());
  auto shown = PageOnShow::open(session, kProfilePage);
  if (!shown) return shown.error();
  auto* page = dynamic_cast<prefs::ProfilesListController*>((*shown)->application().shownPage());
  if (!page) return Failure{ExitCode::Failed, "the bundle has no profile page"};
  return changeStore(session, [&]() -> Outcome<Done> {
    const auto loaded = page->loadProfileAtPath(trigger->path);
    if (!loaded) return failureOf(*trigger, loaded.error());
    return Done{};
  });
}

}  // namespace

Run declareProfileLoad(CLI::App& app, Session& session) {
  auto trigger = addArgument(app, "TRIGGER", "The trigger, by its ID or its title");
  return [&session, trigger] { return load(session, *trigger); };
}

}  // namespace cli
