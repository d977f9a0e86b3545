#include "tests/window/sample_window.h"

namespace {

class Accessibility : public SampleWindow {
 protected:
  const QString kPress = QAccessibleActionInterface::pressAction();
  const QString kToggle = QAccessibleActionInterface::toggleAction();
  const QString kIncrease = QAccessibleActionInterface::increaseAction();
  const QString kDecrease = QAccessibleActionInterface::decreaseAction();
};

TEST_F(Accessibility, RowsHaveTheirNamesAndRoles) {
  EXPECT_TRUE(driver->accessible("Custom level", kCheckBox));
  EXPECT_TRUE(driver->accessible("Level", kSlider));
  EXPECT_TRUE(driver->accessible("Tone", kButton));
  EXPECT_TRUE(driver->accessible("Above", kRadioButton));
  EXPECT_TRUE(driver->accessible("Name", kText));
  EXPECT_TRUE(driver->accessible("Press me", kButton));
  EXPECT_TRUE(driver->accessible("Choices", QAccessible::Heading));
  EXPECT_TRUE(driver->accessible("Pressed", QAccessible::StaticText));
}

TEST_F(Accessibility, StatesSayWhatIsOnAndWhatCantBeUsed) {
  EXPECT_FALSE(driver->accessible("Custom level", kCheckBox)->state().checked);
  driver->click("Custom level");
  EXPECT_TRUE(driver->accessible("Custom level", kCheckBox)->state().checked);
  EXPECT_EQ(driver->accessible("Not available on this device")->text(QAccessible::Description),
            "dimmed");
}

TEST_F(Accessibility, ALinksDescriptionIsItsValue) {
  EXPECT_EQ(driver->accessible("Tone", kButton)->text(QAccessible::Description), "Middle");
}

TEST_F(Accessibility, ATextSaysThatItIsChanged) {
  for (const auto& [id, label] : {std::pair("name", "Name"), std::pair("secret", "Password")}) {
    EXPECT_EQ(driver->accessible(label, kText)->text(QAccessible::Description), "") << label;
    set(id, "other");
    driver->waitUntilIdle();
    EXPECT_EQ(driver->accessible(label, kText)->text(QAccessible::Description), "changed") << label;
  }
}

TEST_F(Accessibility, TogglingASwitchStores) {
  ASSERT_TRUE(driver->act("Custom level", kCheckBox, kToggle));
  EXPECT_EQ(device.stored("custom"), plist::Value(true));
  ASSERT_TRUE(driver->act("Custom level", kCheckBox, kToggle));
  EXPECT_EQ(device.stored("custom"), plist::Value(false));
}

TEST_F(Accessibility, PressingASwitchStores) {
  ASSERT_TRUE(driver->act("Custom level", kCheckBox, kPress));
  EXPECT_EQ(device.stored("custom"), plist::Value(true));
}

TEST_F(Accessibility, ASliderReportsItsRangeAndItsStepsStore) {
  driver->click("Custom level");
  QAccessibleInterface* slider = driver->accessible("Level", kSlider);
  ASSERT_TRUE(slider->valueInterface());
  EXPECT_EQ(slider->valueInterface()->minimumValue().toDouble(), 0);
  EXPECT_EQ(slider->valueInterface()->maximumValue().toDouble(), 100);
  EXPECT_EQ(slider->valueInterface()->currentValue().toDouble(), 50);
  EXPECT_EQ(slider->valueInterface()->minimumStepSize().toDouble(), 1);
  ASSERT_TRUE(driver->act("Level", kSlider, kIncrease));
  EXPECT_EQ(device.stored("level"), plist::Value(51.0));
  ASSERT_TRUE(driver->act("Level", kSlider, kDecrease));
  EXPECT_EQ(device.stored("level"), plist::Value(50.0));
}

TEST_F(Accessibility, AValueThatIsSetStores) {
  driver->click("Custom level");
  driver->accessible("Level", kSlider)->valueInterface()->setCurrentValue(80.0);
  driver->waitUntilIdle();
  EXPECT_EQ(device.stored("level"), plist::Value(80.0));
}

TEST_F(Accessibility, ADimmedRowCantBeOperated) {
  driver->act("Not available on this device", kCheckBox, kToggle);
  EXPECT_TRUE(device.stored("off").isNothing());
  EXPECT_TRUE(driver->accessible("Not available on this device", kCheckBox)->state().checked);
}

TEST_F(Accessibility, PressingALinkOpensItsPageAndBackComesBack) {
  ASSERT_TRUE(driver->act("A long page", kButton, kPress));
  EXPECT_EQ(title(), "A long page");
  ASSERT_TRUE(driver->act("Back", kButton, kPress));
  EXPECT_EQ(title(), "Sample");
}

TEST_F(Accessibility, PressingAButtonRunsItsAction) {
  ASSERT_TRUE(driver->act("Press me", kButton, kPress));
  EXPECT_TRUE(driver->shows("yes"));
}

TEST_F(Accessibility, PressingASegmentChoosesIt) {
  ASSERT_TRUE(driver->act("Below", kRadioButton, kPress));
  EXPECT_EQ(device.stored("when"), plist::Value("below"));
}

TEST_F(Accessibility, PressingAChoiceChoosesIt) {
  driver->click("Tone");
  ASSERT_TRUE(driver->act("Low", kRadioButton, kPress));
  EXPECT_EQ(device.stored("tone"), plist::Value(1));
}

TEST_F(Accessibility, AProblemIsAnAlert) {
  application->report({.words = "The disk is full."});
  driver->waitUntilIdle();
  EXPECT_TRUE(driver->accessible("The disk is full.", QAccessible::AlertMessage));
  ASSERT_TRUE(driver->act("Dismiss", kButton, kPress));
  EXPECT_FALSE(driver->accessible("The disk is full."));
}

TEST_F(Accessibility, ADimmedRowIsUnavailableAndCanHaveTheKeyboard) {
  QAccessibleInterface* dimmed = driver->accessible("Not available on this device", kCheckBox);
  EXPECT_TRUE(dimmed->state().disabled);
  EXPECT_TRUE(dimmed->state().focusable);
  EXPECT_FALSE(driver->accessible("Custom level", kCheckBox)->state().disabled);
  dimmed->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
  EXPECT_TRUE(dimmed->state().focused);
  EXPECT_EQ(driver->focused(), "Not available on this device");
}

TEST_F(Accessibility, ADimmedSliderSaysItsValueAndRange) {
  QAccessibleInterface* dimmed = driver->accessible("Level", kSlider);
  EXPECT_TRUE(dimmed->state().disabled);
  ASSERT_TRUE(dimmed->valueInterface());
  EXPECT_EQ(dimmed->valueInterface()->currentValue().toDouble(), 50);
  EXPECT_EQ(dimmed->valueInterface()->maximumValue().toDouble(), 100);
}

TEST_F(Accessibility, TheKeyboardStaysOnARowThatIsDimmedAndUsableAgain) {
  set("custom", true);
  driver->find("Level", kSlider)->forceActiveFocus();
  for (const bool on : {false, true}) {
    set("custom", on);
    driver->waitUntilIdle();
    EXPECT_EQ(driver->focused(), "Level");
    EXPECT_EQ(driver->accessible("Level", kSlider)->state().disabled, !on);
  }
}

TEST_F(Accessibility, AGroupOfSegmentsSaysWhichIsChosen) {
  EXPECT_EQ(driver->accessible("When", QAccessible::Grouping)->text(QAccessible::Description),
            "Above");
}

// What assistive technology reads of each row.
QStringList read(const Driver& driver) {
  QStringList all;
  for (QQuickItem* item : driver.items()) {
    QAccessibleInterface* found = QAccessible::queryAccessibleInterface(item);
    if (!found || found->text(QAccessible::Name).isEmpty() || !item->isVisible()) continue;
    QString line = QString("%1 \"%2\" %3")
                       .arg(found->role())
                       .arg(found->text(QAccessible::Name), found->text(QAccessible::Description));
    if (found->state().checked) line += ", checked";
    if (auto* value = found->valueInterface()) line += ", " + value->currentValue().toString();
    if (auto* text = found->textInterface()) line += ", " + text->text(0, text->characterCount());
    all << line;
  }
  return all;
}

TEST_F(Accessibility, RowsThatAreOffScreenReadLikeRowsOnScreen) {
  set("when", "at");
  set("name", "Ann");
  set("stubborn", true);
  driver->resize(390, 2000);
  const QStringList whole = read(*driver);
  EXPECT_GT(whole.size(), 20);
  close();
  openWindow(390, 600);
  ASSERT_FALSE(row("secret").built);
  driver->until([&] { return read(*driver) == whole; });  // rows are made one after another
  EXPECT_EQ(read(*driver), whole);
}

TEST_F(Accessibility, ARowThatIsOffScreenIsBroughtOnScreenToBeOperated) {
  close();
  openWindow(390, 600);
  ASSERT_FALSE(row("press").built);
  ASSERT_TRUE(driver->until([this] { return driver->find("Press me", kButton); }));
  ASSERT_TRUE(driver->act("Press me", kButton, kPress));
  EXPECT_EQ(device.stored("pressed"), plist::Value("yes"));
  const QRectF place = driver->place(driver->find("Press me", kButton));
  EXPECT_LE(place.bottom(), 600);
}

}  // namespace
