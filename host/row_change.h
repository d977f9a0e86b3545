#pragma once

#include "host/refusal.h"
#include "platform/preferences/PSListController.h"

namespace host {

// Whether the user can operate the row: a row that isn't built yet counts as usable.
bool isUsable(const preferences::PSSpecifier& row);

// What the user's hand does to a built row: its control is moved, then the page is told. A switch
// takes a boolean, a slider a number within its range (stored as a real of 8 bytes), a text row
// text, a segment or a row of choices one of its values, numbers by value (stored as the choice has
// it). Refused as BadValue otherwise.
Outcome<Done> changeRow(preferences::PSListController& page, preferences::PSSpecifier& row,
                        const plist::Value& value);

}  // namespace host
