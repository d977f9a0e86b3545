#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace services {

// Is called with a card; the text is valid until it returns.
using CardVisit = std::function<void(const std::string& card)>;

// Takes a vCard file (2.1, 3.0 or 4.0) apart: one text a card, in the order of the file, each with
// BEGIN, END and those of its properties that make a platform::Person (N, FN, TEL, EMAIL), one a
// line, unfolded and valid UTF-8, so that a vCard reader sees nothing else of what outsiders wrote.
//
// - A card lies between a line BEGIN:VCARD and a line END:VCARD, letters of either case. One that
//   the file or another BEGIN:VCARD ends is broken and left out; a card within an AGENT property
//   belongs to it, and is left out too.
// - Lines end with LF or CRLF. A line that begins with a blank or a tab continues the line before,
//   whatever character that breaks; so does the line after a soft line break, "=" at the end of a
//   quoted-printable one, but never over a BEGIN or END.
// - Bytes outside ASCII are UTF-8, those that are not become U+FFFD, and so does a zero byte. Where
//   the property names another CHARSET they are written quoted-printable, for the reader to
//   convert.
// - A property without a colon is left out, one that begins with a blank (it continues an empty
//   line), and one of more than 1,024 bytes: readers take time in the square of its length.
void splitCards(std::string_view file, const CardVisit& visit);

}  // namespace services
