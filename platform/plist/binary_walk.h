#pragma once

#include <array>

#include "platform/plist/binary_objects.h"

namespace plist {

// What reading may still take, in bytes of memory.
class MemoryBudget {
 public:
  explicit MemoryBudget(std::uint64_t bytes) : left_(bytes) {}
  bool charge(std::uint64_t bytes) {
    if (bytes > left_) return false;
    left_ -= bytes;
    return true;
  }

 private:
  std::uint64_t left_;
};

// What a leaf takes as a key: data becomes two digits a byte.
inline std::uint64_t keyCost(const Object& key) {
  return key.cost + (key.type == ObjectType::Data ? key.count : 0);
}

// Appends an entry with this key, a leaf; where to put its value, or null when the key is there
// already.
Value* appendKey(const Object& key, Dictionary& dictionary);

// The text of a leaf as a key.
std::string keyText(const Object& key);

// Reads objects with all that is in them, or only checks them: what passes the check is what can
// be read, because both are the same walk.
class BinaryWalk {
 public:
  explicit BinaryWalk(const ObjectTable& table) : table_(table) {}

  // Object number `index` into *value; a null value checks only. False with error() when it can't
  // be read.
  bool read(std::uint64_t index, Value* value, MemoryBudget& budget);

  const Error& error() const { return error_; }

 private:
  struct Open {
    std::uint64_t index;
    const Object* container;
    std::uint64_t next;
    Value* value;
  };

  void passLeaves(Open& open, MemoryBudget& budget);
  bool visit(std::uint64_t index, Value* value, MemoryBudget& budget);
  bool open(std::uint64_t index, const Object& container, Value* value);
  bool visitKey(const Open& open, std::uint64_t member, Value*& place, MemoryBudget& budget);
  bool failAt(const Object& container, std::uint64_t member);
  bool fail(ErrorKind kind, std::uint64_t index);
  bool isCircular(std::uint64_t index) const;

  const ObjectTable& table_;
  Error error_;
  std::size_t depth_ = 0;
  std::array<Open, kMaximumDepth> open_;
};

}  // namespace plist
