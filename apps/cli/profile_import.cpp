#include "apps/cli/profile_import.h"

#include <algorithm>
#include <cmath>

#include "platform/archive/keyed_archive.h"
#include "prefs/core/names.h"
#include "prefs/profiles/profile_settings.h"

namespace cli {
namespace {

constexpr std::string_view kArchiver = "$archiver";  // in every keyed archive
constexpr std::string_view kBinaryMagic = "bplist";

Failure unreadable(std::string reason) {
  return {ExitCode::Failed, std::move(reason)};
}

Failure wrong(std::string_view key, const std::string& what) {
  return {ExitCode::WrongUse, "\"" + std::string(key) + "\" " + what};
}

Outcome<plist::Value> readPropertyList(plist::Bytes bytes, platform::XmlPropertyLists& xml) {
  const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  if (text.starts_with(kBinaryMagic)) {
    auto list = plist::readBinary(bytes);
    if (!list) return unreadable(list.error().message());
    return std::move(*list);
  }
  auto list = xml.read(bytes);
  if (!list) return unreadable(list.error().message());
  return std::move(*list);
}

Outcome<plist::Value> unarchived(plist::Value list) {
  const plist::Dictionary* entries = list.dictionary();
  if (!entries || !entries->find(kArchiver)) return list;
  auto root = archive::unarchive(list);
  if (!root) return unreadable(root.error().message());
  return std::move(*root);
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

Outcome<Done> check(const plist::Dictionary& values, const std::vector<std::string_view>& keys) {
  for (const auto& [key, value] : values) {
    if (key != prefs::kProfilePercentage && std::ranges::find(keys, key) == keys.end())
      return wrong(key, "is no setting of a profile");
    if (wantsText(key) && !value.text()) return wrong(key, "must be text");
    if (!wantsText(key) && !value.isNumber()) return wrong(key, "must be a number");
    if (!isFinite(value)) return wrong(key, "must be a finite number");
  }
  return Done{};
}

}  // namespace

Outcome<ImportedProfile> readImport(plist::Bytes bytes, platform::XmlPropertyLists& xml) {
  auto list = readPropertyList(bytes, xml);
  if (list) list = unarchived(std::move(*list));
  if (!list) return list.error();
  const plist::Dictionary* values = list->dictionary();
  if (!values) return Failure{ExitCode::WrongUse, "not a profile: no dictionary"};

  const auto keys = prefs::profileKeys();
  const auto checked = check(*values, keys);
  if (!checked) return checked.error();
  const plist::Value* profileID = values->find(prefs::kProfilePercentage);
  if (!profileID) return wrong(prefs::kProfilePercentage, "is missing");
  auto trigger = triggerOfID(*profileID->text());
  if (!trigger) return wrong(prefs::kProfilePercentage, "is no trigger's ID");

  plist::Dictionary profile{{std::string(prefs::kProfilePercentage), *profileID}};
  for (std::string_view key : keys)
    if (const plist::Value* value = values->find(key)) profile.set(key, *value);
  return ImportedProfile{std::move(*trigger), std::move(profile)};
}

}  // namespace cli
