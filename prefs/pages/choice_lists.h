#pragma once

#include "platform/plist/value.h"
#include "platform/preferences/environment.h"

// The choices of the notification page: pairs of parallel lists, values and titles, built anew at
// each call.
namespace prefs {

inline constexpr const char* kNoSound = "Disabled";

// "Disabled", then every file below the system sound folder in the order of the walk: its URL, or
// its name as the URL has it ("a%20b.caf"). What can't be read is skipped.
plist::Array soundValues(const preferences::Environment& environment);
plist::Array soundTitles(const preferences::Environment& environment);

// Person after person by first name: all phone numbers, then all e-mail addresses, as stored; or
// each as "FIRST LAST (NUMBER)". A missing name leaves its blank in place.
plist::Array contactValues(platform::AddressBook& addressBook);
plist::Array contactTitles(platform::AddressBook& addressBook);

}  // namespace prefs
