#pragma once

#include <memory>
#include <string>

#include "platform/result.h"
#include "platform/services.h"

namespace services {

// localizedStandardCompare with ICU, in four steps, each for what the one before calls equal:
// letters without case, numbers by value; the first difference, where it is two numbers of one
// value, the shorter first; case, the lower first; UTF-16 units. Punctuation counts.
//
// ASCII numbers are compared as 64-bit values that wrap around, as the platform does, where
// nothing but case differs before them.
platform::Result<std::unique_ptr<platform::Collator>> makeCollator(const std::string& locale);

}  // namespace services
