#pragma once

#include <string>

#include "host/application.h"
#include "host/scene.h"

namespace host {

// The value that a text which a user typed stands for in a row, by the kind of the row's control:
// a switch takes true and false, on and off, yes and no, 1 and 0 in any case; a slider a number; a
// row of choices the name of one of its values (see namingText), else a title, exactly or, where
// just one fits, in any case; every other row the text itself. The name of the value that a switch
// or a row of choices shows now stands for that value, whatever it is. Refused with what could be
// meant.
Attempt<plist::Value> typedValue(Application& application, const RowView& row,
                                 const std::string& text);

// Whether the text is the name of the value that the row shows now.
bool namesShownValue(const RowView& row, std::string_view text);

}  // namespace host
