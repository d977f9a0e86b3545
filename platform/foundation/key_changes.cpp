#include "platform/foundation/key_changes.h"

namespace foundation {

bool isSame(const plist::Value* a, const plist::Value* b) {
  return a && b ? *a == *b : a == b;
}

KeyChanges changesBetween(const plist::Dictionary& from, const plist::Dictionary& to) {
  KeyChanges changes;
  for (const auto& [key, value] : from) {
    const plist::Value* now = to.find(key);
    if (!isSame(&value, now))
      changes.push_back({key, value, now ? std::optional(*now) : std::nullopt});
  }
  for (const auto& [key, value] : to)
    if (!from.find(key)) changes.push_back({key, std::nullopt, value});
  return changes;
}

}  // namespace foundation
