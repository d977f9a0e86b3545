#pragma once

#include "apps/cli/outcome.h"
#include "apps/cli/trigger.h"
#include "platform/services.h"

namespace cli {

struct ImportedProfile {
  Trigger trigger;
  plist::Dictionary values;  // the trigger's ID first, then the settings in a profile's order
};

// A profile in a property list, XML or binary, plain or a keyed archive. Failed when the bytes are
// none. WrongUse, with the key's name, unless each key is one that a profile has, each value is of
// its kind (a number for a number, text for a text), and "profilepercentage" is the ID of a
// trigger.
Outcome<ImportedProfile> readImport(plist::Bytes bytes, platform::XmlPropertyLists& xml);

}  // namespace cli
