#include "tests/platform_plist/dump.h"

#include <bit>
#include <cstdint>
#include <map>

namespace plist_test {
namespace {

template <class Byte>
void addHex(const Byte* bytes, std::size_t size, std::string& text) {
  static constexpr char kDigits[] = "0123456789abcdef";
  for (std::size_t i = 0; i < size; ++i) {
    const auto byte = static_cast<std::uint8_t>(bytes[i]);
    text += kDigits[byte >> 4];
    text += kDigits[byte & 15];
  }
}

void addBits(double real, std::string& text) {
  const auto bits = std::bit_cast<std::uint64_t>(real);
  for (int shift = 56; shift >= 0; shift -= 8) {
    const auto byte = static_cast<std::uint8_t>(bits >> shift);
    addHex(&byte, 1, text);
  }
}

void add(const plist::Value& value, std::string& text);

void addMembers(const plist::Array& members, std::string& text) {
  text += '[';
  for (const plist::Value& member : members) {
    add(member, text);
    text += ',';
  }
  text += ']';
}

void addEntries(const plist::Dictionary& dictionary, std::string& text) {
  std::map<std::string, const plist::Value*> sorted;
  for (const auto& entry : dictionary) sorted[entry.key] = &entry.value;
  text += '{';
  for (const auto& [key, value] : sorted) {
    addHex(key.data(), key.size(), text);
    text += ':';
    add(*value, text);
    text += ',';
  }
  text += '}';
}

void add(const plist::Value& value, std::string& text) {
  using plist::Kind;
  switch (value.kind()) {
    case Kind::Nothing:
      text += 'n';
      break;
    case Kind::Boolean:
      text += *value.boolean() ? "b1" : "b0";
      break;
    case Kind::Integer:
      text += 'i';
      text += value.integer() ? std::to_string(*value.integer())
                              : std::to_string(*value.unsignedInteger());
      break;
    case Kind::Real:
      text += 'r';
      addBits(*value.real(), text);
      break;
    case Kind::Text:
      text += 't';
      addHex(value.text()->data(), value.text()->size(), text);
      break;
    case Kind::Data:
      text += 'x';
      addHex(value.data()->bytes.data(), value.data()->bytes.size(), text);
      break;
    case Kind::Date:
      text += 'd';
      addBits(value.date()->seconds, text);
      break;
    case Kind::Uid:
      text += 'u' + std::to_string(value.uid()->index);
      break;
    case Kind::Array:
      addMembers(*value.array(), text);
      break;
    case Kind::Set:
      addMembers(value.set()->members, text);
      break;
    case Kind::Dictionary:
      addEntries(*value.dictionary(), text);
      break;
  }
}

}  // namespace

std::string dump(const plist::Value& value) {
  std::string text;
  add(value, text);
  return text;
}

}  // namespace plist_test
