#pragma once

#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>

namespace cli {

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

}  // namespace cli
