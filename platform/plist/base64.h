#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/plist/value.h"

namespace plist {

// Base64 with padding, in one line.
std::string writeBase64(const Data& data);

enum class Base64Form {
  Strict,   // nothing but digits and the padding that they need
  Lenient,  // blanks and line ends anywhere; any padding behind the digits, or none
};

// Nothing for text that is not Base64 of that form.
std::optional<Data> readBase64(std::string_view text, Base64Form form);

}  // namespace plist
