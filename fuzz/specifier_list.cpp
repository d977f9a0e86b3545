// A specifier list from any bytes: read, checked, and its rows asked for what pages ask.
#include "platform/preferences/specifier_list.h"
#include "prefs/resources/classes.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  auto root = plist::readBinary({bytes, size});
  if (!root) return 0;
  auto list = preferences::readSpecifierList(*root);
  if (!list) return 0;
  static const preferences::Bundle kBundle{
      prefs::kPrincipalClass, prefs::pageClasses(), prefs::cellClasses(), {}};
  for (const auto& page : kBundle.pages)
    (void)preferences::validate(*list, *page.operations, kBundle);
  for (const auto& row : list->specifiers) {
    (void)row->name();
    (void)row->boolForKey("enabled", true);
    (void)row->titleForValue(row->propertyForKey("default"));
  }
  return 0;
}
