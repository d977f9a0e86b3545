#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/plist/binary_objects.h"
#include "platform/plist/leaf_table.h"

namespace plist {

// Writes the objects of a binary property list in their order, the top one first. How wide a
// reference is depends on how many objects there will be: begin with one byte, and when it turns
// out to be full begin again with the next width.
class ObjectWriter {
 public:
  explicit ObjectWriter(std::size_t referenceSize);

  // Each writes an object and returns its number.
  std::uint32_t addText(std::string_view utf8, bool isAscii);
  std::uint32_t addLeaf(const Value& leaf);
  std::uint32_t addUid(std::uint32_t index);

  // The same for a container, whose members are set one by one at the place that it returns; of a
  // dictionary with n pairs 0 ... n-1 are keys and n ... 2n-1 values.
  struct Container {
    std::uint32_t number;
    std::size_t members;
  };
  Container addContainer(ObjectType type, std::size_t count);
  void setMember(Container container, std::size_t index, std::uint32_t object) {
    std::uint8_t* to = bytes_.get() + container.members + index * referenceSize_;
    if (referenceSize_ == 1)
      *to = static_cast<std::uint8_t>(object);
    else
      setWideMember(to, object);
  }

  // Whether there are more objects than references of this width can number.
  bool isFull() const { return offsets_.size() > limit_; }

  // Ends the property list. Only when it is not full.
  std::vector<std::uint8_t> finish();

  // What readBinary will take for all this, at most; see expansionLimit. A text is charged
  // for each reference to it.
  std::uint64_t cost() const { return cost_; }
  void chargeText(std::string_view text);

  // The width to begin again with, and whether there is any.
  static bool widen(std::size_t& referenceSize) { return (referenceSize *= 2) <= 4; }

 private:
  std::uint8_t* begin(std::size_t size);
  void grow(std::size_t size);
  void setWideMember(std::uint8_t* to, std::uint32_t object) const;
  void end(std::uint8_t* to) { at_ = static_cast<std::size_t>(to - bytes_.get()); }
  std::uint32_t addSized(unsigned marker, std::uint64_t number, std::size_t size);
  std::uint32_t addInteger(const Value& integer);
  std::uint32_t addData(const Data& data);
  std::uint32_t last() const { return static_cast<std::uint32_t>(offsets_.size() - 1); }

  std::unique_ptr<std::uint8_t[]> bytes_;
  std::size_t at_, capacity_;
  std::vector<std::uint64_t> offsets_;
  std::size_t referenceSize_;
  std::uint64_t limit_;
  std::uint64_t cost_ = 0;
};

}  // namespace plist
