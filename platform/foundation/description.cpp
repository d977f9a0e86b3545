#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <vector>

#include "platform/foundation/text.h"
#include "platform/plist/date_text.h"
#include "platform/plist/hexadecimal.h"

namespace foundation {
namespace {

using plist::Kind;
using plist::Value;

// Not printf: its decimal point is the locale's.
std::string describeReal(double real, int digits) {
  char text[40];
  const auto end =
      std::to_chars(text, text + sizeof text, real, std::chars_format::general, digits);
  return std::string(text, end.ptr);
}

std::string describeData(const plist::Data& data) {
  std::string text = "<";
  for (std::size_t index = 0; index < data.bytes.size(); ++index) {
    if (index > 0 && index % 4 == 0) text += ' ';
    plist::appendHex(text, data.bytes[index]);
  }
  return text + ">";
}

std::string describeDate(const plist::Date& date) {
  if (!(std::abs(date.seconds) < plist::kCalendarEnd)) return describeReal(date.seconds, 16) + " s";
  const auto [year, month, day, hour, minute, second] = plist::calendarTime(date);
  char text[64];
  std::snprintf(text, sizeof text, "%04d-%02u-%02u %02d:%02d:%02d +0000", year, month, day, hour,
                minute, second);
  return text;
}

std::string describeLeaf(const Value& value) {
  switch (value.kind()) {
    case Kind::Boolean:
      return *value.boolean() ? "1" : "0";
    case Kind::Integer:
      return value.integer() ? std::to_string(*value.integer())
                             : std::to_string(*value.unsignedInteger());
    case Kind::Real:
      return describeReal(*value.real(), value.isSinglePrecision() ? 7 : 16);
    case Kind::Text:
      return *value.text();
    case Kind::Data:
      return describeData(*value.data());
    case Kind::Date:
      return describeDate(*value.date());
    case Kind::Uid:
      return "<UID " + std::to_string(value.uid()->index) + ">";
    default:
      return "(null)";
  }
}

// Inside a container a text that could be taken for something else stands in quotes.
std::string quoted(const std::string& text) {
  const auto plain = [](unsigned char c) {
    return (c | 32) >= 'a' && (c | 32) <= 'z' ? true : (c >= '0' && c <= '9') || c == '_';
  };
  if (!text.empty() && std::all_of(text.begin(), text.end(), plain)) return text;
  std::string result = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') result += '\\';
    result += c == '\n' ? std::string("\\n") : std::string(1, c);
  }
  return result + "\"";
}

// The containers that are open at some point of the walk, innermost last.
struct Open {
  const plist::Array* members = nullptr;
  const plist::Dictionary* entries = nullptr;
  std::string_view closer;
  std::size_t next = 0;

  std::size_t size() const { return members ? members->size() : entries->size(); }
};

class Description {
 public:
  std::string of(const Value& value) {
    add(value);
    while (!open_.empty()) step();
    return std::move(text_);
  }

 private:
  void add(const Value& value) {
    if (const auto* array = value.array()) {
      text_ += "(";
      open_.push_back({.members = array, .closer = ")"});
    } else if (const auto* set = value.set()) {
      text_ += "{(";
      open_.push_back({.members = &set->members, .closer = ")}"});
    } else if (const auto* dictionary = value.dictionary()) {
      text_ += "{";
      open_.push_back({.entries = dictionary, .closer = "}"});
    } else {
      text_ += value.text() && !open_.empty() ? quoted(*value.text()) : describeLeaf(value);
    }
  }

  void step() {
    Open& top = open_.back();
    const std::size_t index = top.next++;
    if (index > 0) text_ += top.entries ? ";" : index < top.size() ? "," : "";
    if (index == top.size()) {
      newLine(open_.size() - 1);
      text_ += top.closer;
      open_.pop_back();
      return;
    }
    newLine(open_.size());
    if (top.members) return add((*top.members)[index]);
    const auto& entry = top.entries->begin()[index];
    text_ += quoted(entry.key) + " = ";
    add(entry.value);
  }

  void newLine(std::size_t depth) {
    constexpr std::size_t kDeepestIndent = 32;  // or a deep value takes the square of its depth
    text_ += '\n';
    text_.append(4 * std::min(depth, kDeepestIndent), ' ');
  }

  std::string text_;
  std::vector<Open> open_;
};

}  // namespace

std::string descriptionOf(const Value& value) {
  return Description().of(value);
}

}  // namespace foundation
