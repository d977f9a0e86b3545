#pragma once

#include <optional>
#include <string>

#include "host/problem.h"
#include "platform/foundation/preferences.h"

namespace host {

// The bundle's domain as another process sees and writes it: no page, no notification.
class RawStore {
 public:
  explicit RawStore(foundation::Preferences& preferences) : preferences_(preferences) {}

  Attempt<plist::Dictionary> readAll();
  Attempt<plist::Value> read(const std::string& key);  // NotFound without a value
  // Stored and durable when it returns. Refused for a key or a text that isn't UTF-8.
  Attempt<platform::Done> write(const std::string& key, const plist::Value& value);
  Attempt<platform::Done> remove(const std::string& key);  // NotFound without a value

 private:
  Attempt<platform::Done> change(const std::string& key, const plist::Value& value);

  foundation::Preferences& preferences_;
};

}  // namespace host
