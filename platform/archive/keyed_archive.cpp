#include "platform/archive/keyed_archive.h"

#include <array>

namespace archive {
namespace {

struct Words {
  std::string_view name, message;
};

constexpr std::array<Words, 19> kWords = {{
    {"PropertyList", ""},
    {"NotDictionary", "not a keyed archive"},
    {"Archiver", "not written by a keyed archiver"},
    {"Version", "a keyed archive of an unknown version"},
    {"Top", "a keyed archive without $top"},
    {"Objects", "a keyed archive without $objects"},
    {"Root", "a keyed archive without a root object"},
    {"Reference", "a reference to a missing object"},
    {"Class", "an object whose class is missing"},
    {"UnknownClass", "an object of the unknown class "},
    {"Field", "an object without its content"},
    {"UnequalLengths", "a dictionary with more or fewer keys than values"},
    {"NilElement", "nil in a collection"},
    {"KeyKind", "a key that can't be one"},
    {"Circular", "a collection inside itself"},
    {"TooDeep", "collections nested too deeply"},
    {"TooLarge", "too much out of shared objects"},
    {"NotArchivable", "a UID can't be archived"},
    {"NotUtf8", "text that is not UTF-8"},
}};

const Words& wordsFor(ErrorKind kind) {
  return kWords[static_cast<std::size_t>(kind)];
}

}  // namespace

std::string_view nameOf(ErrorKind kind) {
  return wordsFor(kind).name;
}

std::string Error::message() const {
  return reason() + " at byte " + std::to_string(offset);
}

std::string Error::reason() const {
  if (kind == ErrorKind::PropertyList) return plist::Error{propertyList, offset}.reason();
  return std::string(wordsFor(kind).message) + className;
}

}  // namespace archive
