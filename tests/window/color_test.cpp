#include "tests/window/color_window.h"

namespace {

using plist::Value;

class Colors : public ColorWindow {};

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

TEST_F(Colors, EveryRowIsReachedByKeysOnAScreenThatHoldsFew) {
  openPicker("Alert Banner", 500);
  driver->key(Qt::Key_End);
  EXPECT_EQ(driver->focused(), "Custom");
  driver->key(Qt::Key_Home);
  EXPECT_EQ(driver->focused(), "None");
  driver->key(Qt::Key_Return);
  EXPECT_EQ(stored("bannercolor"), Value("none"));
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

// What assistive technology reads of the table.
QStringList read(const Driver& driver) {
  QStringList all;
  for (QQuickItem* item : driver.items()) {
    QAccessibleInterface* found = QAccessible::queryAccessibleInterface(item);
    if (!found || found->text(QAccessible::Name).isEmpty()) continue;
    QString line = QString("%1 \"%2\" %3")
                       .arg(found->role())
                       .arg(found->text(QAccessible::Name), found->text(QAccessible::Description));
    if (found->state().checked) line += ", checked";
    if (auto* value = found->valueInterface()) line += ", " + value->currentValue().toString();
    all << line;
  }
  return all;
}

TEST_F(Colors, RowsThatAreOffScreenReadLikeRowsOnScreen) {
  store("#804000");
  openPicker("Alert Banner");
  const QStringList whole = read(*driver);
  ASSERT_GT(whole.size(), 64);
  driver->click("Back");
  driver->resize(390, 800);
  driver->click("Alert Banner", kButton);
  ASSERT_LT(page().tableRows.size(), 20u);
  driver->until([&] { return read(*driver) == whole; });  // rows are made one after another
  ASSERT_EQ(read(*driver), whole);
  EXPECT_TRUE(ticked("Mocha"));
}

TEST_F(Colors, ARowThatIsOffScreenIsBroughtOnScreenToBeChosen) {
  openPicker("Alert Banner", 500);
  ASSERT_TRUE(driver->until([this] { return driver->find("Mocha", kRadioButton); }));
  ASSERT_GT(driver->place(driver->find("Mocha", kRadioButton)).top(), 500);
  ASSERT_TRUE(driver->act("Mocha", kRadioButton, QAccessibleActionInterface::pressAction()));
  EXPECT_EQ(stored("bannercolor"), Value("#804000"));
  EXPECT_TRUE(ticked("Mocha"));
  EXPECT_FALSE(ticked("Quorvantis"));
  EXPECT_LE(driver->place(driver->find("Mocha", kRadioButton)).bottom(), 500);
  EXPECT_TRUE(bridge().problems().isEmpty());
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
