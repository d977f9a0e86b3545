#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/plist/binary.h"

// Keyed archives of dictionaries, arrays, text, numbers, dates, data and nil: a binary property
// list {$version: 100000, $archiver: "NSKeyedArchiver", $top: {root: UID}, $objects: [...]}.
namespace archive {

using plist::Error;  // an offset is where in the bytes; when archiving a text: where in it
using plist::ErrorKind;

// Decodes the root object. Mutable and immutable class names give the same values; nil and NSNull
// are Nothing; a class that is not known by its name may be by a hint or an ancestor's name. The
// text "$null" is nil wherever it stands among the objects. What is not an instance of a class is
// taken as the property list value that it is. Of equal keys the first counts; keys that are not
// text become text as in plist::readBinary.
platform::Result<plist::Value, Error> unarchive(plist::Bytes bytes);

// A property list that was read elsewhere (from XML, say) and holds a keyed archive. Offsets in
// errors are those that it would have in binary form.
platform::Result<plist::Value, Error> unarchive(const plist::Value& propertyList);

struct Lookup {
  bool isDictionary = false;         // the root object
  std::vector<plist::Value> values;  // one for each key; Nothing when the root has no such key
};

// Checks all of an archive, fails exactly when unarchive does, but builds only the values of these
// keys, which must differ, of the root dictionary.
platform::Result<Lookup, Error> lookUp(plist::Bytes bytes, std::span<const std::string_view> keys);

enum class Mutability { Immutable, Mutable };  // of the root container's class name

// Archives a value. Objects are numbered as they are met: a collection, its keys, its values each
// with all that is in it, then its class when it is new. Equal texts and equal numbers of the same
// kind are one object, unless so much is shared that unarchive would refuse it. The text "$null",
// which plain would be nil, becomes an NSMutableString. Nothing is nil as the root, NSNull inside.
platform::Result<std::vector<std::uint8_t>, Error> archive(const plist::Value& root,
                                                           Mutability mutability);

}  // namespace archive
