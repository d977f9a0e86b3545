#include "platform/plist/error.h"

#include <array>

namespace plist {
namespace {

struct Words {
  std::string_view name, reason;
};

// In the order of ErrorKind.
constexpr std::array<Words, 30> kWords = {{
    {"Truncated", "too short for a binary property list"},
    {"Header", "not a binary property list"},
    {"OffsetSize", "the offsets are too narrow"},
    {"ReferenceSize", "the references are too narrow"},
    {"ObjectCount", "an impossible number of objects"},
    {"TopObject", "the top object is missing"},
    {"TableEnd", "the offset table does not fill the file"},
    {"ObjectOffset", "an object outside the objects"},
    {"Reference", "a reference to a missing object"},
    {"Marker", "an unknown type of object"},
    {"Length", "a length that is not an integer"},
    {"ObjectEnd", "an object that does not end"},
    {"UidRange", "a UID of more than 32 bits"},
    {"KeyKind", "a container as a key"},
    {"Circular", "a container inside itself"},
    {"TooDeep", "containers nested too deeply"},
    {"TooLarge", "too much out of shared objects"},
    {"NotUtf8", "text that is not UTF-8"},
    {"NotDictionary", "not a keyed archive"},
    {"Archiver", "not written by a keyed archiver"},
    {"Version", "a keyed archive of an unknown version"},
    {"Top", "a keyed archive without $top"},
    {"Objects", "a keyed archive without $objects"},
    {"Root", "a keyed archive without a root object"},
    {"Class", "an object whose class is missing"},
    {"UnknownClass", "an object of the unknown class "},
    {"Field", "an object without its content"},
    {"UnequalLengths", "a dictionary with more or fewer keys than values"},
    {"NilElement", "nil in a collection"},
    {"NotArchivable", "a UID can't be archived"},
}};
static_assert(static_cast<std::size_t>(ErrorKind::NotArchivable) + 1 == kWords.size());

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
  return std::string(wordsFor(kind).reason) + className;
}

}  // namespace plist
