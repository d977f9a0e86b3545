#include "platform/plist/object_writer.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "platform/plist/utf.h"

namespace plist {
namespace {

constexpr std::string_view kHeader = "bplist00";
constexpr std::size_t kTrailer = 32;
constexpr std::size_t kLongestStart = 1 + 1 + 8;  // marker, length's marker, length
constexpr std::size_t kFirstCapacity = 4096, kFirstCount = 256, kFirstGaps = 16;

std::size_t widthFor(std::uint64_t number) {
  return number < 0x100 ? 1 : number < 0x10000 ? 2 : number < 0x100000000 ? 4 : 8;
}

std::uint8_t* writeSized(std::uint64_t number, std::size_t size, std::uint8_t* to) {
  if (size == 1) {
    *to = static_cast<std::uint8_t>(number);
    return to + 1;
  }
  for (std::size_t i = size; i > 0; --i, number >>= 8)
    to[i - 1] = static_cast<std::uint8_t>(number);
  return to + size;
}

unsigned powerOf(std::size_t size) {
  return static_cast<unsigned>(std::countr_zero(size));
}

std::uint8_t* writeStart(unsigned high, std::uint64_t count, std::uint8_t* to) {
  *to++ = static_cast<std::uint8_t>(high << 4 | (count < 15 ? count : 15));
  if (count < 15) return to;
  const std::size_t size = widthFor(count);
  *to++ = static_cast<std::uint8_t>(0x10 | powerOf(size));
  return writeSized(count, size, to);
}

}  // namespace

ObjectWriter::ObjectWriter()
    : bytes_(std::make_unique_for_overwrite<std::uint8_t[]>(kFirstCapacity)),
      at_(kHeader.size()),
      capacity_(kFirstCapacity) {
  std::memcpy(bytes_.get(), kHeader.data(), kHeader.size());
  offsets_.reserve(kFirstCount);
  gaps_.reserve(kFirstGaps);
  members_.reserve(kFirstCount);
}

// Where the next object of at most this size goes.
inline std::uint8_t* ObjectWriter::begin(std::size_t size) {
  if (size > capacity_ - at_) grow(size);
  offsets_.push_back(at_);
  return bytes_.get() + at_;
}

void ObjectWriter::grow(std::size_t size) {
  capacity_ = std::max(2 * capacity_, at_ + size);
  auto larger = std::make_unique_for_overwrite<std::uint8_t[]>(capacity_);
  std::memcpy(larger.get(), bytes_.get(), at_);
  bytes_ = std::move(larger);
}

std::uint32_t ObjectWriter::addSized(unsigned marker, std::uint64_t number, std::size_t size) {
  std::uint8_t* to = begin(1 + size);
  *to++ = static_cast<std::uint8_t>(marker);
  end(writeSized(number, size, to));
  return last();
}

std::uint32_t ObjectWriter::addUid(std::uint32_t index) {
  const std::size_t size = widthFor(index);
  return addSized(0x80 | static_cast<unsigned>(size - 1), index, size);
}

std::uint32_t ObjectWriter::addText(std::string_view utf8, bool isAscii) {
  chargeText(utf8);
  std::uint8_t* to = begin(kLongestStart + 2 * utf8.size());
  if (isAscii) {
    to = writeStart(0x5, utf8.size(), to);
    std::memcpy(to, utf8.data(), utf8.size());
    end(to + utf8.size());
  } else {
    end(writeUtf16(utf8, writeStart(0x6, utf16Units(utf8), to)));
  }
  return last();
}

// As if it were none but ASCII or wholly beyond, whichever costs more.
void ObjectWriter::chargeText(std::string_view text) {
  cost_ += memoryCost(ObjectType::Utf16, text.size());
}

std::uint32_t ObjectWriter::addData(const Data& data) {
  const std::size_t size = data.bytes.size();
  cost_ += memoryCost(ObjectType::Data, size);
  std::uint8_t* to = writeStart(0x4, size, begin(kLongestStart + size));
  std::copy(data.bytes.begin(), data.bytes.end(), to);
  end(to + size);
  return last();
}

std::uint32_t ObjectWriter::addInteger(const Value& integer) {
  const auto bits = integer.unsignedInteger();
  if (!bits) return addSized(0x13, static_cast<std::uint64_t>(*integer.integer()), 8);
  const std::size_t size = *bits > INT64_MAX ? 16 : widthFor(*bits);
  return addSized(0x10 | powerOf(size), *bits, size);
}

std::uint32_t ObjectWriter::addLeaf(const Value& leaf) {
  switch (leaf.kind()) {
    case Kind::Boolean:
      return addSized(*leaf.boolean() ? 0x09 : 0x08, 0, 0);
    case Kind::Integer:
      return addInteger(leaf);
    case Kind::Real:
      if (!leaf.isSinglePrecision())
        return addSized(0x23, std::bit_cast<std::uint64_t>(*leaf.real()), 8);
      return addSized(0x22, std::bit_cast<std::uint32_t>(static_cast<float>(*leaf.real())), 4);
    case Kind::Date:
      return addSized(0x33, std::bit_cast<std::uint64_t>(leaf.date()->seconds), 8);
    case Kind::Uid:
      return addUid(leaf.uid()->index);
    case Kind::Text:
      return addText(*leaf.text(), isAscii(*leaf.text()));
    case Kind::Data:
      return addData(*leaf.data());
    default:
      return addSized(0x00, 0, 0);
  }
}

ObjectWriter::Container ObjectWriter::addContainer(ObjectType type, std::size_t count) {
  const bool isDictionary = type == ObjectType::Dictionary;
  const unsigned high = isDictionary ? 0xD : type == ObjectType::Set ? 0xC : 0xA;
  cost_ += memoryCost(type, count);
  end(writeStart(high, count, begin(kLongestStart)));
  const std::size_t members = members_.size();
  gaps_.push_back({at_, members});
  members_.resize(members + (isDictionary ? 2 * count : count));
  return {last(), members};
}

std::vector<std::uint8_t> ObjectWriter::finish() {
  const std::size_t count = offsets_.size(), referenceSize = widthFor(count);
  const std::size_t table = at_ + members_.size() * referenceSize, offsetSize = widthFor(table);
  std::vector<std::uint8_t> all(table + count * offsetSize + kTrailer);
  std::uint8_t* to = all.data();
  std::size_t from = 0, member = 0;
  gaps_.push_back({at_, members_.size()});
  for (const Gap& gap : gaps_) {
    for (; member < gap.members; ++member) to = writeSized(members_[member], referenceSize, to);
    to = std::copy(bytes_.get() + from, bytes_.get() + gap.at, to);
    from = gap.at;
  }
  auto next = gaps_.begin();
  std::size_t before = 0;  // of the members, those that stand before an object
  for (const std::uint64_t offset : offsets_) {
    for (; next->at <= offset; ++next) before = (next + 1)->members;
    to = writeSized(offset + before * referenceSize, offsetSize, to);
  }
  to = writeSized(0, 6, to);
  to = writeSized(offsetSize, 1, to);
  to = writeSized(referenceSize, 1, to);
  to = writeSized(count, 8, to);
  to = writeSized(0, 8, to);
  writeSized(table, 8, to);
  return all;
}

}  // namespace plist
