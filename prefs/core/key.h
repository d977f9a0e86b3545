#pragma once

#include <string>
#include <string_view>

namespace prefs {

// The name of a setting: the id of its row and the key under which its value is stored.
//
// The build writes prefs/keys.h, a constant for each row of the specifier lists that has a "key":
//
//   #include "prefs/keys.h"
//   constexpr DependencyRule kRules[] = {{key::custbrightenabled, key::custbright}};
//
// Rules, pages and tables name settings by these constants, so that a misspelled name doesn't
// compile. Link a library that uses prefs_keys (prefs_core does). A Key is made from other text
// only where that is written out: Key("custbright").
class Key {
 public:
  explicit constexpr Key(std::string_view name) : name_(name) {}

  constexpr operator std::string_view() const { return name_; }
  explicit operator std::string() const { return std::string(name_); }
  constexpr bool operator==(const Key&) const = default;

 private:
  std::string_view name_;
};

}  // namespace prefs
