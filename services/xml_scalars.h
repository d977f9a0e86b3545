#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/plist/value.h"

// The text of a number in an XML property list, and back. Reading gives nothing for text that is
// not of the kind; readXml says which text each takes.
namespace services {

std::optional<plist::Value> readInteger(std::string_view text);
std::optional<double> readReal(std::string_view text);

// The shortest text that reads back as the same double; "nan", "+infinity", "-infinity".
std::string writeReal(double real);

}  // namespace services
