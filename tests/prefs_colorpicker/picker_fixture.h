#pragma once

#include <gtest/gtest.h>

#include "platform/preferences/PSSpecifier.h"
#include "prefs/colorpicker/ZorvekColorPickerQuorvantis.h"
#include "prefs/colorpicker/view_tags.h"
#include "prefs/core/names.h"
#include "tests/support/environment.h"

namespace picker {

inline constexpr std::string_view kKey = "chargecolor";
inline constexpr std::string_view kPost = "com.zorvek.quorvantis.prefs";
inline constexpr std::string_view kPreview = "com.zorvek.quorvantis.preview";
inline const preferences::Bundle kNoBundle{};

// A notification, and the color that another process would read from the store at that moment.
struct Event {
  std::string center, name;
  plist::Value stored;
  bool operator==(const Event&) const = default;
};
inline std::ostream& operator<<(std::ostream& out, const Event& event) {
  return out << event.center << " " << event.name << " "
             << (event.stored.text() ? *event.stored.text() : "-");
}

// The row that opens the page; each test leaves out or adds what it is about.
inline plist::Dictionary row(std::initializer_list<plist::Dictionary::Entry> more = {}) {
  plist::Dictionary properties{{"label", "Charge color"},
                               {"key", kKey},
                               {"defaults", prefs::kDomain},
                               {"PostNotification", kPost},
                               {"PreviewNotification", kPreview}};
  for (const auto& [key, value] : more) properties.set(key, value);
  return properties;
}
inline plist::Dictionary rowWithout(std::string_view key,
                                    std::initializer_list<plist::Dictionary::Entry> more = {}) {
  plist::Dictionary rest;
  for (const auto& entry : row(more))
    if (entry.key != key) rest.set(entry.key, entry.value);
  return rest;
}

// Where the rows stand among the entries of all sections.
inline constexpr int kViewport = 12, kCustomOnScreen = 61 - kViewport;
inline constexpr uikit::IndexPath kNone{0, 0}, kTheme{0, 1}, kSystemBlue{1, 1}, kMarineBlue{1, 2},
    kSnow{2, 0}, kMocha{2, 47}, kCustom{3, 0};

class Page : public testing::Test, private platform::DarwinNotificationCenter {
 protected:
  Page() {
    device.center.setWitness([this](const foundation::Notification& notification) {
      EXPECT_EQ(notification.object, nullptr);
      events.push_back({"local", notification.name, stored()});
    });
  }

  void store(const plist::Value& value) {
    foundation::Preferences other(device.root);
    ASSERT_TRUE(other.setAppValue(kKey, value, prefs::kDomain));
  }
  plist::Value stored(std::string_view key = kKey) {
    foundation::Preferences other(device.root);
    return other.copyAppValue(key, prefs::kDomain).value_or(plist::Value());
  }

  void open(plist::Dictionary properties, int first = 0) {
    page = std::make_shared<prefs::ZorvekColorPickerQuorvantis>(environment);
    page->setOpener(std::make_shared<preferences::PSSpecifier>(preferences::CellType::PSLinkCell,
                                                               std::move(properties)),
                    nullptr);
    page->loadView();
    page->viewDidLoad();
    show(first);
  }
  void openWith(const plist::Value& value, int first = 0) {
    store(value);
    open(row(), first);
  }

  void show(int first) { page->table()->show(first, kViewport); }
  uikit::TableViewCell* cell(uikit::IndexPath path) {
    return page->table()->cellForRowAtIndexPath(path);
  }
  bool ticked(uikit::IndexPath path) {
    return cell(path)->accessory == uikit::Accessory::Checkmark;
  }
  std::string detail(uikit::IndexPath path) {
    return cell(path)->detailTextLabel.text.value_or("(unset)");
  }
  std::string swatch(uikit::IndexPath path) {
    auto& image = cell(path)->imageView.image;
    return image ? image->color.hex() : "(unset)";
  }
  double border(uikit::IndexPath path) { return *cell(path)->imageView.layer.borderWidth; }
  void tap(uikit::IndexPath path) { page->tableViewDidSelectRowAtIndexPath(*page->table(), path); }

  uikit::Slider* slider(int tag) {
    return dynamic_cast<uikit::Slider*>(page->table()->viewWithTag(tag));
  }
  std::vector<float> sliders() {
    return {slider(201)->value(), slider(202)->value(), slider(203)->value()};
  }

  testing_support::TestDevice device{kNoBundle};
  preferences::Environment environment{
      device.root, device.preferences, device.center, device.queue, *this,    device.collator,
      device.urls, device.addressBook, device.sounds, device.xml,   kNoBundle};
  std::shared_ptr<prefs::ZorvekColorPickerQuorvantis> page;
  std::vector<Event> events;

 private:
  void post(std::string_view name) override {
    events.push_back({"darwin", std::string(name), stored()});
  }
};

}  // namespace picker
