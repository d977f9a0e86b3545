#include "apps/cli/page_on_show.h"

#include <limits>

namespace cli {
namespace {

// How long after it appears a page applies its rules.
constexpr auto kRulesApplied = std::chrono::milliseconds(100);

ExitCode exitCodeOf(host::RefusalCode code) {
  switch (code) {
    case host::RefusalCode::NoPage:
    case host::RefusalCode::NoRow:
      return ExitCode::NotFound;
    default:
      return ExitCode::WrongUse;
  }
}

}  // namespace

Failure failureOf(const host::Refusal& refusal) {
  return {exitCodeOf(refusal.code), refusal.message};
}

PageOnShow::PageOnShow(Session& session)
    : application_(session.device().environment(), std::numeric_limits<int>::max()) {}

Outcome<std::unique_ptr<PageOnShow>> PageOnShow::open(Session& session,
                                                      std::string_view pageClass) {
  std::unique_ptr<PageOnShow> page(new PageOnShow(session));
  const auto launched = page->application_.launch(pageClass);
  if (!launched && launched.error().code == host::RefusalCode::NoPage)
    return Failure{ExitCode::NotFound, launched.error().message + "; quorvantis pages lists them"};
  if (!launched) return failureOf(launched.error());
  session.clock().advance(kRulesApplied);
  const preferences::PSListController* list = page->application_.shownList();
  if (list && !list->loadError().empty()) return Failure{ExitCode::Failed, list->loadError()};
  return page;
}

}  // namespace cli
