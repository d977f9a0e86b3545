#pragma once

#include "host/scene.h"
#include "platform/preferences/PSSpecifier.h"

namespace host {

// The control of a row, as it is now; of a row that isn't built, as its list has it.
ControlView describeControl(const preferences::PSSpecifier& row);

// What the cell of a built row shows: the value that it was made from or, where its control has
// been moved since, what the control says.
plist::Value shownValue(const preferences::PSSpecifier& row, const ControlView& control);

}  // namespace host
