#include "platform/plist/binary_objects.h"

#include <bit>
#include <cstring>
#include <memory>

#include "platform/plist/utf.h"

namespace plist {
namespace {

constexpr std::size_t kHeader = 8, kTrailer = 32;
constexpr std::string_view kMagic = "bplist0";  // then any character

enum Unit : std::uint8_t { kByte, kTwoBytes, kReference, kTwoReferences };

// What the first byte of an object says. An extended count follows as an integer object.
struct Marker {
  ObjectType type = ObjectType::Malformed;
  Unit unit = kByte;
  std::uint8_t count = 0;
  bool isExtended = false;
};

constexpr std::array<Marker, 256> describeMarkers() {
  using enum ObjectType;
  std::array<Marker, 256> markers{};
  const auto fixed = [&markers](unsigned byte, ObjectType type, unsigned size) {
    markers[byte] = {type, kByte, static_cast<std::uint8_t>(size), false};
  };
  const auto counted = [&markers](unsigned high, ObjectType type, Unit unit) {
    for (unsigned low = 0; low < 15; ++low)
      markers[high << 4 | low] = {type, unit, static_cast<std::uint8_t>(low), false};
    markers[high << 4 | 15] = {type, unit, 0, true};
  };
  fixed(0x00, Null, 0), fixed(0x08, False, 0), fixed(0x09, True, 0);
  for (unsigned power = 0; power <= 4; ++power) fixed(0x10 | power, Integer, 1 << power);
  fixed(0x22, Real, 4), fixed(0x23, Real, 8), fixed(0x33, Date, 8);
  counted(0x4, Data, kByte);
  counted(0x5, Ascii, kByte);
  counted(0x6, Utf16, kTwoBytes);
  for (unsigned size = 1; size <= 16; ++size) fixed(0x80 | (size - 1), Uid, size);
  counted(0xA, Array, kReference);
  counted(0xC, Set, kReference);
  counted(0xD, Dictionary, kTwoReferences);
  return markers;
}

constexpr std::array<Marker, 256> kMarkers = describeMarkers();

// Whether a number this wide can't number that many things.
bool isTooNarrow(std::size_t size, std::uint64_t numbers) {
  return size == 0 || (size < 8 && numbers >> (8 * size) != 0);
}

}  // namespace

platform::Result<ObjectTable, Error> ObjectTable::open(Bytes bytes) {
  ObjectTable table;
  table.bytes_ = bytes;
  if (const auto error = table.readTrailer()) return *error;
  if (const auto error = table.readObjects()) return *error;
  return table;
}

std::optional<Error> ObjectTable::readTrailer() {
  const std::size_t size = bytes_.size();
  if (size < kMagic.size() || std::memcmp(bytes_.data(), kMagic.data(), kMagic.size()) != 0)
    return Error{ErrorKind::Header, 0};
  if (size < kHeader + 1 + 1 + kTrailer) return Error{ErrorKind::Truncated, size};
  if (size > UINT32_MAX) return Error{ErrorKind::TooLarge, size};

  const std::size_t at = size - kTrailer;
  const std::uint8_t* trailer = bytes_.data() + at;
  offsetSize_ = trailer[6];
  referenceSize_ = trailer[7];
  count_ = readSized(trailer + 8, 8);
  top_ = readSized(trailer + 16, 8);
  const std::uint64_t tableAt = readSized(trailer + 24, 8);

  if (count_ == 0 || count_ > size) return Error{ErrorKind::ObjectCount, at + 8};
  if (top_ >= count_) return Error{ErrorKind::TopObject, at + 16};
  if (isTooNarrow(offsetSize_, tableAt)) return Error{ErrorKind::OffsetSize, at + 6};
  if (isTooNarrow(referenceSize_, count_)) return Error{ErrorKind::ReferenceSize, at + 7};
  if (tableAt <= kHeader || tableAt > at || count_ > (at - tableAt) / offsetSize_ ||
      tableAt + count_ * offsetSize_ != at)
    return Error{ErrorKind::TableEnd, at + 24};
  table_ = bytes_.data() + tableAt;
  unitSizes_ = {1, 2, referenceSize_, 2 * referenceSize_};
  return {};
}

std::optional<Error> ObjectTable::readObjects() {
  const auto tableAt = static_cast<std::size_t>(table_ - bytes_.data());
  objects_ = std::make_unique_for_overwrite<Object[]>(count_);
  const std::uint8_t* entry = table_;
  for (std::uint64_t i = 0; i < count_; ++i, entry += offsetSize_) {
    const std::uint64_t offset = readSized(entry, offsetSize_);
    if (offset >= tableAt)
      return Error{ErrorKind::ObjectOffset, static_cast<std::size_t>(entry - bytes_.data())};
    readObject(offset, objects_[i]);
  }
  return {};
}

// Leaves the object malformed when it returns why.
inline std::optional<ErrorKind> ObjectTable::readObject(std::size_t offset, Object& object) const {
  object.type = ObjectType::Malformed;
  if (offset < kHeader) return ErrorKind::ObjectOffset;
  const std::uint8_t* at = bytes_.data() + offset;
  const Marker marker = kMarkers[*at++];
  if (marker.type == ObjectType::Malformed) return ErrorKind::Marker;
  std::uint64_t count = marker.count;
  if (marker.isExtended && !readLength(at, count)) return ErrorKind::Length;
  const auto left = static_cast<std::size_t>(table_ - at);
  if (count > left || count * unitSizes_[marker.unit] > left) return ErrorKind::ObjectEnd;
  object.cost = memoryCost(marker.type, count);
  if (marker.type == ObjectType::Uid) {
    count = readSized(at, count);
    if (count > UINT32_MAX) return ErrorKind::UidRange;
  }
  object.payload = at;
  object.count = static_cast<std::uint32_t>(count);
  object.type = marker.type;
  return {};
}

inline bool ObjectTable::readLength(const std::uint8_t*& at, std::uint64_t& length) const {
  if (at >= table_ || kMarkers[*at].type != ObjectType::Integer) return false;
  const std::size_t size = kMarkers[*at++].count;
  if (static_cast<std::size_t>(table_ - at) < size) return false;
  length = readSized(at, size);
  at += size;
  return true;
}

Error ObjectTable::errorOf(std::uint64_t index) const {
  if (index >= count_) return {ErrorKind::Reference, 0};
  Object object;
  const std::size_t offset = offsetOf(index);
  const ErrorKind kind = readObject(offset, object).value_or(ErrorKind{});
  const bool isEntry = kind == ErrorKind::ObjectOffset;
  return {kind, isEntry ? static_cast<std::size_t>(table_ - bytes_.data()) + index * offsetSize_
                        : offset};
}

bool Object::hasUnits(std::string_view ascii) const {
  if (type == ObjectType::Ascii) return std::memcmp(payload, ascii.data(), count) == 0;
  if (type != ObjectType::Utf16) return false;
  for (std::size_t i = 0; i < count; ++i)
    if (payload[2 * i] != 0 || payload[2 * i + 1] != static_cast<std::uint8_t>(ascii[i]))
      return false;
  return true;
}

void Object::readText(std::string& text) const {
  if (type == ObjectType::Ascii)
    readLatin1(payload, count, text);
  else
    readUtf16(payload, count, text);
}

void Object::read(Value& value) const {
  const auto put = [&value](auto content) {
    std::destroy_at(&value);
    std::construct_at(&value, content);
  };
  switch (type) {
    case ObjectType::False:
      return put(false);
    case ObjectType::True:
      return put(true);
    case ObjectType::Integer:
      return count == 8 ? put(static_cast<std::int64_t>(bits())) : put(bits());
    case ObjectType::Real:
      return count == 4 ? put(std::bit_cast<float>(static_cast<std::uint32_t>(bits())))
                        : put(std::bit_cast<double>(bits()));
    case ObjectType::Date:
      return put(Date{std::bit_cast<double>(bits())});
    case ObjectType::Uid:
      return put(Uid{uid()});
    case ObjectType::Data:
      value.become<Data>().bytes.assign(payload, payload + count);
      return;
    case ObjectType::Ascii:
    case ObjectType::Utf16:
      return readText(value.become<std::string>());
    default:
      return;
  }
}

}  // namespace plist
