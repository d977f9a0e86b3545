#include "tests/window/bundle_window.h"

namespace {

using plist::Dictionary;
using plist::Value;

constexpr const char* kProfile7 = "/var/mobile/Documents/Quorvantis/profile_7.qvx";

enum class Hand { Mouse, Keys, AssistiveTechnology };

void PrintTo(Hand hand, std::ostream* out) {
  constexpr const char* kNames[] = {"Mouse", "Keys", "AssistiveTechnology"};
  *out << kNames[static_cast<int>(hand)];
}

// The profile manager, pressed through in three ways.
class ProfileFlows : public BundleWindow, public testing::WithParamInterface<Hand> {
 protected:
  void writeProfile7() {
    write(kProfile7, Dictionary{{"profilepercentage", "7"}, {"profiledescription", "Night"}});
  }
  void walkTo(const QString& name) {
    for (int i = 0; i < 20 && driver->focused() != name; ++i) driver->key(Qt::Key_Tab);
    ASSERT_EQ(driver->focused(), name);
  }
  void press(const QString& name) {
    switch (GetParam()) {
      case Hand::Mouse:
        return driver->click(name, kButton);
      case Hand::Keys:
        walkTo(name);
        return driver->key(Qt::Key_Return);
      case Hand::AssistiveTechnology:
        ASSERT_TRUE(driver->act(name, kButton, QAccessibleActionInterface::pressAction()));
    }
  }
  void turnTo(const QString& wheel, int row) {
    QQuickItem* item = driver->find(wheel, QAccessible::SpinBox);
    ASSERT_TRUE(item) << wheel.toStdString();
    switch (GetParam()) {
      case Hand::Mouse:
        for (int notch = picked(); notch != row; notch += notch < row ? 1 : -1)
          driver->wheel(item, notch < row ? -120 : 120);
        break;
      case Hand::Keys:
        driver->key(Qt::Key_Home);
        for (int i = 0; i < row; ++i) driver->key(Qt::Key_Down);
        break;
      case Hand::AssistiveTechnology:
        driver->accessible(wheel, QAccessible::SpinBox)->valueInterface()->setCurrentValue(row);
        driver->waitUntilIdle();
    }
    ASSERT_EQ(picked(), row);
  }
  int picked() const { return alerts().back().picker->selected; }

  void manage(const QString& action) {
    open("ProfilesListController");
    press("Compose");
    ASSERT_EQ(alerts().size(), 1u);
    press(action);
  }
};

TEST_P(ProfileFlows, Save) {
  manage("Save");
  turnTo("Select the trigger for the profile", 6);
  press("Save");
  EXPECT_TRUE(driver->shows(
      "The current settings were successfully saved as a profile for trigger: Battery 7%"));
  press("Ok");
  EXPECT_TRUE(alerts().empty());
  EXPECT_TRUE(exists(kProfile7));
}

TEST_P(ProfileFlows, Overwrite) {
  writeProfile7();
  manage("Save");
  turnTo("Select the trigger for the profile", 6);
  press("Save");
  EXPECT_TRUE(driver->shows("Warning"));
  press("Overwrite");
  EXPECT_TRUE(
      driver->shows("The settings for the battery profile trigger - Battery 7% - were successfully "
                    "overwritten!"));
  press("Ok");
  EXPECT_TRUE(alerts().empty());
}

TEST_P(ProfileFlows, Load) {
  writeProfile7();
  manage("Load");
  turnTo("Select the profile to load", 0);
  press("Load");
  EXPECT_TRUE(alerts().empty());
  EXPECT_EQ(stored("profiledescription"), Value("Night"));
  EXPECT_TRUE(driver->shows("Night"));
}

TEST_P(ProfileFlows, Delete) {
  writeProfile7();
  manage("Delete");
  turnTo("Select the profile to delete", 0);
  press("Delete");
  EXPECT_TRUE(driver->shows("The profile Battery 7% was successfully deleted!"));
  press("Ok");
  EXPECT_FALSE(exists(kProfile7));
}

TEST_P(ProfileFlows, CancelLeavesAllAsItWas) {
  writeProfile7();
  manage("Cancel");
  EXPECT_TRUE(alerts().empty());
  press("Compose");
  press("Delete");
  press("Cancel");
  EXPECT_TRUE(alerts().empty());
  EXPECT_TRUE(exists(kProfile7));
  press("Compose");
  press("Save");
  turnTo("Select the trigger for the profile", 6);
  press("Save");
  EXPECT_TRUE(driver->shows("Warning"));
  press("Cancel");
  EXPECT_TRUE(alerts().empty());
  EXPECT_TRUE(stored("profiledescription").isNothing());
}

INSTANTIATE_TEST_SUITE_P(By, ProfileFlows,
                         testing::Values(Hand::Mouse, Hand::Keys, Hand::AssistiveTechnology),
                         testing::PrintToStringParamName());

TEST_F(BundleWindow, TheButtonRowOpensTheProfileManagerToo) {
  open("ProfilesListController");
  driver->click("Profile Manager", kButton);
  EXPECT_EQ(alerts().back().title, "Profile manager");
}

TEST_F(BundleWindow, WithoutProfilesLoadSaysSo) {
  open("ProfilesListController");
  driver->click("Compose", kButton);
  driver->click("Load", kButton);
  EXPECT_TRUE(driver->shows("No profiles found"));
}

}  // namespace
