// Any value comes back as it was, from a property list or from an archive: the first byte says from
// which, the rest is the value. Its cost is that of the value, so inputs are best kept short (see
// scripts/fuzz); the corpus has values too deep to be written.
#include <algorithm>
#include <bit>

#include "fuzz/require.h"
#include "platform/archive/keyed_archive.h"

namespace {

using plist::Value;

// Builds a value out of bytes: each takes what it needs, and zeros follow the last.
class Source {
 public:
  Source(const std::uint8_t* data, std::size_t size) : at_(data), left_(size) {}

  bool isEmpty() const { return left_ == 0; }

  std::uint8_t byte() {
    if (left_ == 0) return 0;
    --left_;
    return *at_++;
  }

  std::uint64_t word() {
    std::uint64_t word = 0;
    for (int i = 0; i < 8; ++i) word = word << 8 | byte();
    return word;
  }

  // A few characters out of one, two, three and four bytes.
  std::string text() {
    static constexpr std::string_view kCharacters[] = {
        "a", "b", "$null", "\xC3\xA9", "\xE2\x82\xAC", "\xF0\x9F\x98\x80", "NS.keys", "\x01"};
    std::string text;
    for (std::uint8_t count = byte() % 24; count > 0; --count) text += kCharacters[byte() % 8];
    return text;
  }

  Value leaf(std::uint8_t type) {
    switch (type % 10) {
      case 0:
        return Value();
      case 1:
        return byte() % 2 == 0;
      case 2:
        return std::uint64_t{byte()};
      case 3:
        return static_cast<std::int64_t>(word());
      case 4:
        return word();
      case 5:
        return std::bit_cast<float>(static_cast<std::uint32_t>(word()));
      case 6:
        return std::bit_cast<double>(word());
      case 7:
        return plist::Date{std::bit_cast<double>(word())};
      case 8: {
        plist::Data data;
        for (std::uint8_t count = byte(); count > 0; --count) data.bytes.push_back(byte());
        return data;
      }
      default:
        return text();
    }
  }

 private:
  const std::uint8_t* at_;
  std::size_t left_;
};

// A byte is an opening of a container, its closing, or a leaf.
Value build(Source source) {
  std::vector<Value> open(1, plist::Array());
  const auto put = [&](Value value) {
    if (plist::Dictionary* dictionary = open.back().dictionary())
      dictionary->set(source.text(), std::move(value));
    else if (plist::Set* set = open.back().set())
      set->members.push_back(std::move(value));
    else
      open.back().array()->push_back(std::move(value));
  };
  const auto close = [&] {
    Value closed = std::move(open.back());
    open.pop_back();
    put(std::move(closed));
  };
  while (!source.isEmpty()) {
    const std::uint8_t type = source.byte();
    if (type < 40)
      open.emplace_back(plist::Array());
    else if (type < 80)
      open.emplace_back(plist::Dictionary());
    else if (type < 90)
      open.emplace_back(plist::Set());
    else if (type >= 130)
      put(source.leaf(type));
    else if (open.size() > 1)
      close();
  }
  while (open.size() > 1) close();
  return std::move(open.front());
}

std::size_t depthOf(const Value& value) {
  std::size_t deepest = 0;
  std::vector<std::pair<const Value*, std::size_t>> pending = {{&value, 1}};
  while (!pending.empty()) {
    const auto [container, depth] = pending.back();
    pending.pop_back();
    deepest = std::max(deepest, depth);
    const auto add = [&, at = depth](const Value& member) {
      if (member.isContainer()) pending.emplace_back(&member, at + 1);
    };
    if (const auto* array = container->array()) {
      for (const Value& member : *array) add(member);
    } else if (const auto* set = container->set()) {
      for (const Value& member : set->members) add(member);
    } else {
      for (const auto& entry : *container->dictionary()) add(entry.value);
    }
  }
  return deepest;
}

void throughPropertyList(const Value& value, bool fits) {
  const auto bytes = plist::writeBinary(value);
  require(static_cast<bool>(bytes) == fits);
  if (!fits) return;
  const auto read = plist::readBinary(*bytes);
  require(read && *read == value);
}

void throughArchive(const Value& value, bool fits) {
  const auto bytes = archive::archive(value, archive::Mutability::Immutable);
  require(static_cast<bool>(bytes) == fits);
  if (!fits) return;
  const auto decoded = archive::unarchive(plist::Bytes(*bytes));
  require(decoded && *decoded == value);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Source source(data, size);
  const bool archived = source.byte() % 2 == 1;
  const Value value = build(source);
  require(Value(value) == value);
  const bool fits = depthOf(value) <= plist::kMaximumDepth;
  archived ? throughArchive(value, fits) : throughPropertyList(value, fits);
  return 0;
}
