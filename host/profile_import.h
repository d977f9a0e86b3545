#pragma once

#include "host/profiles.h"

namespace host {

inline constexpr std::string_view kArchiver = "$archiver";  // a key of every keyed archive

struct ImportedProfile {
  Trigger trigger;
  plist::Dictionary values;  // the trigger's ID first, then the settings in a profile's order
};

// As Profiles::import says. Offsets and lines in errors are places in these bytes.
Attempt<ImportedProfile> readImport(plist::Bytes bytes, platform::XmlPropertyLists& xml);

// Whether these are the values of a profile: all that has a default, and nothing else.
bool isProfile(const plist::Dictionary& values);

// XML or binary; errors are about these bytes.
platform::Result<plist::Value> readPropertyList(plist::Bytes bytes,
                                                platform::XmlPropertyLists& xml);

}  // namespace host
