#pragma once

#include <functional>

#include "apps/cli/outcome.h"
#include "apps/cli/session.h"

namespace cli {

// Makes a change through the pages, which ignore what the store says, so what it said and what is
// in it tell whether the change is there. Failed when the store complained and holds what it held
// before; what else it had to say, of a damaged file that was kept aside, is a warning.
Outcome<Done> changeStore(Session& session, const std::function<Outcome<Done>()>& change);

}  // namespace cli
