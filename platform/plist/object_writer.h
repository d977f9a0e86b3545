#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/plist/binary_objects.h"
#include "platform/plist/leaf_table.h"

namespace plist {

// Writes the objects of a binary property list in their order, the top one first. How wide a
// reference is depends on how many objects there will be, so the members of containers are put in
// at the end.
class ObjectWriter {
 public:
  ObjectWriter();

  // Each writes an object and returns its number.
  std::uint32_t addText(std::string_view utf8, bool isAscii);
  std::uint32_t addLeaf(const Value& leaf);
  std::uint32_t addUid(std::uint32_t index);

  // The same for a container, whose members are set one by one at the place that it returns; of a
  // dictionary with n pairs 0 ... n-1 are keys and n ... 2n-1 values.
  struct Container {
    std::uint32_t number;
    std::size_t members;  // where they are in members_
  };
  Container addContainer(ObjectType type, std::size_t count);
  void setMember(Container container, std::size_t index, std::uint32_t object) {
    members_[container.members + index] = object;
  }

  // Whether there are more objects than references can number.
  bool isFull() const { return offsets_.size() > UINT32_MAX; }

  // Ends the property list. Only when it is not full.
  std::vector<std::uint8_t> finish();

  // What readBinary will take for all this, at most; see expansionLimit. A text is charged
  // for each reference to it.
  std::uint64_t cost() const { return cost_; }
  void chargeText(std::string_view text);

 private:
  // Where members are put into the bytes, and the first of them; they reach to those of the next.
  struct Gap {
    std::size_t at, members;
  };

  std::uint8_t* begin(std::size_t size);
  void grow(std::size_t size);
  void end(std::uint8_t* to) { at_ = static_cast<std::size_t>(to - bytes_.get()); }
  std::uint32_t addSized(unsigned marker, std::uint64_t number, std::size_t size);
  std::uint32_t addInteger(const Value& integer);
  std::uint32_t addData(const Data& data);
  std::uint32_t last() const { return static_cast<std::uint32_t>(offsets_.size() - 1); }

  std::unique_ptr<std::uint8_t[]> bytes_;
  std::size_t at_, capacity_;
  std::vector<std::uint64_t> offsets_;  // without the members
  std::vector<Gap> gaps_;
  std::vector<std::uint32_t> members_;
  std::uint64_t cost_ = 0;
};

}  // namespace plist
