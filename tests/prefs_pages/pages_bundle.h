#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/preferences/PSListController.h"
#include "prefs/resources/bundle.h"
#include "tests/support/environment.h"

// The option pages with their real specifier lists.
namespace pages_test {

extern const std::vector<std::string> kPageNames;

plist::Value readList(const std::string& name);

// The real bundle, with `list` in place of the list of that name.
class ChangedBundle {
 public:
  ChangedBundle(const std::string& name, const plist::Value& list);
  const preferences::Bundle& bundle() const { return bundle_; }

 private:
  std::vector<std::uint8_t> bytes_;
  std::vector<preferences::ListResource> lists_;
  preferences::Bundle bundle_;
};

// A list without the rows of these ids.
plist::Value without(plist::Value list, const std::vector<std::string>& ids);

// A page on a device of its own, loaded; its rows are not built yet.
template <class Page>
struct Opened {
  explicit Opened(const preferences::Bundle& bundle = prefs::bundle()) : device(bundle) {
    page = std::make_shared<Page>(device.environment);
    page->viewDidLoad();
  }

  preferences::PSSpecifier& row(const std::string& id) { return *page->specifierForID(id); }
  preferences::PSTableCell& cell(const std::string& id) { return *row(id).cellObject(); }
  uikit::Switch& switchOf(const std::string& id) {
    return dynamic_cast<uikit::Switch&>(*row(id).control());
  }
  void build() {
    for (auto& each : page->specifiers()) page->buildRow(*each);
  }
  void change(const std::string& id, const plist::Value& value) {
    page->userChanged(row(id), value);
  }
  std::optional<plist::Value> stored(const std::string& key) {
    return device.preferences.copyAppValue(key, "com.zorvek.quorvantis");
  }
  void store(const std::string& key, const plist::Value& value) {
    ASSERT_TRUE(device.preferences.setAppValue(key, value, "com.zorvek.quorvantis"));
  }
  // Whether the work flushes the store: another process's change of another domain is seen then.
  template <class Work>
  bool flushes(Work work) {
    constexpr const char* kOtherDomain = "other.domain";
    auto& own = device.preferences;
    EXPECT_FALSE(own.copyAppValue("seen", kOtherDomain));
    foundation::Preferences another(device.root);
    EXPECT_TRUE(another.setAppValue("seen", 1, kOtherDomain));
    EXPECT_FALSE(own.copyAppValue("seen", kOtherDomain));
    work();
    return own.copyAppValue("seen", kOtherDomain).has_value();
  }
  void activate() {
    device.center.postNotificationName("UIApplicationDidBecomeActiveNotification", nullptr);
  }

  testing_support::TestDevice device;
  std::shared_ptr<Page> page;
};

// Whether the work evaluates the page's rules: a cell that one of them governs is given an opacity
// of its own first. The work must not redraw its row.
template <class Work>
bool evaluates(uikit::TableViewCell& governed, Work work) {
  governed.setAlpha(0.5);
  work();
  return governed.alpha() != 0.5;
}

inline bool looksEnabled(const uikit::TableViewCell& cell) {
  return cell.userInteractionEnabled() && cell.enabled() && cell.alpha() == 1.0;
}
// Dimmed through the interaction flag.
inline bool looksDimmed(const uikit::TableViewCell& cell) {
  return !cell.userInteractionEnabled() && cell.enabled() && cell.alpha() == 0.30000001192092896;
}

constexpr foundation::Nanoseconds kTenthOfASecond{100'000'000};

}  // namespace pages_test
