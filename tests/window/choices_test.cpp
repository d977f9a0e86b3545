#include "tests/window/sample_window.h"

namespace {

class Choices : public SampleWindow {
 protected:
  bool ticked(const QString& title) {
    return driver->accessible(title, kRadioButton)->state().checked;
  }
};

TEST_F(Choices, TheCurrentValueIsTicked) {
  driver->click("Tone");
  EXPECT_TRUE(ticked("Middle"));
  EXPECT_FALSE(ticked("Low"));
}

TEST_F(Choices, ChoosingStoresAndStays) {
  driver->click("Tone");
  driver->click("Low", kRadioButton);
  EXPECT_EQ(device.stored("tone"), plist::Value(1));
  EXPECT_EQ(title(), "Tone");
  EXPECT_TRUE(ticked("Low"));
  EXPECT_FALSE(ticked("Middle"));
  driver->key(Qt::Key_Escape);
  EXPECT_EQ(driver->accessible("Tone", kButton)->text(QAccessible::Description), "Low, changed");
}

TEST_F(Choices, ChoosingTheTickedEntryLeavesItTicked) {
  driver->click("Tone");
  driver->click("Middle", kRadioButton);
  EXPECT_TRUE(ticked("Middle"));
}

TEST_F(Choices, KeysMoveChooseAndLeave) {
  driver->click("Tone");
  driver->key(Qt::Key_Down);
  driver->key(Qt::Key_Space);
  EXPECT_EQ(device.stored("tone"), plist::Value(3));
  driver->key(Qt::Key_Home);
  driver->key(Qt::Key_Return);
  EXPECT_EQ(device.stored("tone"), plist::Value(1));
  driver->key(Qt::Key_End);
  driver->key(Qt::Key_Up);
  driver->key(Qt::Key_Return);
  EXPECT_EQ(device.stored("tone"), plist::Value(2));
  driver->key(Qt::Key_Escape);
  EXPECT_EQ(title(), "Sample");
}

TEST_F(Choices, AShortListHasNoFilter) {
  driver->click("Tone");
  EXPECT_TRUE(driver->itemsOfType("InputField").empty());
}

TEST_F(Choices, AListWithoutEntriesSaysSo) {
  driver->click("No entries at all");
  EXPECT_TRUE(driver->shows("No entries"));
}

TEST_F(Choices, AVeryLongListOpensAtTheTickedEntryAndMakesFewRows) {
  driver->resize(390, 700);
  driver->click("One of very many entries");
  EXPECT_TRUE(driver->shows("Entry 5000"));
  EXPECT_FALSE(driver->shows("Entry 0"));
  EXPECT_LT(driver->itemsOfType("ChoiceRow").size(), 60u);
}

TEST_F(Choices, TheFilterNarrowsAndAChoiceIsStillTheRightOne) {
  driver->click("One of very many entries");
  driver->resize(390, 700);
  driver->clickItem(driver->itemsOfType("InputField").front());
  driver->type("eNTRY 987");
  EXPECT_TRUE(driver->until([&] { return driver->itemsOfType("ChoiceRow").size() == 11; }));
  driver->click("Entry 9871", kRadioButton);
  EXPECT_EQ(device.stored("many"), plist::Value(9871));
  EXPECT_TRUE(ticked("Entry 9871"));
}

TEST_F(Choices, ReturnAndKeypadEnterLeadFromTheFilterToTheChoices) {
  driver->click("One of very many entries");
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
    driver->clickItem(driver->itemsOfType("InputField").front());
    driver->type("9");
    ASSERT_EQ(driver->focused(), "Filter");
    driver->key(key);
    EXPECT_EQ(driver->focused(), key == Qt::Key_Return ? "Entry 9" : "Entry 99");
  }
}

TEST_F(Choices, FromTheFilterTheKeyboardComesToWhatIsTicked) {
  driver->click("One of very many entries");
  driver->clickItem(driver->itemsOfType("InputField").front());
  driver->type("entry 99");
  driver->click("Entry 99", kRadioButton);
  driver->clickItem(driver->itemsOfType("InputField").front());
  driver->key(Qt::Key_Backspace);
  driver->key(Qt::Key_Return);
  EXPECT_EQ(driver->focused(), "Entry 99");
}

TEST_F(Choices, EscapeEmptiesTheFilterBeforeItLeaves) {
  driver->click("One of very many entries");
  driver->clickItem(driver->itemsOfType("InputField").front());
  driver->type("nothing like it");
  EXPECT_TRUE(driver->shows("No matches"));
  driver->key(Qt::Key_Escape);
  EXPECT_FALSE(driver->shows("No matches"));
  EXPECT_EQ(title(), "One of very many entries");
  driver->key(Qt::Key_Escape);
  EXPECT_EQ(title(), "Sample");
}

}  // namespace
