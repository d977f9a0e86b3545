#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/request.h"

namespace drive {

// Base64 with padding, in one line; reading gives nothing for anything else.
std::string writeBase64(const plist::Data& data);
std::optional<plist::Value> readBase64(std::string_view text);

}  // namespace drive
