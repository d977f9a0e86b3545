#pragma once

#include "host/profiles.h"

namespace host {

struct ImportedProfile {
  Trigger trigger;
  plist::Dictionary values;  // the trigger's ID first, then the settings in a profile's order
};

// As Profiles::import says. Offsets and lines in errors are places in these bytes.
Attempt<ImportedProfile> readImport(plist::Bytes bytes, platform::XmlPropertyLists& xml);

// XML or binary; errors are about these bytes.
platform::Result<plist::Value> readPropertyList(plist::Bytes bytes,
                                                platform::XmlPropertyLists& xml);

}  // namespace host
