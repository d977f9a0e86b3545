#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/error.h"

namespace plist {

// What can be wrong with a binary property list and with the keyed archive in one.
enum class ErrorKind : std::uint8_t {
  Truncated,      // too short for a header and a trailer
  Header,         // does not begin with "bplist0"
  OffsetSize,     // no width for offsets, or too small a one for the table's position
  ReferenceSize,  // no width for references, or too small a one for the number of objects
  ObjectCount,    // no objects, or more than there can be
  TopObject,      // the top object is not one of the objects
  TableEnd,       // the offset table does not end where the trailer begins
  ObjectOffset,   // an object is said to be in the table, the trailer or, when used, the header
  Reference,      // a reference to an object, or an archive's UID of one, that is not there
  Marker,         // no object begins with this byte
  Length,         // a length that is not an integer
  ObjectEnd,      // an object runs into the offset table
  UidRange,       // a UID of more than 32 bits
  KeyKind,        // a container as a dictionary's key
  Circular,       // a container inside itself
  TooDeep,        // containers nested deeper than kMaximumDepth
  TooLarge,       // shared objects make it larger than expansionLimit allows
  NotUtf8,        // when writing: text that is not UTF-8

  // Of archives only.
  NotDictionary,   // the property list is not a dictionary
  Archiver,        // $archiver is missing or not "NSKeyedArchiver"
  Version,         // $version is missing or not 100000
  Top,             // $top is missing or not a dictionary
  Objects,         // $objects is missing or not an array
  Root,            // $top has no root, or it is not a UID
  Class,           // $class does not lead to a dictionary with a $classname
  UnknownClass,    // an object of a class that can't be read; className says which
  Field,           // an object lacks its content, or that is of the wrong type
  UnequalLengths,  // not as many keys as values
  NilElement,      // nil in a collection
  NotArchivable,   // when archiving: a UID
};

// A short name, such as "ObjectOffset".
std::string_view nameOf(ErrorKind kind);

struct Error {
  ErrorKind kind{};
  std::size_t offset = 0;       // where in the bytes; when writing a text: where in that text
  std::string className{};      // for ErrorKind::UnknownClass
  std::string message() const;  // human-readable: what and where
  std::string reason() const;   // human-readable: what

  operator platform::Error() const { return {.what = message()}; }
};

}  // namespace plist
