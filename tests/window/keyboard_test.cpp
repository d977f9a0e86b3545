#include "tests/window/sample_window.h"

namespace {

class Keyboard : public SampleWindow {
 protected:
  QStringList walk(Qt::Key key, int steps, Qt::KeyboardModifiers modifiers = {}) {
    QStringList visited;
    for (int i = 0; i < steps; ++i) {
      driver->key(key, modifiers);
      visited << driver->focused();
    }
    return visited;
  }
  void goTo(const QString& name) {
    for (int i = 0; i < 40 && driver->focused() != name; ++i) driver->key(Qt::Key_Down);
    ASSERT_EQ(driver->focused(), name);
  }
};

TEST_F(Keyboard, TabGoesThroughTheRowsInOrderAlsoThoseThatCantBeUsed) {
  EXPECT_EQ(
      walk(Qt::Key_Tab, 10),
      (QStringList{"Custom level", "Level", "Stays as it is", "Not available on this device",
                   "Tone", "One of very many entries", "No entries at all", "When", "", "Name"}));
}

TEST_F(Keyboard, BacktabGoesTheOtherWay) {
  walk(Qt::Key_Tab, 4);
  EXPECT_EQ(walk(Qt::Key_Backtab, 2, Qt::ShiftModifier), (QStringList{"Stays as it is", "Level"}));
}

TEST_F(Keyboard, ArrowsMoveBetweenRowsAndStopAtTheEnds) {
  EXPECT_EQ(walk(Qt::Key_Down, 2), (QStringList{"Custom level", "Level"}));
  EXPECT_EQ(walk(Qt::Key_Up, 2), (QStringList{"Custom level", "Custom level"}));
}

TEST_F(Keyboard, EveryRowThatDoesSomethingIsReachable) {
  QStringList reached = walk(Qt::Key_Tab, 20);
  for (const char* label : {"Custom level", "Tone", "When", "Name", "A text without label",
                            "Password", "A long page", "Press me", "Delete everything"})
    EXPECT_TRUE(reached.contains(label)) << label;
}

TEST_F(Keyboard, TheBackButtonIsReachable) {
  driver->click("Tone");
  for (int i = 0; i < 4 && driver->focused() != "Back"; ++i) driver->key(Qt::Key_Tab);
  ASSERT_EQ(driver->focused(), "Back");
  driver->key(Qt::Key_Return);
  EXPECT_EQ(title(), "Sample");
}

TEST_F(Keyboard, SpaceAndReturnTurnASwitch) {
  driver->key(Qt::Key_Down);
  driver->key(Qt::Key_Space);
  EXPECT_EQ(device.stored("custom"), plist::Value(true));
  driver->key(Qt::Key_Return);
  EXPECT_EQ(device.stored("custom"), plist::Value(false));
}

TEST_F(Keyboard, LeftAndRightMoveASliderAndStoreEachStep) {
  driver->click("Custom level");
  driver->key(Qt::Key_Down);
  ASSERT_EQ(driver->focused(), "Level");
  driver->key(Qt::Key_Right);
  EXPECT_EQ(device.stored("level"), plist::Value(51.0));
  driver->key(Qt::Key_Left);
  driver->key(Qt::Key_Left);
  EXPECT_EQ(device.stored("level"), plist::Value(49.0));
  driver->key(Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_EQ(device.stored("level"), plist::Value(59.0));
}

TEST_F(Keyboard, HomeEndAndPageKeysMoveASlider) {
  driver->click("Custom level");
  driver->key(Qt::Key_Down);
  driver->key(Qt::Key_PageUp);
  EXPECT_EQ(device.stored("level"), plist::Value(70.0));
  driver->key(Qt::Key_PageDown);
  driver->key(Qt::Key_PageDown);
  EXPECT_EQ(device.stored("level"), plist::Value(30.0));
  driver->key(Qt::Key_End);
  EXPECT_EQ(device.stored("level"), plist::Value(100.0));
  driver->key(Qt::Key_Home);
  EXPECT_EQ(device.stored("level"), plist::Value(0.0));
}

TEST_F(Keyboard, ADigitOnASliderBeginsToTypeItsValue) {
  driver->click("Custom level");
  driver->key(Qt::Key_Down);
  driver->type("33,25");
  driver->key(Qt::Key_Return);
  EXPECT_EQ(device.stored("level"), plist::Value(33.25));
  EXPECT_EQ(driver->focused(), "Level");
  driver->key(Qt::Key_Right);
  EXPECT_EQ(device.stored("level"), plist::Value(34.25));
}

TEST_F(Keyboard, ReturnOnASliderOffersItsValueForTyping) {
  driver->click("Custom level");
  driver->key(Qt::Key_Down);
  driver->key(Qt::Key_Return);
  driver->type("8");
  driver->key(Qt::Key_Down);
  EXPECT_EQ(device.stored("level"), plist::Value(8.0));
  EXPECT_EQ(driver->focused(), "Stays as it is");
}

TEST_F(Keyboard, LeftAndRightChooseASegment) {
  goTo("When");
  driver->key(Qt::Key_Right);
  EXPECT_EQ(device.stored("when"), plist::Value("at"));
  driver->key(Qt::Key_Left);
  driver->key(Qt::Key_Left);
  EXPECT_EQ(device.stored("when"), plist::Value("above"));
}

TEST_F(Keyboard, ARowFurtherDownScrollsIntoView) {
  driver->resize(390, 500);
  goTo("Delete everything");
  QRectF place = driver->place(driver->find("Delete everything"));
  EXPECT_GE(place.top(), 0);
  EXPECT_LE(place.bottom(), 500);
}

TEST_F(Keyboard, AFocusRingShowsOnlyWhereTheKeyboardIsUsed) {
  EXPECT_EQ(driver->rings(), 0);
  driver->click("Stays as it is");
  EXPECT_EQ(driver->rings(), 0);
  driver->key(Qt::Key_Tab);
  EXPECT_EQ(driver->rings(), 1);
  driver->click("Stays as it is");
  EXPECT_EQ(driver->rings(), 0);
}

TEST_F(Keyboard, AFocusRingShowsOnARowThatWasClickedBefore) {
  driver->click("Stays as it is");
  driver->key(Qt::Key_Down);
  EXPECT_EQ(driver->rings(), 1);
  driver->key(Qt::Key_Up);
  EXPECT_EQ(driver->focused(), "Stays as it is");
  EXPECT_EQ(driver->rings(), 1);
}

TEST_F(Keyboard, ReturnOpensAPageAndTheKeyboardGoesOnThereAndComesBack) {
  goTo("A long page");
  driver->key(Qt::Key_Return);
  ASSERT_EQ(title(), "A long page");
  EXPECT_EQ(driver->focused(), "Row 0");
  driver->key(Qt::Key_Escape);
  EXPECT_EQ(driver->focused(), "A long page");
  driver->key(Qt::Key_Down);
  EXPECT_EQ(driver->focused(), "A page that can't be shown");
}

}  // namespace
