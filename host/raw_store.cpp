#include "host/raw_store.h"

#include "platform/foundation/text.h"
#include "prefs/core/names.h"
#include "prefs/core/preference_store.h"

namespace host {
namespace {

using platform::Done;

}  // namespace

Attempt<plist::Dictionary> RawStore::readAll() {
  const auto readable = preferences_.refresh(prefs::kDomain);
  if (!readable) return failureOf(Source::Settings, readable.error());
  return prefs::wholeDomainRead(preferences_);
}

Attempt<plist::Value> RawStore::read(const std::string& key) {
  const auto readable = preferences_.refresh(prefs::kDomain);
  if (!readable) return failureOf(Source::Settings, readable.error());
  auto value = preferences_.copyAppValue(key, prefs::kDomain);
  if (!value) return failure(Source::Settings, Failure::NotFound, "\"" + key + "\" is not stored");
  return std::move(*value);
}

Attempt<Done> RawStore::change(const std::string& key, const plist::Value& value) {
  const auto stored = preferences_.setAppValue(key, value, prefs::kDomain);
  if (!stored) return failureOf(Source::Settings, stored.error());
  const auto finished = preferences_.finish();
  if (!finished) return failureOf(Source::Settings, finished.error());
  return Done{};
}

Attempt<Done> RawStore::write(const std::string& key, const plist::Value& value) {
  if (!foundation::isUtf8(key))
    return failure(Source::Settings, Failure::Refused, "the key is not UTF-8");
  if (value.text() && !foundation::isUtf8(*value.text()))
    return failure(Source::Settings, Failure::Refused, "the text is not UTF-8");
  return change(key, value);
}

Attempt<Done> RawStore::remove(const std::string& key) {
  if (const auto value = read(key); !value) return value.error();
  return change(key, {});
}

}  // namespace host
