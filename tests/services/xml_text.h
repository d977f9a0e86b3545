#pragma once

#include <string>
#include <string_view>

#include "services/xml_reader.h"
#include "services/xml_writer.h"

inline plist::Bytes asBytes(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

inline auto readXmlText(std::string_view text) {
  return services::readXml(asBytes(text));
}

// The value, or the message as text in angle brackets, which no accepted value of these tests is.
inline plist::Value read(std::string_view text) {
  auto value = readXmlText(text);
  return value ? std::move(*value) : plist::Value("<" + value.error().message() + ">");
}

// The message, or "" where the text was accepted.
inline std::string refusal(std::string_view text) {
  const auto value = readXmlText(text);
  return value ? "" : value.error().message();
}

inline std::string written(const plist::Value& value) {
  const auto bytes = services::writeXml(value);
  return bytes ? std::string(bytes->begin(), bytes->end()) : "<" + bytes.error().message() + ">";
}
