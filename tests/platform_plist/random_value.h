#pragma once

#include <random>

#include "platform/plist/value.h"

namespace plist_test {

// Makes values, always the same ones for the same seed: numbers about every border of a width,
// texts of every kind of character, dates of whole seconds, nested containers.
class RandomValues {
 public:
  explicit RandomValues(unsigned seed) : engine_(seed) {}

  bool hasUids = true;
  bool hasNothing = true;
  bool hasSets = true;
  bool hasLargeIntegers = true;  // beyond the signed range

  plist::Value value(int depth = 4);
  plist::Dictionary dictionary(int depth);
  std::string text();

 private:
  std::uint64_t below(std::uint64_t limit) { return engine_() % limit; }
  plist::Value leaf();
  plist::Value number();
  plist::Array members(int depth);

  std::mt19937_64 engine_;
};

}  // namespace plist_test
