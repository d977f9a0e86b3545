#include "prefs/resources/bundle.h"

#include "prefs/resources/classes.h"

namespace prefs {

// Written by the build.
std::span<const preferences::ListResource> compiledLists();

const preferences::Bundle& bundle() {
  static const preferences::Bundle kBundle{kPrincipalClass, pageClasses(), cellClasses(),
                                           compiledLists()};
  return kBundle;
}

}  // namespace prefs
