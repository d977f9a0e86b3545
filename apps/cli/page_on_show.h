#pragma once

#include <string_view>

#include "apps/cli/outcome.h"
#include "apps/cli/session.h"
#include "host/settings_application.h"

namespace cli {

// One page, launched alone, with all its rows on screen and its rules applied.
class PageOnShow {
 public:
  // NotFound when the bundle has no such page; Failed when its list can't be loaded or the store
  // can't be read.
  static Outcome<std::unique_ptr<PageOnShow>> open(Session& session, std::string_view pageClass);

  host::SettingsApplication& application() { return application_; }

 private:
  explicit PageOnShow(Session& session);

  host::SettingsApplication application_;
};

// A refusal of the host as an exit code and its reason.
Failure failureOf(const host::Refusal& refusal);

}  // namespace cli
