#pragma once

#include "platform/foundation/text.h"

namespace host {

using foundation::replacingInvalidUtf8;

// As a slider's value stands beside it: to a thousandth, without zeros at its end.
std::string numberText(double number);

}  // namespace host
