#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "prefs/core/names.h"
#include "prefs/profiles/profile_settings.h"
#include "prefs/profiles/profile_snapshot.h"
#include "prefs/resources/bundle.h"
#include "services/xml_reader.h"
#include "tests/prefs/seed.h"
#include "tests/support/profile_table.h"

namespace profiles_test {

struct HookedDarwinCenter : platform::DarwinNotificationCenter {
  void post(std::string_view name) override {
    if (hook) hook(std::string(name));
  }
  std::function<void(const std::string&)> hook;
};

struct RealXml : testing_support::NoXml {
  platform::Result<plist::Value> read(plist::Bytes bytes) override {
    if (atNextRead) std::exchange(atNextRead, {})();
    return services::readXml(bytes);
  }
  std::function<void()> atNextRead;  // what another process does just before it
};

// A device that writes down all posts in order, cross-process and in-process ones.
class ProfilesDevice : public testing_support::TestDevice {
 public:
  ProfilesDevice() : TestDevice(prefs::bundle()) {
    environment.screen = &screen;
    environment.problemHandler = TestDevice::environment.problemHandler;
    darwinCenter.hook = [this](const std::string& name) { events.push_back("darwin " + name); };
    center.setWitness([this](const foundation::Notification& posted) {
      events.push_back("local " + posted.name +
                       (posted.object ? " " + std::string(posted.object->className()) : ""));
    });
  }

  HookedDarwinCenter darwinCenter;
  RealXml realXml;
  ::preferences::Environment environment{root,         preferences, center,         queue,
                                         darwinCenter, collator,    urls,           addressBook,
                                         sounds,       realXml,     prefs::bundle()};
  std::vector<std::string> events;

  // The store as another process sees it.
  plist::Dictionary domain() {
    foundation::Preferences another(root);
    return another.copyMultiple(another.copyKeyList(prefs::kDomain), prefs::kDomain);
  }
  std::optional<plist::Value> stored(std::string_view key) {
    foundation::Preferences another(root);
    return another.copyAppValue(key, prefs::kDomain);
  }
  void store(std::string_view key, const plist::Value& value) {
    foundation::Preferences another(root);
    EXPECT_TRUE(another.setAppValue(key, value, prefs::kDomain));
  }

  // From now on the settings can't be read.
  void damageDomain() {
    const auto file = at(kDomainFile);
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file) << "neither binary nor XML";
  }
  static constexpr std::string_view kDomainFile =
      "/var/mobile/Library/Preferences/com.zorvek.quorvantis.plist";

  std::filesystem::path at(std::string_view platformPath) const {
    return folder.path() + std::string(platformPath);
  }
  // A profile as its file holds it.
  plist::Dictionary profile(const std::string& code) {
    auto read = prefs::readProfile(environment, prefs::profilePath(std::stoi(code)));
    EXPECT_TRUE(read) << code;
    return read ? *read : plist::Dictionary();
  }
};

// What every value of the 50 settings is that has a default.
inline plist::Dictionary defaults() {
  plist::Dictionary all;
  for (const auto& [key, standard] : testing_support::kProfileTable)
    if (!standard.isNothing()) all.set(key, standard);
  return all;
}

}  // namespace profiles_test
