#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/plist/value.h"

namespace plist {

// Texts and numbers, each once. Numbers of different kinds or widths are different leaves. Keeps
// views: the texts must outlive it.
class LeafTable {
 public:
  // What is known about a leaf beside what it is; 0 until it is set.
  struct Notes {
    std::uint32_t object = 0;  // the number of its object
    std::uint32_t uid = 0;     // the UID of its object in an archive
  };

  explicit LeafTable(std::size_t expected);

  // The position of a leaf, which stays; its notes move when the table grows.
  std::uint32_t text(std::string_view text);
  std::uint32_t number(const Value& number);  // boolean, integer or real

  Notes& operator[](std::uint32_t position) { return entries_[position].notes; }

 private:
  struct Entry {
    std::uint64_t hash;
    std::uint64_t bits;  // a number's; a text's size
    const char* text;    // of a number, what stands for its kind
    Notes notes;
  };

  template <class IsSame>
  std::uint32_t find(std::uint64_t hash, std::uint64_t bits, const char* text, IsSame isSame);
  void grow();

  std::vector<Entry> entries_;
  std::vector<std::uint32_t> slots_;  // position + 1, or 0; never more than half full
};

}  // namespace plist
