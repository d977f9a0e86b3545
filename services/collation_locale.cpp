#include "services/collation_locale.h"

#include <algorithm>
#include <cstdlib>

namespace services {

std::string collationLocale() {
  for (const char* variable : {"LC_ALL", "LC_COLLATE", "LANG"}) {
    const char* value = std::getenv(variable);
    if (!value || !*value) continue;
    std::string locale = value;
    locale.resize(std::min(locale.find_first_of(".@"), locale.size()));
    const bool none = locale.empty() || locale == "C" || locale.ends_with("POSIX");
    return none ? "en_US" : locale;
  }
  return "en_US";
}

}  // namespace services
