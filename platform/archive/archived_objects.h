#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "platform/archive/archived_class.h"
#include "platform/archive/keyed_archive.h"
#include "platform/plist/binary_walk.h"

namespace archive {

// An entry equal to this is nil.
constexpr std::string_view kNil = "$null";

// The keys that matter in the dictionary of an encoded object, and what is there; null when
// nothing is.
enum Field { kClass, kKeys, kObjects, kString, kData, kTime, kFieldCount };
using Fields = std::array<const plist::Object*, kFieldCount>;

inline bool isPresent(const plist::Object* field, plist::ObjectType type) {
  return field && field->type == type;
}

// The objects of an archive by UID, and the frame around them. What fails sets error() and returns
// false, null or nothing.
class ArchivedObjects {
 public:
  explicit ArchivedObjects(const plist::ObjectTable& table)
      : table_(table), walk_(table), budget_(plist::expansionLimit(table.bytes())) {}

  // Checks the whole property list and the frame. After that every member of an object is there.
  bool open();

  std::uint32_t root() const { return root_; }

  // Null without an error when there is no such object.
  const plist::Object* target(std::uint64_t uid) const {
    return uid < objects_->count ? &table_.memberOf(*objects_, uid) : nullptr;
  }
  const plist::Object& memberOf(const plist::Object& container, std::uint64_t index) const {
    return table_.memberOf(container, index);
  }

  bool readFields(std::uint32_t uid, const plist::Object& dictionary, Fields& fields);

  // What instances of the class with this UID are; `instance` is one of them.
  std::optional<Shape> resolveClass(std::uint32_t uid, std::uint32_t instance);

  // The content of a field, in the field itself or where its UID leads; null without an error when
  // it is of neither type.
  const plist::Object* follow(const plist::Object* field, plist::ObjectType type,
                              plist::ObjectType alternative) const;

  // An object that is not an encoded one, as the property list value that it is.
  bool readPlain(std::uint32_t uid, plist::Value* value);

  bool charge(std::uint64_t cost, std::uint32_t uid) {
    return budget_.charge(cost) || fail(ErrorKind::TooLarge, uid);
  }

  // An error at an object.
  bool fail(ErrorKind kind, std::uint32_t uid);
  // An instance that lacks its content; where its class only has a known ancestor, the class is
  // unknown.
  bool failContent(std::uint32_t uid, const Fields& fields);

  Error& error() { return error_; }
  std::uint32_t failedUid() const { return failedUid_; }

 private:
  const plist::Object* find(const plist::Object& dictionary, std::string_view key) const;
  bool shapeAmong(const plist::Object& names, std::optional<Shape>& shape);
  bool failClass(std::uint32_t uid, const plist::Object& name);
  bool failFrame(ErrorKind kind);

  const plist::ObjectTable& table_;
  plist::BinaryWalk walk_;
  plist::MemoryBudget budget_;
  Error error_;
  std::uint32_t failedUid_ = 0;

  const plist::Object* objects_ = nullptr;  // $objects
  std::uint32_t root_ = 0;

  std::uint32_t knownClass_ = 0;  // the class met last; 0 is nil and so none
  Shape knownShape_{};
};

}  // namespace archive
