#pragma once

namespace window {

// Whether there can be a window at all: a display, or a Qt platform that needs none.
bool hasDisplay();

// From now on a failure that Qt takes for fatal (a display that refuses to be opened) ends the
// program with one line on stderr and exit code 1, not with a core dump.
void failPlainly();

}  // namespace window
