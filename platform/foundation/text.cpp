#include "platform/foundation/text.h"

#include <cstdint>

namespace foundation {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";
constexpr std::string_view kBlanks = " \t\n\v\f\r";

// How many bytes the character at the front takes; for a broken one as many as belong together,
// and at least one.
struct Character {
  std::size_t length;
  bool valid;
};

Character firstCharacter(std::string_view bytes) {
  const auto at = [&](std::size_t index) { return static_cast<std::uint8_t>(bytes[index]); };
  const std::uint8_t lead = at(0);
  if (lead < 0x80) return {1, true};
  if (lead < 0xC2 || lead > 0xF4) return {1, false};

  const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  std::uint8_t lowest = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
  std::uint8_t highest = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
  for (std::size_t index = 1; index < length; ++index) {
    if (index == bytes.size() || at(index) < lowest || at(index) > highest) return {index, false};
    lowest = 0x80;
    highest = 0xBF;
  }
  return {length, true};
}

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
  while (!bytes.empty()) {
    const Character first = firstCharacter(bytes);
    if (!first.valid) return false;
    bytes.remove_prefix(first.length);
  }
  return true;
}

std::string replacingInvalidUtf8(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  while (!bytes.empty()) {
    const Character first = firstCharacter(bytes);
    text += first.valid ? bytes.substr(0, first.length) : kReplacement;
    bytes.remove_prefix(first.length);
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
