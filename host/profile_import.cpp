#include "host/profile_import.h"

#include <algorithm>
#include <cmath>

#include "platform/foundation/property_list.h"
#include "prefs/core/archive_file.h"
#include "prefs/core/names.h"
#include "prefs/profiles/profile_settings.h"
#include "prefs/profiles/triggers.h"

namespace host {
namespace {

using platform::Done;

Failure refused(std::string_view key, const std::string& what) {
  return failure(Source::Profiles, Failure::Refused, "\"" + std::string(key) + "\" " + what);
}

Attempt<plist::Dictionary> readValues(plist::Bytes bytes, platform::XmlPropertyLists& xml) {
  auto list = readPropertyList(bytes, xml);
  if (list && list->dictionary() && list->dictionary()->find(kArchiver))
    list = prefs::unarchive(bytes, xml);
  if (!list) return failure(Source::Profiles, Failure::Failed, list.error().message());
  if (!list->dictionary())
    return failure(Source::Profiles, Failure::Refused, "not a profile: no dictionary");
  return std::move(*list->dictionary());
}

bool isFinite(const plist::Value& value) {
  const auto real = value.real();
  return !real || std::isfinite(*real);
}

// A key that the table of defaults lacks is a number.
bool wantsText(std::string_view key) {
  const auto standard = prefs::profileDefault(key);
  return key == prefs::kProfilePercentage || (standard && standard->text());
}

Attempt<Done> check(const plist::Dictionary& values, const std::vector<std::string_view>& keys) {
  for (const auto& [key, value] : values) {
    if (key != prefs::kProfilePercentage && std::ranges::find(keys, key) == keys.end())
      return refused(key, "is not a setting of a profile");
    if (wantsText(key) && !value.text()) return refused(key, "must be text");
    if (!wantsText(key) && !value.isNumber()) return refused(key, "must be a number");
    if (!isFinite(value)) return refused(key, "must be a finite number");
  }
  return Done{};
}

}  // namespace

platform::Result<plist::Value> readPropertyList(plist::Bytes bytes,
                                                platform::XmlPropertyLists& xml) {
  return foundation::readPropertyList(bytes, prefs::readerOf(xml));
}

bool isProfile(const plist::Dictionary& values) {
  const auto keys = prefs::profileKeys();
  for (const auto& [key, value] : values)
    if (key != prefs::kProfilePercentage && std::ranges::find(keys, key) == keys.end())
      return false;
  const auto isHeld = [&](std::string_view key) {
    return values.find(key) || !prefs::profileDefault(key);
  };
  return values.find(prefs::kProfilePercentage) && std::ranges::all_of(keys, isHeld);
}

Attempt<ImportedProfile> readImport(plist::Bytes bytes, platform::XmlPropertyLists& xml) {
  const auto values = readValues(bytes, xml);
  if (!values) return values.error();
  const auto keys = prefs::profileKeys();
  const auto checked = check(*values, keys);
  if (!checked) return checked.error();

  const plist::Value* profileID = values->find(prefs::kProfilePercentage);
  if (!profileID) return refused(prefs::kProfilePercentage, "is missing");
  const auto known = triggers();
  const auto trigger = std::ranges::find(known, *profileID->text(), &Trigger::profileID);
  if (trigger == known.end())
    return refused(prefs::kProfilePercentage, "is not the ID of a trigger");

  plist::Dictionary profile{{std::string(prefs::kProfilePercentage), *profileID}};
  for (std::string_view key : keys)
    if (const plist::Value* value = values->find(key)) profile.set(key, *value);
  return ImportedProfile{*trigger, std::move(profile)};
}

}  // namespace host
