#pragma once

#include "platform/preferences/bundle.h"

// A settings bundle that has every kind of row, and pages that lack what a page can lack.
namespace sample {

inline constexpr const char* kDomain = "org.example.sample";

// "SampleListController": every kind of row. "LongListController": more rows than any screen holds.
// "BrokenListController": its list is broken.
const preferences::Bundle& bundle();

}  // namespace sample
