#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>

#include "host/request.h"

namespace drive {

// Objects keep the order in which they are made.
using Json = nlohmann::ordered_json;

// A value as JSON: data is {"$data": base64}, a date {"$date": "2026-01-31T12:00:00Z"} in whole
// seconds, a UID {"CF$UID": number}, a set an array, nothing null. A 4-byte real has the digits
// that distinguish it from its 4-byte neighbours.
Json toJson(const plist::Value& value);

// A document of one line; the error says what is wrong with it.
inline constexpr std::size_t kLongestLine = 16 << 20;  // bytes
inline constexpr int kDeepest = 64;                    // arrays and objects within each other
platform::Result<Json> parse(std::string_view line);

// The value of a document that was parsed, data and dates in the forms above. Empty for one whose
// data or date can't be read.
std::optional<plist::Value> fromJson(const Json& json);

// One line of text without blanks. Reals always have a decimal point and as many digits as it takes
// to read the same number back; those that JSON has no form for (NaN, infinity) are null. Bytes
// that are no UTF-8 become U+FFFD.
std::string textOf(const Json& json);

// A value as people type and read it: text bare, all else as JSON.
std::string plainTextOf(const plist::Value& value);

}  // namespace drive
