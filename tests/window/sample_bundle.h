#pragma once

#include "tests/support/sample_lists.h"

// A settings bundle that has every kind of row, and pages that lack what a page can lack.
namespace sample {

// "SampleListController": every kind of row. "LongListController": more rows than any screen holds.
// "BrokenListController": its list is broken.
const preferences::Bundle& bundle();

}  // namespace sample
