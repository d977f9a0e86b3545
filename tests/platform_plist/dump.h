#pragma once

#include <string>

#include "platform/plist/value.h"

namespace plist_test {

// A value in a line that other programs can write too: n nothing, b0 b1, i<integer>, r<bits of the
// double, hexadecimal>, t<UTF-8, hexadecimal>, x<data, hexadecimal>, d<bits of the seconds>,
// u<UID>,
// [...] with a comma after each member, {...} with <key in hexadecimal>:<value>, sorted by key. The
// width of a real does not show.
std::string dump(const plist::Value& value);

}  // namespace plist_test
