#pragma once

#include <string>
#include <vector>

#include "platform/plist/binary.h"
#include "platform/plist/value.h"
#include "platform/result.h"

namespace services {

// Reads an XML property list; a failure says the line and what is wrong there.
//
// UTF-8, UTF-16 with a byte order mark, or what the XML header declares; header, DOCTYPE and the
// <plist> element are optional. What follows the root is ignored; two values in <plist> are not.
// - Integers: an optional sign, decimal or 0x hexadecimal, -2^63 to 2^64-1, blanks before but none
//   behind. Reals: the whole text, or nan, inf, infinity; a real too large or too small for a
//   double fails. Reals are 8 bytes wide.
// - Dates are YYYY-MM-DDTHH:MM:SSZ. Data is Base64 with white space anywhere.
// - Of equal keys the last wins, in the place of the first. A dictionary whose only key is CF$UID,
//   with a number, is a UID of its low 32 bits.
// - More than plist::kMaximumDepth containers in one another, any entity beyond XML's own five, and
//   attributes declared in the DOCTYPE (each element would get them) are refused.
// - What is read takes at most plist::expansionLimit of the bytes, charged as the binary reader
//   charges it.
platform::Result<plist::Value> readXml(plist::Bytes bytes);

struct XmlWithLines {
  plist::Value value;
  // The line, from 1, on which each member of the array under the root's key "items" starts;
  // empty when there is no such array.
  std::vector<unsigned long> itemLines;
};

// The same for a list whose rows are to be named in messages.
platform::Result<XmlWithLines> readXmlWithLines(plist::Bytes bytes);

}  // namespace services
