#pragma once

#include <string>

#include "host/application.h"

namespace host {

// Shows that page as a user would who goes back to the first one and from there taps the row that
// leads to it; where the page is on the stack already, only back to it. Gives the index of the row
// of that id, or -1 for an empty id. An unknown page is refused, and the shown one stays.
Outcome<int> goTo(Application& application, const std::string& pageClass, const std::string& row);

}  // namespace host
