#pragma once

#include <charconv>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foundation/text.h"
#include "platform/plist/base64.h"
#include "platform/plist/date_text.h"
#include "platform/plist/value.h"

namespace host {

using foundation::isUtf8;
using foundation::replacingInvalidUtf8;
using foundation::visibleText;
using plist::Base64Form;
using plist::readBase64;
using plist::readDate;
using plist::writeBase64;
using plist::writeDate;

// As a slider's value stands beside it: to a thousandth, without zeros at its end.
std::string numberText(double number);

// A number that is the whole of a text, decimal, with "." in every locale; nothing for any other
// text and for what the type can't hold.
template <class T>
std::optional<T> numberIn(std::string_view text) {
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  T number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  if (!std::isfinite(static_cast<double>(number))) return std::nullopt;
  return number;
}

// The text by which a user names a value: text itself, "true" or "false", a number in the fewest
// digits that read back as it, a real with a decimal point ("50.0"). Nothing for other kinds.
std::optional<std::string> namingText(const plist::Value& value);

// Whether a text field can hold it: no control characters, but for line breaks and tabs where it
// may hold `lines`.
bool isTypable(std::string_view text, bool lines);

// "No permission" of "no permission".
std::string capital(std::string text);

// "one, two, three"
std::string joined(const std::vector<std::string>& texts);

// A text that may hold anything, as one line for a terminal: blanks in place of control characters,
// U+FFFD in place of what is not UTF-8.
std::string oneLine(std::string_view text);

}  // namespace host
