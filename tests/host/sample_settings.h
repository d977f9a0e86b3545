#pragma once

#include "host/application.h"
#include "tests/support/environment.h"
#include "tests/support/sample_bundle.h"

namespace sample {

class Device : public testing_support::TestDevice {
 public:
  Device() : TestDevice(bundle()) { events.clear(); }
};

// A Settings application with "First" on screen, which shows `viewport` entries.
class Settings : public Device {
 public:
  explicit Settings(int viewport = 100) : application(environment, viewport) {
    static_cast<void>(application.perform(host::Launch{}));
    events.clear();
  }

  host::Application application;

  preferences::PSSpecifier& row(const std::string& id) { return **application.row(id); }
  plist::Value stored(std::string_view key) {
    return preferences.copyAppValue(key, kDomain).value_or(plist::Value());
  }
  Table& table() { return dynamic_cast<Table&>(*application.shownPage()); }
};

template <class T>
std::optional<host::RefusalCode> refusalOf(const host::Outcome<T>& outcome) {
  if (outcome) return std::nullopt;
  return outcome.error().code;
}

}  // namespace sample
