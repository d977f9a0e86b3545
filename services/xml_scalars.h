#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/plist/value.h"

// The text of one element of an XML property list, and back. Reading gives nothing for text that
// is none of the kind; readXml says which text each takes.
namespace services {

std::optional<plist::Value> readInteger(std::string_view text);
std::optional<double> readReal(std::string_view text);
std::optional<plist::Date> readDate(std::string_view text);
std::optional<plist::Data> readBase64(std::string_view text);

// The shortest text that reads back as the same double; "nan", "+infinity", "-infinity".
std::string writeReal(double real);

// Whole seconds, a fraction is dropped; years -9999 to 9999, dates beyond are moved there, and one
// that is not a number to 2001.
std::string writeDate(plist::Date date);

std::string writeBase64(const plist::Data& data);

}  // namespace services
