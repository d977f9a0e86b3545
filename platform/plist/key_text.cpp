#include "platform/plist/key_text.h"

#include <charconv>

#include "platform/plist/hexadecimal.h"

namespace plist {
namespace {

template <class Number>
std::string digits(Number number) {
  char buffer[32];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, number).ptr;
  return {buffer, end};
}

std::string hexadecimal(const Data& data) {
  std::string text;
  text.reserve(2 * data.bytes.size() + 2);
  text += '<';
  for (const std::uint8_t byte : data.bytes) appendHex(text, byte);
  return text += '>';
}

}  // namespace

std::string keyText(const Value& leaf) {
  switch (leaf.kind()) {
    case Kind::Boolean:
      return *leaf.boolean() ? "true" : "false";
    case Kind::Integer:
      return leaf.integer() ? digits(*leaf.integer()) : digits(*leaf.unsignedInteger());
    case Kind::Real:
      return leaf.isSinglePrecision() ? digits(static_cast<float>(*leaf.real()))
                                      : digits(*leaf.real());
    case Kind::Text:
      return *leaf.text();
    case Kind::Data:
      return hexadecimal(*leaf.data());
    case Kind::Date:
      return digits(leaf.date()->seconds);
    case Kind::Uid:
      return digits(leaf.uid()->index);
    default:
      return "null";
  }
}

}  // namespace plist
