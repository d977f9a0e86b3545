#include "platform/preferences/row_value.h"

#include "platform/foundation/text.h"

namespace preferences {
namespace {

std::string_view textIn(const plist::Dictionary& row, std::string_view property) {
  const plist::Value* value = row.find(property);
  return value && value->text() ? std::string_view(*value->text()) : std::string_view();
}

plist::Value asShown(const plist::Dictionary& row, const plist::Value& value) {
  const plist::Value* negate = row.find("negate");
  const bool negated = negate && foundation::boolValue(*negate);
  return negated ? plist::Value(!foundation::boolValue(value)) : value;
}

}  // namespace

plist::Value defaultValue(const plist::Dictionary& row) {
  const plist::Value* value = row.find("default");
  return asShown(row, value ? *value : plist::Value());
}

plist::Value storedOrDefault(const plist::Dictionary& row, foundation::Preferences& preferences) {
  const auto key = textIn(row, "key"), domain = textIn(row, "defaults");
  if (!key.empty() && !domain.empty())
    if (const auto stored = preferences.copyAppValue(key, domain)) return asShown(row, *stored);
  return defaultValue(row);
}

}  // namespace preferences
