#include "tests/window/bundle_window.h"

namespace {

constexpr const char* kWheel = "Select the trigger for the profile";

// The wheel of the Save alert: 108 triggers, opened at "Battery 55%".
class Picker : public BundleWindow {
 protected:
  Picker() {
    open("ProfilesListController");
    driver->click("Compose");
    driver->click("Save");
  }
  QQuickItem* wheel() const { return driver->find(kWheel, QAccessible::SpinBox); }
  int picked() const { return alerts().back().picker->selected; }
  QString spoken() const {
    return driver->accessible(kWheel, QAccessible::SpinBox)->text(QAccessible::Description);
  }
  void pressKey(Qt::Key key, int row) {
    driver->key(key);
    EXPECT_EQ(picked(), row) << key;
  }
};

TEST_F(Picker, OpensAtTheChosenRowAndTheFirstFocusCancels) {
  EXPECT_EQ(picked(), 54);
  EXPECT_EQ(spoken(), "Battery 55%");
  EXPECT_EQ(driver->focused(), "Cancel");
  driver->key(Qt::Key_Return);
  EXPECT_TRUE(alerts().empty());
}

TEST_F(Picker, AKeyThatTurnsItGivesItTheKeyboard) {
  driver->key(Qt::Key_Down);
  EXPECT_EQ(picked(), 55);
  EXPECT_EQ(driver->focused(), kWheel);
}

TEST_F(Picker, TurnsByKeys) {
  pressKey(Qt::Key_Down, 55);
  pressKey(Qt::Key_Up, 54);
  pressKey(Qt::Key_PageDown, 59);
  pressKey(Qt::Key_PageUp, 54);
  pressKey(Qt::Key_End, 107);
  pressKey(Qt::Key_Down, 107);
  pressKey(Qt::Key_Home, 0);
  pressKey(Qt::Key_Up, 0);
}

TEST_F(Picker, TurnsToWhatIsTyped) {
  driver->type("70");
  EXPECT_EQ(spoken(), "Battery 70%");
}

TEST_F(Picker, TypingFindsTheBeginningOfARow) {
  driver->type("wifi d");
  EXPECT_EQ(spoken(), "WiFi disconnected");
}

TEST_F(Picker, WhatNoRowSaysLeavesTheWheel) {
  driver->type("zz");
  EXPECT_EQ(picked(), 54);
}

TEST_F(Picker, TurnsByTheMouseWheelARowANotch) {
  driver->wheel(wheel(), -120);
  EXPECT_EQ(picked(), 55);
  driver->wheel(wheel(), 360);
  EXPECT_EQ(picked(), 52);
}

TEST_F(Picker, TurnsByAClickOnARow) {
  QRectF place = driver->place(wheel());
  const int height = wheel()->property("rowHeight").toInt();
  QTest::mouseClick(window, Qt::LeftButton, {},
                    (place.center() + QPointF(0, 2 * height)).toPoint());
  driver->waitUntilIdle();
  EXPECT_EQ(picked(), 56);
}

TEST_F(Picker, TurnsByTouch) {
  QPointingDevice* device = QTest::createTouchDevice();
  const int height = wheel()->property("rowHeight").toInt();
  QPoint at = driver->place(wheel()).center().toPoint();
  QTest::touchEvent(window, device).press(0, at, window);
  for (int step = 1; step <= 12; ++step) {
    QTest::qWait(16);
    QTest::touchEvent(window, device).move(0, at - QPoint(0, step * height / 6), window);
  }
  QTest::qWait(300);
  QTest::touchEvent(window, device).release(0, at - QPoint(0, 2 * height), window);
  EXPECT_TRUE(driver->until([this] { return picked() != 54; }));
  EXPECT_GE(picked(), 55);
  EXPECT_LE(picked(), 57);
}

TEST_F(Picker, AssistiveTechnologyTurnsIt) {
  using Action = QAccessibleActionInterface;
  ASSERT_TRUE(driver->act(kWheel, QAccessible::SpinBox, Action::increaseAction()));
  EXPECT_EQ(picked(), 55);
  ASSERT_TRUE(driver->act(kWheel, QAccessible::SpinBox, Action::decreaseAction()));
  EXPECT_EQ(picked(), 54);
  EXPECT_EQ(
      driver->accessible(kWheel, QAccessible::SpinBox)->valueInterface()->maximumValue().toInt(),
      107);
}

TEST_F(Picker, ReturnConfirms) {
  driver->key(Qt::Key_Home);
  driver->key(Qt::Key_Return);
  EXPECT_TRUE(exists("/var/mobile/Documents/Quorvantis/profile_1.qvx"));
}

TEST_F(Picker, EscCancels) {
  driver->key(Qt::Key_Escape);
  EXPECT_TRUE(alerts().empty());
  EXPECT_EQ(page().pageClass, "ProfilesListController");
}

TEST_F(Picker, FitsAWindowThatIsLow) {
  driver->resize(320, 360);
  QRectF button = driver->place(driver->find("Save", QAccessible::Button));
  EXPECT_LE(button.bottom(), 360);
  EXPECT_GE(driver->place(driver->find("Save profile", QAccessible::Heading)).top(), 0);
}

TEST_F(BundleWindow, AWheelThatLosesItsListsSaysThatItIsEmpty) {
  write("/var/mobile/Documents/Quorvantis/profile_7.qvx",
        plist::Dictionary{{"profilepercentage", "7"}});
  open("ProfilesListController");
  const auto perform = [this](const host::Request& request) {
    ASSERT_TRUE(application->perform(request));
  };
  perform(host::Bar{});
  perform(host::Press{"Load"});
  perform(host::Press{"Load"});  // which drops the lists half a second later
  perform(host::Bar{});
  perform(host::Press{"Save"});
  ASSERT_EQ(alerts().back().picker->rows.size(), 108u);
  EXPECT_TRUE(driver->until([this] { return driver->shows("No entries"); }));
  EXPECT_TRUE(alerts().back().picker->rows.empty());
  EXPECT_EQ(driver->accessible(kWheel, QAccessible::SpinBox)->text(QAccessible::Description), "");
}

}  // namespace
