#pragma once

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace host {

// Numbers things as they are first asked for, from 1. No two ever have the same number, also once
// the first is destroyed.
class Identities {
 public:
  std::uint64_t numberOf(const std::shared_ptr<const void>& thing) {
    std::erase_if(known_, [](const auto& known) { return known.first.expired(); });
    for (const auto& [known, number] : known_)
      if (known.lock() == thing) return number;
    known_.emplace_back(thing, ++last_);
    return last_;
  }

 private:
  std::vector<std::pair<std::weak_ptr<const void>, std::uint64_t>> known_;
  std::uint64_t last_ = 0;
};

}  // namespace host
