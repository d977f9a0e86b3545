#include "tests/window/bundle_window.h"

namespace {

using plist::Value;

class Colors : public BundleWindow {
 protected:
  Colors() { open("ExtrasListController"); }

  void openPicker(const QString& setting, int height = 5000) {
    driver->resize(390, 5000);
    driver->click(setting);
    driver->resize(390, height);
    ASSERT_EQ(page().pageClass, "ZorvekColorPickerQuorvantis");
  }
  QString spoken(const QString& name, QAccessible::Role role) const {
    QAccessibleInterface* accessible = driver->accessible(name, role);
    return accessible ? accessible->text(QAccessible::Description)
                      : QString("nothing is called so");
  }
  bool ticked(const QString& name) const {
    return driver->accessible(name, kRadioButton)->state().checked;
  }
  double at(const QString& slider) const {
    return driver->accessible(slider, kSlider)->valueInterface()->currentValue().toDouble();
  }
  void tapCustom() {  // beside the sliders, which may be below
    const QRectF place = driver->place(driver->find("Custom", kRadioButton));
    QTest::mouseClick(
        window, Qt::LeftButton, {},
        QPoint(static_cast<int>(place.left()) + 40, static_cast<int>(place.top()) + 20));
    driver->waitUntilIdle();
  }
  void store(const Value& value) {
    ASSERT_TRUE(device->preferences().setAppValue("bannercolor", value, "com.zorvek.quorvantis"));
  }
  void toTheEnd() {
    QQuickItem* table = driver->itemsOfType("SwatchesView").front();
    table->forceActiveFocus();
    driver->key(Qt::Key_End);
  }
  QColor patch(QQuickItem* row) const {
    for (QQuickItem* item : driver->itemsOfType("ColorSwatch"))
      if (row->isAncestorOf(item)) return item->property("color").value<QColor>();
    return {};
  }
  QColor patch(const QString& name, QAccessible::Role role) const {
    return patch(driver->find(name, role));
  }
};

TEST_F(Colors, ARowShowsItsPatchOrItsWord) {
  EXPECT_EQ(patch("Alert Banner", QAccessible::Button), QColor("#34495F"));
  EXPECT_EQ(patch("Screen Flash", QAccessible::Button), QColor("#FFFFFF"));
  EXPECT_TRUE(driver->shows("none"));
}

TEST_F(Colors, ARowSaysTheColorByNameAndText) {
  EXPECT_EQ(spoken("Alert Banner", QAccessible::Button), "Quorvantis, #34495F");
  EXPECT_EQ(spoken("Status Icon While Active", QAccessible::Button), "None");
}

TEST_F(Colors, ThePageHasItsSectionsAndTheChosenColorTicked) {
  openPicker("Alert Banner");
  for (const char* title : {"Special", "iOS Palette", "Crayons", "Custom"})
    EXPECT_TRUE(driver->accessible(title, QAccessible::Heading)) << title;
  EXPECT_TRUE(ticked("Quorvantis"));
  EXPECT_FALSE(ticked("None"));
  EXPECT_EQ(spoken("System Blue", kRadioButton), "#007AFF");
  EXPECT_EQ(patch("System Blue", kRadioButton), QColor("#007AFF"));
}

TEST_F(Colors, AClickChoosesStoresAndMovesTheSliders) {
  openPicker("Alert Banner");
  driver->click("System Blue", kRadioButton);
  EXPECT_EQ(stored("bannercolor"), Value("#007AFF"));
  EXPECT_TRUE(ticked("System Blue"));
  EXPECT_FALSE(ticked("Quorvantis"));
  EXPECT_EQ(at("Red"), 0);
  EXPECT_EQ(at("Green"), 122);
  EXPECT_EQ(at("Blue"), 255);
}

TEST_F(Colors, ThePreviewFollowsTheChoice) {
  openPicker("Alert Banner");
  EXPECT_EQ(spoken("Alert Banner", QAccessible::StaticText), "Quorvantis, #34495F");
  driver->click("System Blue", kRadioButton);
  EXPECT_EQ(spoken("Alert Banner", QAccessible::StaticText), "System Blue, #007AFF");
  EXPECT_EQ(patch("Alert Banner", QAccessible::StaticText), QColor("#007AFF"));
}

TEST_F(Colors, ThePreviewFollowsASliderOnceItIsReleased) {
  openPicker("Alert Banner");
  tapCustom();
  driver->find("Red", kSlider)->forceActiveFocus();
  driver->key(Qt::Key_End);
  EXPECT_EQ(spoken("Alert Banner", QAccessible::StaticText), "#FF495F");
  EXPECT_EQ(patch("Alert Banner", QAccessible::StaticText), QColor("#FF495F"));
}

TEST_F(Colors, ThePreviewOfNoColorHasAWordAndNoPatch) {
  openPicker("Alert Banner");
  driver->click("None", kRadioButton);
  EXPECT_EQ(spoken("Alert Banner", QAccessible::StaticText), "None");
  EXPECT_FALSE(patch("Alert Banner", QAccessible::StaticText).isValid());
}

TEST_F(Colors, TheRowShowsTheChoiceAfterwards) {
  openPicker("Alert Banner");
  driver->click("System Blue", kRadioButton);
  driver->click("Back");
  EXPECT_EQ(patch("Alert Banner", QAccessible::Button), QColor("#007AFF"));
}

TEST_F(Colors, AssistiveTechnologyChooses) {
  openPicker("Alert Banner");
  ASSERT_TRUE(driver->act("Pink", kRadioButton, QAccessibleActionInterface::pressAction()));
  EXPECT_EQ(stored("bannercolor"), Value("#FF2D55"));
}

TEST_F(Colors, KeysChoose) {
  openPicker("Alert Banner");
  driver->key(Qt::Key_Home);
  EXPECT_EQ(driver->focused(), "None");
  driver->key(Qt::Key_Down);
  driver->key(Qt::Key_Down);
  EXPECT_EQ(driver->focused(), "Purple");
  driver->key(Qt::Key_Return);
  EXPECT_EQ(stored("bannercolor"), Value("#5856D6"));
  driver->key(Qt::Key_Down);
  driver->key(Qt::Key_Space);
  EXPECT_EQ(stored("bannercolor"), Value("#007AFF"));
}

TEST_F(Colors, ADragOnTheTickedRowStoresWhenItIsReleased) {
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

TEST_F(Colors, AFingerDragsASlider) {
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

TEST_F(Colors, AClickBesideTheHandleMovesASliderAndReleasesIt) {
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

TEST_F(Colors, SlidersMixOnTheCustomRowAfterItsCellWentToOtherRows) {
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

TEST_F(Colors, WhatOthersHaveStoredIsShownOnTheCustomRow) {
  const std::pair<Value, const char*> cases[] = {
      {"#007aff", "#007aff"}, {"automatic", "automatic"}, {12, "12"}};
  for (const auto& [value, shown] : cases) {
    store(value);
    openPicker("Alert Banner");
    EXPECT_TRUE(ticked("Custom")) << shown;
    EXPECT_FALSE(ticked("System Blue")) << shown;
    EXPECT_EQ(spoken("Custom", kRadioButton), shown);
    driver->click("Back");
  }
}

TEST_F(Colors, TheCustomRowSaysHowItsColorIsSet) {
  openPicker("Alert Banner");
  EXPECT_TRUE(driver->shows("Tap the row to set the color that you have mixed."));
  tapCustom();
  EXPECT_TRUE(driver->shows("The color is set when you let go of a slider."));
}

TEST_F(Colors, ADragWhileAPresetIsTickedStoresNothing) {
  openPicker("Alert Banner");
  driver->click("System Blue", kRadioButton);
  driver->find("Red", kSlider)->forceActiveFocus();
  driver->key(Qt::Key_End);
  EXPECT_EQ(spoken("Custom", kRadioButton), "#FF7AFF");
  EXPECT_EQ(stored("bannercolor"), Value("#007AFF"));
  tapCustom();
  EXPECT_EQ(stored("bannercolor"), Value("#FF7AFF"));
}

TEST_F(Colors, SlidersMoveByKeysInStepsOf1And16) {
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

TEST_F(Colors, AssistiveTechnologyMovesTheSliders) {
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

TEST_F(Colors, EveryRowIsReachedByKeysOnAScreenThatHoldsFew) {
  openPicker("Alert Banner", 500);
  driver->key(Qt::Key_End);
  EXPECT_EQ(driver->focused(), "Custom");
  driver->key(Qt::Key_Home);
  EXPECT_EQ(driver->focused(), "None");
  driver->key(Qt::Key_Return);
  EXPECT_EQ(stored("bannercolor"), Value("none"));
}

TEST_F(Colors, AMixIsKeptWhileTheCustomRowStaysOnScreen) {
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

TEST_F(Colors, TheEndShowsTheWholeCustomRow) {
  openPicker("Alert Banner", 844);
  toTheEnd();
  QQuickItem* hint = nullptr;
  for (QQuickItem* text : driver->itemsOfType("QQuickText"))
    if (text->property("text").toString().startsWith("Tap the row")) hint = text;
  ASSERT_TRUE(hint);
  EXPECT_LE(driver->place(hint).bottom(), 844);
}

TEST_F(Colors, TabGoesThroughTheRowsAndKeepsThemOnScreen) {
  openPicker("Alert Banner", 500);
  const auto onScreen = [this] {
    const QRectF place = driver->place(driver->find(driver->focused(), kRadioButton));
    return place.top() >= 0 && place.bottom() <= 500;
  };
  driver->key(Qt::Key_Home);
  for (const char* next : {"Quorvantis", "Purple", "System Blue", "Marine Blue", "Light Blue",
                           "Pink", "System Red", "Orange", "Yellow", "System Green", "Gray"}) {
    driver->key(Qt::Key_Tab);
    EXPECT_EQ(driver->focused(), next);
    EXPECT_TRUE(onScreen()) << next;
  }
  driver->key(Qt::Key_Backtab);
  EXPECT_EQ(driver->focused(), "System Green");
  driver->click("Orange", kRadioButton);
  EXPECT_EQ(driver->rings(), 0);
  driver->key(Qt::Key_Down);
  driver->key(Qt::Key_Up);
  EXPECT_EQ(driver->focused(), "Orange");
  EXPECT_EQ(driver->rings(), 1);
}

TEST_F(Colors, TabGoesFromTheCustomRowToItsSlidersAndBack) {
  openPicker("Alert Banner", 500);
  driver->key(Qt::Key_End);
  for (const char* next : {"Red", "Green", "Blue"}) {
    driver->key(Qt::Key_Tab);
    EXPECT_EQ(driver->focused(), next);
  }
  driver->key(Qt::Key_Tab);
  EXPECT_EQ(driver->focused(), "Back") << "out of the table";
  for (const char* next : {"Blue", "Green", "Red", "Custom", "Mocha"}) {
    driver->key(Qt::Key_Backtab);
    EXPECT_EQ(driver->focused(), next);
  }
}

TEST_F(Colors, ComingToTheForegroundShowsWhatOthersHaveStored) {
  foundation::Preferences another(device->root());
  ASSERT_TRUE(another.setAppValue("bannercolor", "#FF9500", "com.zorvek.quorvantis"));
  EXPECT_EQ(patch("Alert Banner", QAccessible::Button), QColor("#34495F"));
  emit qApp->applicationStateChanged(Qt::ApplicationInactive);
  emit qApp->applicationStateChanged(Qt::ApplicationActive);
  driver->waitUntilIdle();
  EXPECT_EQ(patch("Alert Banner", QAccessible::Button), QColor("#FF9500"));
}

}  // namespace
