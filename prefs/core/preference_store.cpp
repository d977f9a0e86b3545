#include "prefs/core/preference_store.h"

#include "prefs/core/names.h"

namespace prefs {

std::optional<std::string> rowText(const preferences::PSSpecifier* row, std::string_view property) {
  const std::string* text = row ? row->propertyForKey(property).text() : nullptr;
  return text ? std::optional(*text) : std::nullopt;
}

void pageWrite(preferences::PSListController& page, foundation::Preferences& preferences,
               const plist::Value& value, preferences::PSSpecifier* specifier) {
  page.setPreferenceValueSpecifier(value, specifier);
  page.reloadSpecifier(specifier);
  (void)preferences.synchronize();
}

std::optional<plist::Value> singleValueRead(foundation::Preferences& preferences,
                                            const std::optional<std::string>& key,
                                            const std::optional<std::string>& domain) {
  if (!key || !domain) return std::nullopt;
  (void)preferences.appSynchronize(*domain);
  return preferences.copyAppValue(*key, *domain);
}

void singleValueWriteWithNotification(preferences::Environment& environment,
                                      const SingleValueWrite& write, const plist::Value& value) {
  if (write.domain) {
    if (write.key) (void)environment.preferences.setAppValue(*write.key, value, *write.domain);
    (void)environment.preferences.appSynchronize(*write.domain);
  }
  if (write.previewNotification)
    environment.defaultCenter.postNotificationName(*write.previewNotification, nullptr);
  if (write.postNotification) environment.darwinCenter.post(*write.postNotification);
}

platform::Result<platform::Done> readableSettings(foundation::Preferences& preferences) {
  if (const auto read = preferences.refresh(kDomain); !read)
    return platform::Error{.what = "the settings can't be read"}
        .because(read.error())
        .as(read.error().kind);
  return platform::Done{};
}

plist::Dictionary wholeDomainRead(foundation::Preferences& preferences) {
  return preferences.copyMultiple(preferences.copyKeyList(kDomain), kDomain);
}

platform::Result<platform::Done> wholeDomainWrite(foundation::Preferences& preferences,
                                                  const plist::Dictionary& values) {
  auto stored = preferences.setMultiple(values, {}, kDomain);
  (void)preferences.synchronize();
  return stored;
}

}  // namespace prefs
