#include "platform/plist/dictionary.h"

#include <algorithm>
#include <bit>

#include "platform/plist/text_hash.h"
#include "platform/plist/value.h"

namespace plist {
namespace {

constexpr std::size_t kUnindexed = 8;  // up to here a scan beats a hash
constexpr std::size_t kAbsent = SIZE_MAX;

}  // namespace

Dictionary::Dictionary() = default;
Dictionary::Dictionary(Dictionary&& other) noexcept = default;
Dictionary& Dictionary::operator=(Dictionary&& other) noexcept = default;
Dictionary::~Dictionary() = default;

Dictionary::Dictionary(std::initializer_list<Entry> entries) {
  reserve(entries.size());
  for (const Entry& entry : entries) insert(entry.key, entry.value);
}

Dictionary::Dictionary(const Dictionary& other) {
  entries_.reserve(other.entries_.capacity());
  entries_.insert(entries_.end(), other.begin(), other.end());
  const bool sameSlots = other.slots_ && entries_.capacity() == other.entries_.capacity();
  if (!sameSlots) {
    buildIndex();
    return;
  }
  slots_ = std::make_unique_for_overwrite<std::uint32_t[]>(slotCount());
  std::copy_n(other.slots_.get(), slotCount(), slots_.get());
}

Dictionary& Dictionary::operator=(const Dictionary& other) {
  return *this = Dictionary(other);
}

std::size_t Dictionary::size() const {
  return entries_.size();
}
const Dictionary::Entry* Dictionary::begin() const {
  return entries_.data();
}
const Dictionary::Entry* Dictionary::end() const {
  return entries_.data() + entries_.size();
}

const Value* Dictionary::find(std::string_view key) const {
  const std::size_t index = indexOf(key);
  return index == kAbsent ? nullptr : &entries_[index].value;
}

Value* Dictionary::find(std::string_view key) {
  return const_cast<Value*>(std::as_const(*this).find(key));
}

void Dictionary::set(std::string_view key, Value value) {
  Value* place = find(key);
  if (!place) place = append(key);
  *place = std::move(value);
}

bool Dictionary::insert(std::string_view key, Value value) {
  Value* place = append(key);
  if (place) *place = std::move(value);
  return place != nullptr;
}

Value* Dictionary::append(std::string_view key) {
  std::size_t slot = 0;
  if (slots_) {
    slot = slotOf(key);
    if (slots_[slot]) return nullptr;
  } else if (indexOf(key) != kAbsent) {
    return nullptr;
  }
  const bool grows = entries_.size() == entries_.capacity();
  entries_.emplace_back().key.assign(key);
  if (slots_ && !grows)
    slots_[slot] = static_cast<std::uint32_t>(entries_.size());
  else
    buildIndex();
  return &entries_.back().value;
}

bool Dictionary::remove(std::string_view key) {
  const std::size_t index = indexOf(key);
  if (index == kAbsent) return false;
  entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(index));
  buildIndex();
  return true;
}

void Dictionary::removeIf(bool (*isUnwanted)(const Value& value)) {
  const auto removed =
      std::erase_if(entries_, [&](const Entry& entry) { return isUnwanted(entry.value); });
  if (removed > 0) buildIndex();
}

void Dictionary::reserve(std::size_t entries) {
  if (entries <= entries_.capacity()) return;
  entries_.reserve(entries);
  buildIndex();
}

std::size_t Dictionary::slotCount() const {
  return std::bit_ceil(entries_.capacity()) * 2;
}

std::size_t Dictionary::slotOf(std::string_view key) const {
  const std::size_t mask = slotCount() - 1;
  std::size_t slot = hashText(key) & mask;
  while (slots_[slot] && entries_[slots_[slot] - 1].key != key) slot = (slot + 1) & mask;
  return slot;
}

std::size_t Dictionary::indexOf(std::string_view key) const {
  if (slots_) return std::size_t{slots_[slotOf(key)]} - 1;
  for (std::size_t i = 0; i < entries_.size(); ++i)
    if (entries_[i].key == key) return i;
  return kAbsent;
}

void Dictionary::buildIndex() {
  if (entries_.capacity() <= kUnindexed) return slots_.reset();
  slots_ = std::make_unique<std::uint32_t[]>(slotCount());
  for (std::uint32_t i = 0; i < entries_.size(); ++i) slots_[slotOf(entries_[i].key)] = i + 1;
}

}  // namespace plist
