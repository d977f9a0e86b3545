#pragma once

#include "platform/plist/value.h"
#include "platform/services.h"

namespace prefs {

// Person after person by first name: all phone numbers, then all e-mail addresses, as stored; or
// each as "FIRST LAST (NUMBER)". A missing name leaves its blank in place.
plist::Array contactValues(platform::AddressBook& addressBook);
plist::Array contactTitles(platform::AddressBook& addressBook);

}  // namespace prefs
