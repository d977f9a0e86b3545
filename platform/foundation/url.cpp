#include "platform/foundation/url.h"

#include <algorithm>
#include <array>

#include "platform/plist/hexadecimal.h"

namespace foundation {
namespace {

constexpr bool isAlphanumeric(unsigned char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

using CharacterSet = std::array<bool, 256>;

constexpr CharacterSet alphanumericAnd(std::string_view others) {
  CharacterSet set{};
  for (int c = 0; c < 128; ++c) set[c] = isAlphanumeric(static_cast<unsigned char>(c));
  for (const char c : others) set[static_cast<unsigned char>(c)] = true;
  return set;
}

constexpr CharacterSet kKeptInPath = alphanumericAnd("!$&'()*+,-./:=@_~");
constexpr CharacterSet kLegal = alphanumericAnd("!$&'()*+,-./:;=?@_~");

// The byte that the three characters at the front escape; -1 when they don't.
int escapedByte(std::string_view text) {
  if (text.size() < 3) return -1;
  const auto high = plist::hexDigit(text[1]), low = plist::hexDigit(text[2]);
  return high && low ? static_cast<int>(*high * 16 + *low) : -1;
}

// Where the host begins and ends; both the text's end when it names none.
struct Range {
  std::size_t begin, end;
};

Range hostOf(std::string_view text) {
  const std::size_t path = text.find_first_of("/?#");
  const std::size_t slashes = text.find("//");
  if (slashes == std::string_view::npos || slashes != path ||
      (slashes != 0 && text[slashes - 1] != ':'))
    return {text.size(), text.size()};
  return {slashes + 2, std::min(text.find_first_of("/?#", slashes + 2), text.size())};
}

}  // namespace

std::optional<std::string> urlWithString(std::string_view text) {
  const Range host = hostOf(text);
  bool fragment = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (kLegal[static_cast<unsigned char>(c)]) continue;
    if (c == '%' && escapedByte(text.substr(i)) >= 0) continue;
    if (c == '#' && !fragment) {
      fragment = true;
      continue;
    }
    if ((c == '[' || c == ']') && i >= host.begin && i < host.end) continue;
    return std::nullopt;
  }
  return std::string(text);
}

void appendEscapedPath(std::string& url, std::string_view path) {
  for (const char c : path) {
    const auto byte = static_cast<unsigned char>(c);
    if (kKeptInPath[byte]) {
      url += c;
    } else {
      url += '%';
      plist::appendHex(url, byte, plist::kUpperHexDigits);
    }
  }
}

std::optional<std::string> pathOfFileUrl(std::string_view url) {
  constexpr std::string_view kScheme = "file:", kThisMachine = "//localhost/";
  if (!urlWithString(url)) return std::nullopt;
  if (url.starts_with(kScheme)) {
    url.remove_prefix(kScheme.size());
    if (url.starts_with("///")) url.remove_prefix(2);
    if (url.starts_with(kThisMachine)) url.remove_prefix(kThisMachine.size() - 1);
  }
  if (!url.starts_with('/') || url.starts_with("//")) return std::nullopt;
  url = url.substr(0, url.find_first_of("?#"));

  std::string path;
  for (std::size_t i = 0; i < url.size(); ++i) {
    const int byte =
        url[i] == '%' ? escapedByte(url.substr(i)) : static_cast<unsigned char>(url[i]);
    if (byte == 0) return std::nullopt;
    if (url[i] == '%') i += 2;
    path += static_cast<char>(byte);
  }
  return path;
}

}  // namespace foundation
