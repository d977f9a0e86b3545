#include "drive/json.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "host/text.h"

namespace drive {
namespace {

constexpr int kFirstYear = 1;  // of a date

Json::object_t object() {
  return {};
}

Json wrapped(const char* key, Json json) {
  auto members = object();
  members.emplace_back(key, std::move(json));
  return members;
}

// The double whose shortest text is that of the 4-byte real.
double widened(float real) {
  char text[32];
  const auto end = std::to_chars(text, text + sizeof text, real).ptr;
  double wide = real;
  std::from_chars(text, end, wide);
  return wide;
}

Json realJson(const plist::Value& value) {
  const double real = *value.real();
  return value.isSinglePrecision() && std::isfinite(real) ? widened(static_cast<float>(real))
                                                          : real;
}

Json integerJson(const plist::Value& value) {
  if (auto integer = value.integer()) return *integer;
  return *value.unsignedInteger();
}

Json arrayJson(const plist::Array& array) {
  Json::array_t members;
  members.reserve(array.size());
  for (const plist::Value& member : array) members.push_back(toJson(member));
  return members;
}

Json dictionaryJson(const plist::Dictionary& dictionary) {
  auto members = object();
  members.reserve(dictionary.size());
  for (const auto& entry : dictionary) members.emplace_back(entry.key, toJson(entry.value));
  return members;
}

std::optional<plist::Value> fromArray(const Json& json) {
  plist::Array array;
  for (const Json& member : json) {
    auto value = fromJson(member);
    if (!value) return std::nullopt;
    array.push_back(std::move(*value));
  }
  return plist::Value(std::move(array));
}

std::optional<plist::Value> fromData(std::string_view text) {
  auto data = host::readBase64(text, host::Base64Form::Strict);
  if (!data) return std::nullopt;
  return plist::Value(std::move(*data));
}

std::optional<plist::Value> fromDate(std::string_view text) {
  const auto date = host::readDate(text);
  const bool isYearBeforeZero = text.starts_with('-'), isLeapSecond = text.ends_with(":60Z");
  if (!date || isYearBeforeZero || isLeapSecond) return std::nullopt;
  return plist::Value(*date);
}

std::optional<plist::Value> fromObject(const Json& json) {
  if (json.size() == 1 && json.begin().value().is_string()) {
    const auto& text = json.begin().value().get_ref<const std::string&>();
    if (json.begin().key() == "$data") return fromData(text);
    if (json.begin().key() == "$date") return fromDate(text);
  }
  plist::Dictionary dictionary;
  for (const auto& [key, member] : json.items()) {
    auto value = fromJson(member);
    if (!value) return std::nullopt;
    dictionary.insert(key, std::move(*value));
  }
  return plist::Value(std::move(dictionary));
}

// How deep arrays and objects are within each other, at most; of a text that is not JSON, as deep
// as its brackets open.
int depthOf(std::string_view text) {
  int depth = 0, deepest = 0;
  bool inText = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (inText && c == '\\')
      ++i;
    else if (c == '"')
      inText = !inText;
    else if (!inText && (c == '[' || c == '{'))
      deepest = std::max(deepest, ++depth);
    else if (!inText && (c == ']' || c == '}'))
      --depth;
  }
  return deepest;
}

void writeReal(double real, std::string& out) {
  if (!std::isfinite(real)) {
    out += "null";
    return;
  }
  char text[32];
  const std::string_view digits(text, std::to_chars(text, text + sizeof text, real).ptr - text);
  const std::size_t exponent = std::min(digits.find('e'), digits.size());
  out += digits.substr(0, exponent);
  if (digits.find('.') == std::string_view::npos) out += ".0";
  out += digits.substr(exponent);
}

void writeText(std::string_view text, std::string& out) {
  out += '"';
  for (const char c : text) {
    const auto code = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\')
      (out += '\\') += c;
    else if (c == '\n')
      out += "\\n";
    else if (c == '\t')
      out += "\\t";
    else if (code < 0x20 || code == 0x7F) {
      constexpr char kDigits[] = "0123456789abcdef";
      ((out += "\\u00") += kDigits[code >> 4]) += kDigits[code & 15];
    } else
      out += c;
  }
  out += '"';
}

void write(const Json& json, std::string& out);

void writeMembers(const Json& json, std::string& out) {
  bool first = true;
  out += json.is_object() ? '{' : '[';
  for (auto member = json.begin(); member != json.end(); ++member) {
    if (!std::exchange(first, false)) out += ',';
    if (json.is_object()) {
      writeText(host::replacingInvalidUtf8(member.key()), out);
      out += ':';
    }
    write(*member, out);
  }
  out += json.is_object() ? '}' : ']';
}

void write(const Json& json, std::string& out) {
  switch (json.type()) {
    case Json::value_t::boolean:
      out += json.get<bool>() ? "true" : "false";
      break;
    case Json::value_t::number_integer:
      out += std::to_string(json.get<std::int64_t>());
      break;
    case Json::value_t::number_unsigned:
      out += std::to_string(json.get<std::uint64_t>());
      break;
    case Json::value_t::number_float:
      writeReal(json.get<double>(), out);
      break;
    case Json::value_t::string:
      writeText(host::replacingInvalidUtf8(json.get_ref<const std::string&>()), out);
      break;
    case Json::value_t::array:
    case Json::value_t::object:
      writeMembers(json, out);
      break;
    default:
      out += "null";
  }
}

}  // namespace

