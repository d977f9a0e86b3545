#include "platform/foundation/text.h"

#include <cstdint>

#include "platform/plist/hexadecimal.h"
#include "platform/plist/utf.h"

namespace foundation {
namespace {

bool controlsTerminal(char32_t point) {
  if (point < 0x20) return point != '\n' && point != '\t';
  const bool isMark = point == 0x61C || point == 0x200E || point == 0x200F;
  return (point >= 0x7F && point <= 0x9F) || isMark || (point >= 0x202A && point <= 0x202E) ||
         (point >= 0x2066 && point <= 0x2069);
}

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";
constexpr std::string_view kBlanks = " \t\n\v\f\r";

bool holdsBidirectionalControl(std::string_view text) {
  constexpr std::string_view kControls[] = {"\u061C", "\u200E", "\u200F", "\u202A",
                                            "\u202B", "\u202C", "\u202D", "\u202E",
                                            "\u2066", "\u2067", "\u2068", "\u2069"};
  for (const std::string_view control : kControls) {
    if (text.find(control) != std::string_view::npos) return true;
  }
  return false;
}

bool truthOfText(std::string_view text) {
  const auto skip = [&](std::string_view characters) {
    text.remove_prefix(std::min(text.find_first_not_of(characters), text.size()));
  };
  skip(kBlanks);
  if (text.empty()) return false;
  if (std::string_view("tTyY").find(text.front()) != std::string_view::npos) return true;
  if (text.front() == '+' || text.front() == '-') text.remove_prefix(1);
  skip("0");
  return !text.empty() && text.front() >= '1' && text.front() <= '9';
}

}  // namespace

std::string_view lastPathComponent(std::string_view path) {
  while (path.size() > 1 && path.back() == '/') path.remove_suffix(1);
  if (path == "/") return path;
  return path.substr(path.rfind('/') + 1);
}

std::string_view pathExtension(std::string_view path) {
  const std::string_view name = lastPathComponent(path);
  const std::size_t dot = name.rfind('.');
  if (dot == std::string_view::npos || dot == 0) return {};
  const std::string_view extension = name.substr(dot + 1);
  if (extension.find(' ') != std::string_view::npos) return {};
  return holdsBidirectionalControl(extension) ? std::string_view() : extension;
}

bool isUtf8(std::string_view bytes) {
  return !plist::firstNotUtf8(bytes);
}

std::string replacingInvalidUtf8(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  while (!bytes.empty()) {
    const plist::Character first = plist::firstCharacter(bytes);
    text += first.isValid ? bytes.substr(0, first.size) : kReplacement;
    bytes.remove_prefix(first.size);
  }
  return text;
}

std::string visibleText(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  while (!bytes.empty()) {
    const auto [point, size, isValid] = plist::firstCharacter(bytes);
    if (!isValid) {
      for (const char byte : bytes.substr(0, size))
        plist::appendHex(text += "\\x", static_cast<std::uint8_t>(byte));
    } else if (controlsTerminal(point)) {
      plist::appendHex(text += "\\u", static_cast<std::uint8_t>(point >> 8));
      plist::appendHex(text, static_cast<std::uint8_t>(point));
    } else {
      text += bytes.substr(0, size);
    }
    bytes.remove_prefix(size);
  }
  return text;
}

bool boolValue(const plist::Value& value) {
  if (const std::string* text = value.text()) return truthOfText(*text);
  if (const auto real = value.real()) return *real != 0;
  if (const auto boolean = value.boolean()) return *boolean;
  return value.kind() == plist::Kind::Integer && value.integer() != std::int64_t{0};
}

}  // namespace foundation
