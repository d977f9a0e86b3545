#pragma once

#include <QTemporaryDir>
#include <map>
#include <string>
#include <vector>

#include "apps/window/qt_main_queue.h"
#include "platform/preferences/environment.h"
#include "tests/support/sample_bundle.h"

// A device of a test's own: an empty root, the sample bundle, services that do nothing.
class Device : platform::DarwinNotificationCenter,
               platform::Collator,
               platform::Urls,
               platform::AddressBook,
               platform::SystemSounds,
               platform::XmlPropertyLists {
 public:
  QTemporaryDir folder;
  foundation::DeviceRoot root{folder.path().toStdString()};
  foundation::Preferences preferences{root};
  foundation::NotificationCenter center;
  window::QtMainQueue queue;
  preferences::Environment environment{root,  preferences, center, queue, *this,           *this,
                                       *this, *this,       *this,  *this, sample::bundle()};

  plist::Value stored(std::string_view key) {
    return preferences.copyAppValue(key, sample::kDomain).value_or(plist::Value());
  }

 private:
  void post(std::string_view) override {}
  int compare(std::string_view a, std::string_view b) override { return a.compare(b); }
  bool canOpen(std::string_view) override { return false; }
  bool open(std::string_view) override { return false; }
  std::vector<platform::Person> peopleSortedByFirstName() override { return {}; }
  void play(const std::optional<std::string>&) override {}
  platform::Result<plist::Value> read(plist::Bytes) override {
    return platform::Error{.what = "no XML here"};
  }
  platform::Result<std::vector<std::uint8_t>> write(const plist::Value&) override {
    return platform::Error{.what = "no XML here"};
  }
};
