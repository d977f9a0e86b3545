#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "platform/plist/binary.h"

namespace plist {

enum class ObjectType : std::uint8_t {
  Null,
  False,
  True,
  Integer,
  Real,
  Date,
  Data,
  Ascii,
  Utf16,
  Uid,
  Array,
  Set,
  Dictionary,
  Malformed
};

// The cost of an object is fixed + count * each, or nothing for a count up to free.
struct CostRule {
  std::uint32_t free = UINT32_MAX, each = 0, fixed = 0;
};

constexpr std::array<CostRule, 14> costRules() {
  constexpr std::uint32_t kBlock = 32;   // what an allocation may add
  constexpr std::uint32_t kNoBlock = 7;  // a text up to here needs none, whatever is in it
  constexpr std::uint32_t kPair = sizeof(Dictionary::Entry) + 4 * sizeof(std::uint32_t);
  std::array<CostRule, 14> rules{};
  const auto rule = [&rules](ObjectType type) -> CostRule& {
    return rules[static_cast<std::size_t>(type)];
  };
  rule(ObjectType::Ascii) = {kNoBlock, 2, kBlock};
  rule(ObjectType::Utf16) = {kNoBlock / 2, 3, kBlock};
  rule(ObjectType::Data) = {0, 1, kBlock};
  rule(ObjectType::Array) = rule(ObjectType::Set) = {0, sizeof(Value), 0};
  rule(ObjectType::Dictionary) = {0, kPair, 0};
  return rules;
}

constexpr std::array<CostRule, 14> kCostRules = costRules();

// The memory that an object with this count takes in a Value, at most: what the Value itself and
// the content of its members take is left out.
inline std::uint64_t memoryCost(ObjectType type, std::uint64_t count) {
  const CostRule& rule = kCostRules[static_cast<std::size_t>(type)];
  return count > rule.free ? count * rule.each + rule.fixed : 0;
}

// A big-endian number of any width, of which the low 64 bits count.
inline std::uint64_t readSized(const std::uint8_t* at, std::size_t size) {
  if (size == 1) return at[0];
  if (size == 2) return std::uint64_t{at[0]} << 8 | at[1];
  std::uint64_t number = 0;
  for (; size > 0; --size) number = number << 8 | *at++;
  return number;
}

// One object of a binary property list. Unless it is malformed it lies between header and offset
// table.
struct Object {
  const std::uint8_t* payload;
  std::uint32_t
      count;  // bytes of a number, data or ASCII; UTF-16 units; members; pairs; a UID itself
  ObjectType type;
  std::uint64_t cost;  // see memoryCost

  bool isContainer() const { return type >= ObjectType::Array; }
  bool isText() const { return type == ObjectType::Ascii || type == ObjectType::Utf16; }

  // Whether it is this text, which has to be ASCII.
  bool is(std::string_view ascii) const { return count == ascii.size() && hasUnits(ascii); }

  // Its content in a value of the matching kind; leaves only.
  void read(Value& value) const;
  void readText(std::string& text) const;
  std::uint64_t bits() const { return readSized(payload, count); }
  std::uint32_t uid() const { return count; }

 private:
  bool hasUnits(std::string_view ascii) const;
};

// The objects of a binary property list by number. Header, trailer, offset table and each object by
// itself are checked when it opens; numbers of members are not. Keeps no copy:
// the bytes must outlive it.
class ObjectTable {
 public:
  static platform::Result<ObjectTable, Error> open(Bytes bytes);

  std::uint64_t top() const { return top_; }
  std::size_t bytes() const { return bytes_.size(); }

  // The number of a member; of a dictionary with n pairs, 0 ... n-1 are keys and n ... 2n-1 values.
  std::uint64_t member(const Object& container, std::uint64_t index) const {
    return readSized(container.payload + index * referenceSize_, referenceSize_);
  }

  // Null when there is no such object or it is malformed: see errorOf.
  const Object* find(std::uint64_t index) const {
    if (index >= count_) return nullptr;
    const Object& object = objects_[index];
    return object.type == ObjectType::Malformed ? nullptr : &object;
  }
  // What is known to be there and well-formed.
  const Object& operator[](std::uint64_t index) const { return objects_[index]; }
  const Object& memberOf(const Object& container, std::uint64_t index) const {
    return objects_[member(container, index)];
  }

  // Why there is no such object; Reference without an offset when there is none at all.
  Error errorOf(std::uint64_t index) const;

  // Where an object begins, and where in the bytes the number of a member is; for errors.
  std::size_t offsetOf(std::uint64_t index) const {
    return static_cast<std::size_t>(readSized(table_ + index * offsetSize_, offsetSize_));
  }
  std::size_t memberOffset(const Object& container, std::uint64_t index) const {
    return static_cast<std::size_t>(container.payload - bytes_.data()) + index * referenceSize_;
  }

 private:
  std::optional<Error> readTrailer();
  std::optional<Error> readObjects();
  std::optional<ErrorKind> readObject(std::size_t offset, Object& object) const;
  bool readLength(const std::uint8_t*& at, std::uint64_t& length) const;

  Bytes bytes_;
  const std::uint8_t* table_ = nullptr;
  std::uint64_t count_ = 0, top_ = 0;
  std::size_t offsetSize_ = 0, referenceSize_ = 0;
  std::array<std::size_t, 4> unitSizes_{};
  std::unique_ptr<Object[]> objects_;
};

}  // namespace plist
