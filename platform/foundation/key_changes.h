#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/plist/value.h"

namespace foundation {

// What a key is changed from and to; nothing: it isn't there.
struct KeyChange {
  std::string key;
  std::optional<plist::Value> from, to;
};
using KeyChanges = std::vector<KeyChange>;

// Whether a key holds the same twice, by kind and value; null: it isn't there.
bool isSame(const plist::Value* a, const plist::Value* b);

// What makes `to` of `from`: the keys of `from` in its order, then those that only `to` has.
KeyChanges changesBetween(const plist::Dictionary& from, const plist::Dictionary& to);

}  // namespace foundation
