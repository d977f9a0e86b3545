#include "tests/window/sample_window.h"

namespace {

// A slider, and the value beside it, which can be typed.
class SliderRows : public SampleWindow {
 protected:
  const QString kLevelField = "Level, as a number";
};

TEST_F(SliderRows, ASliderStoresItsValueWhenItIsReleased) {
  driver->click("Custom level");
  QRectF place = driver->place(driver->find("Level", kSlider));
  QPoint start = place.center().toPoint(), end(static_cast<int>(place.right()) - 5, start.y());
  QTest::mousePress(window, Qt::LeftButton, {}, start);
  QTest::mouseMove(window, (start + end) / 2);
  QTest::mouseMove(window, end);
  EXPECT_TRUE(device.stored("level").isNothing());
  QTest::mouseRelease(window, Qt::LeftButton, {}, end);
  driver->waitUntilIdle();
  EXPECT_EQ(device.stored("level"), plist::Value(100.0));
  EXPECT_TRUE(driver->shows("100"));
}

TEST_F(SliderRows, ASliderThatShowsItsValueStoresWhatItShows) {
  driver->click("Custom level");
  const QRectF place = driver->place(driver->find("Level", kSlider));
  const QPoint start = place.center().toPoint();
  QTest::mousePress(window, Qt::LeftButton, {}, start);
  for (int x : {3, 7, 11}) QTest::mouseMove(window, start + QPoint(x, 0));
  const QString shown = QString::number(driver->find("Level", kSlider)->property("value").toReal());
  EXPECT_FALSE(shown.contains('.')) << shown.toStdString();
  EXPECT_NE(shown, "50");
  EXPECT_TRUE(driver->shows(shown));
  QTest::mouseRelease(window, Qt::LeftButton, {}, start + QPoint(11, 0));
  driver->waitUntilIdle();
  EXPECT_EQ(device.stored("level"), plist::Value(shown.toDouble()));
}

TEST_F(SliderRows, AClickOnAValueLetsItBeTyped) {
  driver->click("Custom level");
  driver->click(kLevelField, kText);
  driver->type("12.5");
  EXPECT_TRUE(device.stored("level").isNothing());
  driver->key(Qt::Key_Return);
  EXPECT_EQ(device.stored("level"), plist::Value(12.5));
  EXPECT_TRUE(driver->shows("12.5"));
  EXPECT_EQ(driver->focused(), "Level");
}

TEST_F(SliderRows, ATypedValueIsStoredWhenTheFieldIsLeft) {
  driver->click("Custom level");
  driver->click(kLevelField, kText);
  driver->type("7");
  driver->click("Stays as it is");
  EXPECT_EQ(device.stored("level"), plist::Value(7.0));
}

TEST_F(SliderRows, EscapeGivesBackTheValueThatWasThere) {
  driver->click("Custom level");
  driver->click(kLevelField, kText);
  driver->type("7");
  driver->key(Qt::Key_Escape);
  EXPECT_TRUE(device.stored("level").isNothing());
  EXPECT_TRUE(driver->shows("50"));
  EXPECT_EQ(title(), "Sample");
}

TEST_F(SliderRows, WhatASliderCantTakeIsRefusedInWords) {
  driver->click("Custom level");
  for (const char* typed : {"100.5", "-1", "172"}) {
    driver->click(kLevelField, kText);
    driver->type(typed);
    driver->key(Qt::Key_Return);
    EXPECT_TRUE(device.stored("level").isNothing()) << typed;
    ASSERT_EQ(bridge().problems().size(), 1) << typed;
    EXPECT_EQ(bridge().problems().first(), "Level takes a number from 0 to 100.");
    EXPECT_EQ(driver->focused(), kLevelField) << "stays in the editor";
    driver->key(Qt::Key_Escape);
    EXPECT_TRUE(driver->shows("50")) << typed;
    bridge().dismiss(0);
  }
}

TEST_F(SliderRows, NoKeyLeavesAnEditorWithWhatASliderCantTake) {
  driver->click("Custom level");
  driver->click(kLevelField, kText);
  driver->type("172");
  for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Down, Qt::Key_Up, Qt::Key_PageDown}) {
    driver->key(key);
    EXPECT_EQ(driver->focused(), kLevelField) << key;
    EXPECT_EQ(window->activeFocusItem()->property("text"), "172") << key;
  }
  driver->key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(driver->focused(), kLevelField);
  driver->type("72");
  driver->key(Qt::Key_Tab);
  EXPECT_NE(driver->focused(), kLevelField);
  EXPECT_EQ(device.stored("level"), plist::Value(72.0));
}

TEST_F(SliderRows, LettersCantBeTypedAsAValue) {
  driver->click("Custom level");
  driver->click(kLevelField, kText);
  driver->type("nan 4e2x");
  driver->key(Qt::Key_Return);
  EXPECT_EQ(device.stored("level"), plist::Value(42.0));
}

TEST_F(SliderRows, AValueOfADimmedSliderCantBeTyped) {
  driver->clickItem(driver->find(kLevelField, kText));
  driver->type("7");
  driver->key(Qt::Key_Return);
  EXPECT_TRUE(device.stored("level").isNothing());
}

}  // namespace
