#include "tests/window/color_window.h"

namespace {

using plist::Value;

// The row whose color the user mixes.
class ColorSliders : public ColorWindow {};

TEST_F(ColorSliders, ADragOnTheTickedRowStoresWhenItIsReleased) {
  openPicker("Alert Banner");
  driver->click("System Blue", kRadioButton);
  tapCustom();
  ASSERT_EQ(stored("bannercolor"), Value("#007AFF"));
  QRectF place = driver->place(driver->find("Red", kSlider));
  const QPoint start(static_cast<int>(place.left()) + 10, static_cast<int>(place.center().y()));
  const QPoint end(static_cast<int>(place.right()) + 40, start.y());
  QTest::mousePress(window, Qt::LeftButton, {}, start);
  for (int step = 1; step <= 8; ++step) QTest::mouseMove(window, start + (end - start) * step / 8);
  driver->waitUntilIdle();
  EXPECT_EQ(spoken("Custom", kRadioButton), "#FF7AFF");
  EXPECT_EQ(patch("Custom", kRadioButton), QColor("#FF7AFF"));
  EXPECT_EQ(stored("bannercolor"), Value("#007AFF"));
  QTest::mouseRelease(window, Qt::LeftButton, {}, end);
  driver->waitUntilIdle();
  EXPECT_EQ(stored("bannercolor"), Value("#FF7AFF"));
}

TEST_F(ColorSliders, AFingerDragsASlider) {
  openPicker("Alert Banner");
  driver->click("System Blue", kRadioButton);
  tapCustom();
  QPointingDevice* finger = QTest::createTouchDevice();
  const QRectF place = driver->place(driver->find("Green", kSlider));
  const QPoint start(place.center().toPoint()),
      end(static_cast<int>(place.right()) + 40, start.y());
  QTest::touchEvent(window, finger).press(0, start, window);
  for (int step = 1; step <= 8; ++step)
    QTest::touchEvent(window, finger).move(0, start + (end - start) * step / 8, window);
  driver->waitUntilIdle();
  EXPECT_EQ(spoken("Custom", kRadioButton), "#00FFFF");
  EXPECT_EQ(stored("bannercolor"), Value("#007AFF"));
  QTest::touchEvent(window, finger).release(0, end, window);
  driver->waitUntilIdle();
  EXPECT_EQ(stored("bannercolor"), Value("#00FFFF"));
}

TEST_F(ColorSliders, AClickBesideTheHandleMovesASliderAndReleasesIt) {
  openPicker("Alert Banner");
  driver->click("System Blue", kRadioButton);
  tapCustom();
  const QRectF place = driver->place(driver->find("Blue", kSlider));
  QTest::mouseClick(
      window, Qt::LeftButton, {},
      QPoint(static_cast<int>(place.left()) + 3, static_cast<int>(place.center().y())));
  driver->waitUntilIdle();
  EXPECT_EQ(stored("bannercolor"), Value("#007A00"));
}

TEST_F(ColorSliders, ADragWhileAPresetIsTickedStoresNothing) {
  openPicker("Alert Banner");
  driver->click("System Blue", kRadioButton);
  driver->find("Red", kSlider)->forceActiveFocus();
  driver->key(Qt::Key_End);
  EXPECT_EQ(spoken("Custom", kRadioButton), "#FF7AFF");
  EXPECT_EQ(stored("bannercolor"), Value("#007AFF"));
  tapCustom();
  EXPECT_EQ(stored("bannercolor"), Value("#FF7AFF"));
}

TEST_F(ColorSliders, SlidersMoveByKeysInStepsOf1And16) {
  openPicker("Alert Banner");
  driver->click("System Blue", kRadioButton);
  driver->find("Green", kSlider)->forceActiveFocus();
  driver->key(Qt::Key_Right);
  EXPECT_EQ(at("Green"), 123);
  driver->key(Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_EQ(at("Green"), 107);
  driver->key(Qt::Key_PageUp);
  EXPECT_EQ(at("Green"), 123);
  driver->key(Qt::Key_PageDown);
  driver->key(Qt::Key_Left);
  EXPECT_EQ(at("Green"), 106);
  driver->key(Qt::Key_Home);
  EXPECT_EQ(at("Green"), 0);
  EXPECT_EQ(spoken("Custom", kRadioButton), "#0000FF");
  EXPECT_EQ(spoken("Green", kSlider), "#0000FF");
  driver->key(Qt::Key_End);
  EXPECT_EQ(at("Green"), 255);
}

TEST_F(ColorSliders, AssistiveTechnologyMovesTheSliders) {
  openPicker("Alert Banner");
  driver->click("System Blue", kRadioButton);
  ASSERT_TRUE(driver->act("Red", kSlider, QAccessibleActionInterface::increaseAction()));
  EXPECT_EQ(spoken("Custom", kRadioButton), "#017AFF");
  driver->accessible("Blue", kSlider)->valueInterface()->setCurrentValue(16.0);
  driver->waitUntilIdle();
  EXPECT_EQ(spoken("Custom", kRadioButton), "#017A10");
  QAccessibleValueInterface* range = driver->accessible("Red", kSlider)->valueInterface();
  EXPECT_EQ(range->minimumValue().toDouble(), 0);
  EXPECT_EQ(range->maximumValue().toDouble(), 255);
}

TEST_F(ColorSliders, ThePreviewFollowsASliderOnceItIsReleased) {
  openPicker("Alert Banner");
  tapCustom();
  driver->find("Red", kSlider)->forceActiveFocus();
  driver->key(Qt::Key_End);
  EXPECT_EQ(spoken("Alert Banner", QAccessible::StaticText), "#FF495F");
  EXPECT_EQ(patch("Alert Banner", QAccessible::StaticText), QColor("#FF495F"));
}

TEST_F(ColorSliders, TheCustomRowSaysHowItsColorIsSet) {
  openPicker("Alert Banner");
  EXPECT_TRUE(driver->shows("Tap the row to set the color that you have mixed."));
  tapCustom();
  EXPECT_TRUE(driver->shows("The color is set when you let go of a slider."));
}

TEST_F(ColorSliders, SlidersMixOnTheCustomRowAfterItsCellWentToOtherRows) {
  openPicker("Alert Banner", 700);
  for (int turn = 0; turn < 3; ++turn) {
    toTheEnd();
    for (int step = 0; step < 12; ++step) driver->key(Qt::Key_Up);
    for (int step = 0; step < 12; ++step) driver->key(Qt::Key_Down);
    driver->key(Qt::Key_Up);
  }
  driver->find("Red", kSlider)->forceActiveFocus();
  driver->key(Qt::Key_End);
  EXPECT_EQ(spoken("Custom", kRadioButton), "#FF495F");
  EXPECT_EQ(patch("Custom", kRadioButton), QColor("#FF495F"));
  EXPECT_EQ(spoken("Mocha", kRadioButton), "#804000");
}

TEST_F(ColorSliders, ASliderThatIsOffScreenIsBroughtOnScreenToBeMoved) {
  store("#010203");
  openPicker("Alert Banner", 500);
  ASSERT_TRUE(driver->until([this] { return driver->find("Red", kSlider); }));
  ASSERT_GT(driver->place(driver->find("Red", kSlider)).top(), 500);
  ASSERT_TRUE(driver->act("Red", kSlider, QAccessibleActionInterface::increaseAction()));
  EXPECT_EQ(stored("bannercolor"), Value("#020203"));
  EXPECT_EQ(at("Red"), 2);
  EXPECT_LE(driver->place(driver->find("Red", kSlider)).bottom(), 500);
  EXPECT_TRUE(bridge().problems().isEmpty());
}

TEST_F(ColorSliders, AMixIsKeptWhileTheCustomRowStaysOnScreen) {
  openPicker("Alert Banner", 844);
  toTheEnd();
  driver->find("Red", kSlider)->forceActiveFocus();
  for (int step = 0; step < 6; ++step) driver->key(Qt::Key_Right);
  EXPECT_EQ(spoken("Custom", kRadioButton), "#3A495F");
  QQuickItem* row = driver->find("Mocha", kRadioButton);
  for (const int turned : {120, 120, 120, -120, -120, -120}) {
    driver->wheel(row, turned);
    EXPECT_EQ(spoken("Custom", kRadioButton), "#3A495F");
  }
}

}  // namespace
