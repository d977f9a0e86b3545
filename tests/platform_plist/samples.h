#pragma once

#include <string>
#include <vector>

#include "tests/platform_plist/raw_plist.h"

// Files in tests/samples, which other writers have made or nobody should.
namespace plist_test {

struct Sample {
  std::string name;
  std::string verdict;  // how reading it ends: "ok", or what its folder's list says
  ByteVector bytes;
};

// Those of a folder ("binary"), as its list has them. What it hasn't is a failure.
std::vector<Sample> samplesIn(const std::string& folder);

// "binary/cycle"
ByteVector sample(const std::string& name);

}  // namespace plist_test
