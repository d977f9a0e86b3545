#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "platform/foundation/preferences.h"
#include "platform/plist/binary.h"
#include "tests/platform_foundation/temporary_root.h"

namespace foundation::test {

inline constexpr char kDomain[] = "com.zorvek.quorvantis";
inline constexpr char kFolder[] = "/var/mobile/Library/Preferences";
inline constexpr char kFile[] = "/var/mobile/Library/Preferences/com.zorvek.quorvantis.plist";

struct PreferencesTest : ::testing::Test {
  TemporaryRoot folder;
  DeviceRoot root{folder.path()};
  Preferences preferences{root};
  std::vector<std::string> problems;

  PreferencesTest() {
    preferences.setProblemHandler(
        [this](const platform::Error& error) { problems.push_back(error.message()); });
  }

  // As another process sees and changes it.
  plist::Value stored(std::string_view key) {
    return Preferences(root).copyAppValue(key, kDomain).value_or(plist::Value());
  }
  void storeElsewhere(std::string_view key, const plist::Value& value) {
    ASSERT_TRUE(Preferences(root).setAppValue(key, value, kDomain));
  }
  std::vector<std::string> otherNames() {
    std::vector<std::string> names = folder.names(kFolder);
    std::erase(names, "com.zorvek.quorvantis.plist");
    std::erase(names, ".com.zorvek.quorvantis.plist.lock");
    std::sort(names.begin(), names.end());
    return names;
  }
};

}  // namespace foundation::test
