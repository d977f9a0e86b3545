#pragma once

#include "platform/uikit/alert_controller.h"
#include "prefs/profiles/ProfilesListController.h"
#include "tests/prefs_profiles/profiles_device.h"

namespace profiles_test {

// The profile page, shown on a device of its own, and what a user does there.
class ProfilePage : public testing::Test {
 protected:
  ProfilePage() {
    page = std::make_shared<prefs::ProfilesListController>(device.environment);
    page->viewDidLoad();
  }

  uikit::Alert& topmost() { return *device.screen.topmost(); }
  uikit::PickerView& picker() { return *topmost().picker(); }
  std::size_t onScreen() { return device.screen.alerts().size(); }

  void press(const std::string& title) {
    ASSERT_GT(onScreen(), 0u);
    const auto button = topmost().buttonTitled(title);
    ASSERT_TRUE(button) << title;
    ASSERT_TRUE(device.screen.press(*button));
  }
  // Turns the picker to the row of that title.
  void pick(const std::string& title) {
    const auto titles = picker().titlesInComponent(0);
    const auto row = std::ranges::find(titles, title) - titles.begin();
    ASSERT_TRUE(picker().turn(static_cast<int>(row), 0)) << title;
  }
  void choose(const std::string& action, const std::string& row) {
    page->showProfileManagerBar();
    press(action);
    pick(row);
    press(action);
  }
  void expectInfo(const std::string& title, const std::string& message) {
    ASSERT_EQ(onScreen(), 1u);
    EXPECT_EQ(topmost().title, title);
    EXPECT_EQ(topmost().message, message);
    EXPECT_EQ(topmost().tag, 0);
    ASSERT_EQ(topmost().buttons().size(), 1u);
    EXPECT_EQ(topmost().buttons()[0].title, "Ok");
    EXPECT_EQ(topmost().picker(), nullptr);
  }
  void waitForRelease() { device.queue.advance(std::chrono::milliseconds(500)); }

  ProfilesDevice device;
  std::shared_ptr<prefs::ProfilesListController> page;
};

}  // namespace profiles_test
