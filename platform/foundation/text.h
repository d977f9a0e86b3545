#pragma once

#include <string>
#include <string_view>

#include "platform/plist/value.h"

namespace foundation {

// The last component of a path, without trailing slashes: "/a/b/" gives "b", "/" gives "/". Nothing
// is decoded: "file:///a/b%20c.caf" gives "b%20c.caf".
std::string_view lastPathComponent(std::string_view path);

// What follows the last dot of the last component. Empty if that dot is the component's first or
// last character, or if a space or a bidirectional control follows it: ".qvx", "a.", "a.q vx".
std::string_view pathExtension(std::string_view path);

// UTF-8 as the Unicode standard has it: no overlong forms, no surrogates, nothing above U+10FFFF.
bool isUtf8(std::string_view bytes);
// With U+FFFD in place of each maximal run of bytes that begins a character and breaks off, and of
// each byte that begins none.
std::string replacingInvalidUtf8(std::string_view bytes);

// For a terminal: without what would control it or reorder the text around it. Control characters
// (C0 but newline and tab, DEL, C1) and the marks, embeddings, overrides and isolates of direction
// become "\u001b", "\u202e", which JSON reads as the character; a byte that is not UTF-8 becomes
// "\x9b".
std::string visibleText(std::string_view bytes);

// What the format "%@" makes of a value. Nothing is "(null)", text is itself, true is "1"; an
// integer is decimal; a real has up to 16 significant digits (7 if it is 4 bytes wide) and neither
// a point nor zeros without need: 55.0 is "55". Data is "<68656c6c 6f>", a date
// "2026-01-31 12:00:00 +0000", arrays and dictionaries are in the old text format over several
// lines. Never the user's locale.
std::string descriptionOf(const plist::Value& value);

// The truth of a value. A number that isn't zero is true, 0.5 as well. Text, its leading blanks
// skipped, is true if it begins with t, T, y or Y, or with an integer other than zero that may have
// a sign and leading zeros: "YES", "-1", "007"; not "on", "0.5", "+t". All else is false.
bool boolValue(const plist::Value& value);

}  // namespace foundation
