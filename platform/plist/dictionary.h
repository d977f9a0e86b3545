#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace plist {

class Value;

// A dictionary with text keys that keeps the order of its entries and finds a key without
// scanning all of them when it is large. The hash behind that is seeded anew in every process, so
// no file can choose keys that collide.
class Dictionary {
 public:
  struct Entry;

  Dictionary();
  Dictionary(std::initializer_list<Entry> entries);  // of equal keys the first counts
  Dictionary(const Dictionary& other);
  Dictionary(Dictionary&& other) noexcept;
  Dictionary& operator=(const Dictionary& other);
  Dictionary& operator=(Dictionary&& other) noexcept;
  ~Dictionary();

  std::size_t size() const;
  bool empty() const { return size() == 0; }

  const Value* find(std::string_view key) const;  // null when absent
  Value* find(std::string_view key);
  void set(std::string_view key, Value value);     // replaces in place, or appends
  bool insert(std::string_view key, Value value);  // false (and unchanged) when the key is there
  bool remove(std::string_view key);               // keeps the order of the rest; costs a scan

  // Removes the entries with such values; keeps the order of the rest.
  void removeIf(bool (*isUnwanted)(const Value& value));

  // Appends an entry whose value is Nothing, for the caller to set; null (and unchanged) when the
  // key is there. The place is good until the dictionary has to grow: see reserve.
  Value* append(std::string_view key);

  void reserve(std::size_t entries);

  const Entry* begin() const;
  const Entry* end() const;

 private:
  friend class Value;  // which frees and copies without recursion

  std::size_t slotCount() const;
  std::size_t slotOf(std::string_view key) const;
  std::size_t indexOf(std::string_view key) const;
  void buildIndex();

  std::vector<Entry> entries_;
  // Open addressing, an entry's position + 1 in each used slot. Null while there are few entries;
  // the number of slots follows from the capacity of entries_.
  std::unique_ptr<std::uint32_t[]> slots_;
};

}  // namespace plist
