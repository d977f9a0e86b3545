#include "linux/collation_locale.h"
#include "linux/icu_collator.h"
#include "linux/module.h"

QUORVANTIS_SERVICE {
  auto collator = services::makeCollator(services::collationLocale());
  if (collator) return collator->release();
  reason = collator.error();
  return nullptr;
}
