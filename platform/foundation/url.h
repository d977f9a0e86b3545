#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace foundation {

// URLWithString: the text itself where it is a URL, relative ones too; strictly: a space, a control
// character, any of "<>\^`{|} or a byte that is not ASCII, a "%" without two hexadecimal digits, a
// second "#", a bracket anywhere but in the host make it none.
std::optional<std::string> urlWithString(std::string_view text);

// Appends a path as it stands in a file URL. Letters, digits and !$&'()*+,-./:=@_~ are kept, every
// other byte becomes %XX in capitals; nothing is normalised.
void appendEscapedPath(std::string& url, std::string_view path);

// The decoded path of a file URL of this machine, or of a URL without scheme and host that begins
// with "/". Empty for every other text, and where the path would hold a zero byte.
std::optional<std::string> pathOfFileUrl(std::string_view url);

}  // namespace foundation