Json toJson(const plist::Value& value) {
  switch (value.kind()) {
    case plist::Kind::Nothing:
      return nullptr;
    case plist::Kind::Boolean:
      return *value.boolean();
    case plist::Kind::Integer:
      return integerJson(value);
    case plist::Kind::Real:
      return realJson(value);
    case plist::Kind::Text:
      return *value.text();
    case plist::Kind::Data:
      return wrapped("$data", host::writeBase64(*value.data()));
    case plist::Kind::Date:
      return wrapped("$date", host::writeDate(*value.date(), kFirstYear));
    case plist::Kind::Uid:
      return wrapped("CF$UID", value.uid()->index);
    case plist::Kind::Array:
      return arrayJson(*value.array());
    case plist::Kind::Set:
      return arrayJson(value.set()->members);
    case plist::Kind::Dictionary:
      return dictionaryJson(*value.dictionary());
  }
  return nullptr;
}

platform::Result<Json> parse(std::string_view line) {
  if (line.size() > kLongestLine) return platform::Error{.what = "the line is longer than 16 MB"};
  if (depthOf(line) > kDeepest)
    return platform::Error{.what = "the line is nested more than 64 levels deep"};
  Json json = Json::parse(line, nullptr, false);
  if (json.is_discarded()) return platform::Error{.what = "the line is no JSON"};
  return json;
}

std::optional<plist::Value> fromJson(const Json& json) {
  switch (json.type()) {
    case Json::value_t::boolean:
      return plist::Value(json.get<bool>());
    case Json::value_t::number_integer:
      return plist::Value(json.get<std::int64_t>());
    case Json::value_t::number_unsigned:
      return plist::Value(json.get<std::uint64_t>());
    case Json::value_t::number_float:
      return plist::Value(json.get<double>());
    case Json::value_t::string:
      return plist::Value(json.get<std::string>());
    case Json::value_t::array:
      return fromArray(json);
    case Json::value_t::object:
      return fromObject(json);
    default:
      return plist::Value();
  }
}

std::string textOf(const Json& json) {
  std::string out;
  write(json, out);
  return out;
}

std::string plainTextOf(const plist::Value& value) {
  if (const std::string* text = value.text()) return host::replacingInvalidUtf8(*text);
  return textOf(toJson(value));
}

}  // namespace drive
