#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/plist/value.h"

namespace cli {

// Base64 with padding, in one line; reading gives nothing for anything else.
std::string writeBase64(const plist::Data& data);
std::optional<plist::Value> readBase64(std::string_view text);

}  // namespace cli
