#include "services/collation_locale.h"
#include "services/icu_collator.h"
#include "services/module.h"

QUORVANTIS_SERVICE {
  auto collator = services::makeCollator(services::collationLocale());
  if (collator) return collator->release();
  reason = collator.error().message();
  return nullptr;
}
