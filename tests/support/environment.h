#pragma once

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/foundation/main_queue.h"
#include "platform/foundation/preferences.h"
#include "platform/preferences/environment.h"

// A device for tests: a root of its own, a clock that stands still, and services that write down
// what is asked of them.
namespace testing_support {

class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "quorvantis-XXXXXX").string();
    path_ = mkdtemp(name.data());
  }
  ~TemporaryFolder() { std::filesystem::remove_all(path_); }
  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

struct RecordingDarwinCenter : platform::DarwinNotificationCenter {
  void post(std::string_view name) override { posted.emplace_back(name); }
  std::vector<std::string> posted;
};

// Bytes, but for runs of digits, which compare as numbers.
struct NumericCollator : platform::Collator {
  int compare(std::string_view a, std::string_view b) override;
};

struct RecordingUrls : platform::Urls {
  bool canOpen(std::string_view url) override {
    return std::ranges::any_of(schemes,
                               [&](auto& scheme) { return url.starts_with(scheme + ":"); });
  }
  bool open(std::string_view url) override { return opened.emplace_back(url), true; }
  std::vector<std::string> schemes, opened;
};

struct FixedAddressBook : platform::AddressBook {
  std::vector<platform::Person> peopleSortedByFirstName() override { return people; }
  std::vector<platform::Person> people;
};

struct RecordingSounds : platform::SystemSounds {
  void play(const std::optional<std::string>& url) override { played.push_back(url); }
  std::vector<std::optional<std::string>> played;
};

struct NoXml : platform::XmlPropertyLists {
  platform::Result<plist::Value> read(plist::Bytes) override {
    return platform::Error{.what = "not a property list"};
  }
  platform::Result<std::vector<std::uint8_t>> write(const plist::Value&) override {
    return platform::Error{.what = "no XML here"};
  }
};

class TestDevice {
 public:
  explicit TestDevice(const preferences::Bundle& bundle)
      : environment{root, preferences, center, queue, darwin, collator,
                    urls, addressBook, sounds, xml,   bundle} {
    environment.screen = &screen;
    environment.problemHandler = [this](const platform::Error& error) {
      problems.push_back(error.message());
    };
  }

  TemporaryFolder folder;
  foundation::DeviceRoot root{folder.path()};
  foundation::Preferences preferences{root};
  foundation::NotificationCenter center;
  foundation::ManualQueue queue;
  RecordingDarwinCenter darwin;
  NumericCollator collator;
  RecordingUrls urls;
  FixedAddressBook addressBook;
  RecordingSounds sounds;
  NoXml xml;
  uikit::Screen screen;
  std::vector<std::string> problems;  // what the pages passed over in silence
  ::preferences::Environment environment;
};

inline int NumericCollator::compare(std::string_view a, std::string_view b) {
  auto digit = [](char c) { return c >= '0' && c <= '9'; };
  while (!a.empty() && !b.empty()) {
    if (digit(a[0]) && digit(b[0])) {
      std::size_t i = 0, j = 0;
      unsigned long long x = 0, y = 0;
      while (i < a.size() && digit(a[i])) x = x * 10 + (a[i++] - '0');
      while (j < b.size() && digit(b[j])) y = y * 10 + (b[j++] - '0');
      if (x != y) return x < y ? -1 : 1;
      a.remove_prefix(i);
      b.remove_prefix(j);
    } else {
      if (a[0] != b[0]) return static_cast<unsigned char>(a[0]) - static_cast<unsigned char>(b[0]);
      a.remove_prefix(1);
      b.remove_prefix(1);
    }
  }
  return static_cast<int>(!a.empty()) - static_cast<int>(!b.empty());
}

}  // namespace testing_support
