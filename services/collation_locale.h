#pragma once

#include <string>

namespace services {

// The locale whose order the user wants: the first that is set of LC_ALL, LC_COLLATE and LANG,
// without its encoding ("sv_SE.UTF-8" is "sv_SE"). None, C and POSIX are en_US.
std::string collationLocale();

}  // namespace services
