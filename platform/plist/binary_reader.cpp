#include <algorithm>

#include "platform/plist/binary_walk.h"
#include "platform/plist/key_text.h"
#include "platform/plist/utf.h"

namespace plist {

platform::Result<Value, Error> readBinary(Bytes bytes) {
  const auto table = ObjectTable::open(bytes);
  if (!table) return table.error();
  MemoryBudget budget(expansionLimit(bytes.size()));
  BinaryWalk walk(*table);
  Value value;
  if (!walk.read(table->top(), &value, budget)) return walk.error();
  return value;
}

std::string keyText(const Object& key) {
  std::string text;
  if (key.isText()) {
    key.readText(text);
    return text;
  }
  Value leaf;
  key.read(leaf);
  return keyText(leaf);
}

Value* appendKey(const Object& key, Dictionary& dictionary) {
  const std::string_view bytes(reinterpret_cast<const char*>(key.payload), key.count);
  const bool isPlain = key.type == ObjectType::Ascii && isAscii(bytes);
  return isPlain ? dictionary.append(bytes) : dictionary.append(keyText(key));
}

bool BinaryWalk::read(std::uint64_t index, Value* value, MemoryBudget& budget) {
  depth_ = 0;
  if (!visit(index, value, budget)) return false;
  while (depth_ > 0) {
    Open& open = open_[depth_ - 1];
    const Object& container = *open.container;
    if (!open.value) passLeaves(open, budget);
    if (open.next == container.count) {
      --depth_;
      continue;
    }
    std::uint64_t member = open.next++;
    Value* place = nullptr;
    if (container.type == ObjectType::Dictionary) {
      if (!visitKey(open, member, place, budget)) return false;
      member += container.count;
    } else if (open.value) {
      Array* members = open.value->array();
      place = &(members ? *members : open.value->set()->members).emplace_back();
    }
    if (!visit(table_.member(container, member), place, budget)) return failAt(container, member);
  }
  return true;
}

// Checks the members up to one that needs more than a look.
inline void BinaryWalk::passLeaves(Open& open, MemoryBudget& budget) {
  const Object& container = *open.container;
  if (container.type == ObjectType::Dictionary) return;
  MemoryBudget left = budget;
  std::uint64_t next = open.next;
  for (; next < container.count; ++next) {
    const Object* member = table_.find(table_.member(container, next));
    if (!member || member->isContainer() || !left.charge(member->cost)) break;
  }
  open.next = next;
  budget = left;
}

inline bool BinaryWalk::visit(std::uint64_t index, Value* value, MemoryBudget& budget) {
  const Object* object = table_.find(index);
  if (!object) {
    error_ = table_.errorOf(index);
    return false;
  }
  if (!budget.charge(object->cost)) return fail(ErrorKind::TooLarge, index);
  if (object->isContainer()) return open(index, *object, value);
  if (value) object->read(*value);
  return true;
}

bool BinaryWalk::open(std::uint64_t index, const Object& container, Value* value) {
  if (depth_ == open_.size()) return fail(ErrorKind::TooDeep, index);
  open_[depth_++] = {index, &container, 0, value};
  if (!value) return true;
  if (container.type == ObjectType::Dictionary)
    value->become<Dictionary>().reserve(container.count);
  else if (container.type == ObjectType::Set)
    value->become<Set>().members.reserve(container.count);
  else
    value->become<Array>().reserve(container.count);
  return true;
}

bool BinaryWalk::visitKey(const Open& open, std::uint64_t member, Value*& place,
                          MemoryBudget& budget) {
  const std::uint64_t index = table_.member(*open.container, member);
  const Object* key = table_.find(index);
  if (!key) {
    error_ = table_.errorOf(index);
    return failAt(*open.container, member);
  }
  if (key->isContainer()) return fail(ErrorKind::KeyKind, index);
  if (!budget.charge(keyCost(*key))) return fail(ErrorKind::TooLarge, index);
  if (open.value) place = appendKey(*key, *open.value->dictionary());
  return true;
}

// A reference to nothing has no object to point at: the error points at the reference.
bool BinaryWalk::failAt(const Object& container, std::uint64_t member) {
  if (error_.kind == ErrorKind::Reference) error_.offset = table_.memberOffset(container, member);
  return false;
}

bool BinaryWalk::fail(ErrorKind kind, std::uint64_t index) {
  const bool atLimit = kind == ErrorKind::TooDeep || kind == ErrorKind::TooLarge;
  error_ = {atLimit && isCircular(index) ? ErrorKind::Circular : kind, table_.offsetOf(index)};
  return false;
}

// Walking in a circle ends at one of the limits; only then it is worth looking for one.
bool BinaryWalk::isCircular(std::uint64_t index) const {
  std::array<std::uint64_t, kMaximumDepth + 1> path;
  for (std::size_t i = 0; i < depth_; ++i) path[i] = open_[i].index;
  path[depth_] = index;
  const auto end = path.begin() + static_cast<std::ptrdiff_t>(depth_) + 1;
  std::sort(path.begin(), end);
  return std::adjacent_find(path.begin(), end) != end;
}

}  // namespace plist
