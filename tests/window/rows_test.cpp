#include <QClipboard>

#include "tests/window/sample_window.h"

namespace {

class Rows : public SampleWindow {
 protected:
  const QString kLevelField = "Level, as a number";

  // So that this row is the first one in sight, as far as the page is long enough.
  void scrollTo(const std::string& id) {
    const std::vector<host::RowView> rows = page().rows;
    const auto found = std::ranges::find(rows, id, &host::RowView::id);
    emit bridge().shown()->scrollWanted(static_cast<int>(found - rows.begin()));
    driver->waitUntilIdle();
  }
};

TEST_F(Rows, ShowsEveryRowOfThePageByItsLabel) {
  for (const char* label :
       {"Switches and a slider", "Custom level", "Level", "Stays as it is", "Choices", "Tone",
        "Middle", "When", "Above", "Exactly at", "Name", "Password", "Press me",
        "Delete everything", "Pressed", "no", "Looking for devices", "Giant", "An item of a list"})
    EXPECT_TRUE(driver->until([&] { return driver->shows(label); })) << label;
}

TEST_F(Rows, AFooterStandsBelowItsGroup) {
  QQuickItem* footer = driver->find("Nothing here can break anything.");
  ASSERT_TRUE(footer);
  EXPECT_GT(driver->place(footer).top(), driver->place(driver->find("Delete everything")).bottom());
  EXPECT_LT(driver->place(footer).bottom(), driver->place(driver->find("Reading only")).top());
}

TEST_F(Rows, AGroupWithoutRowsHasItsFooter) {
  EXPECT_TRUE(driver->shows("A group without rows has its footer all the same."));
}

TEST_F(Rows, AClickOnASwitchStoresAndAppliesThePagesRules) {
  driver->click("Custom level");
  EXPECT_EQ(device.stored("custom"), plist::Value(true));
  EXPECT_FALSE(driver->accessible("Level", kSlider)->state().disabled);
  driver->click("Custom level");
  EXPECT_EQ(device.stored("custom"), plist::Value(false));
  EXPECT_TRUE(driver->accessible("Level", kSlider)->state().disabled);
}

TEST_F(Rows, TheRulesOfAPageShowByThemselvesAMomentAfterItAppears) {
  EXPECT_TRUE(driver->accessible("Level", kSlider)->state().disabled);
}

TEST_F(Rows, ASwitchWhoseSetterRefusesSpringsBackEachTime) {
  for (int i = 0; i < 2; ++i) {
    driver->click("Stays as it is");
    EXPECT_FALSE(driver->find("Stays as it is", kCheckBox)->property("checked").toBool()) << i;
  }
}

TEST_F(Rows, ADimmedRowIgnoresClicks) {
  driver->click("Not available on this device");
  EXPECT_TRUE(device.stored("off").isNothing());
  EXPECT_FLOAT_EQ(driver->find("Not available on this device")->childItems().first()->opacity(),
                  0.55f);
}

TEST_F(Rows, ASliderStoresItsValueWhenItIsReleased) {
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

TEST_F(Rows, ASliderThatShowsItsValueStoresWhatItShows) {
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

TEST_F(Rows, AClickOnAValueLetsItBeTyped) {
  driver->click("Custom level");
  driver->click(kLevelField, kText);
  driver->type("12.5");
  EXPECT_TRUE(device.stored("level").isNothing());
  driver->key(Qt::Key_Return);
  EXPECT_EQ(device.stored("level"), plist::Value(12.5));
  EXPECT_TRUE(driver->shows("12.5"));
  EXPECT_EQ(driver->focused(), "Level");
}

TEST_F(Rows, ATypedValueIsStoredWhenTheFieldIsLeft) {
  driver->click("Custom level");
  driver->click(kLevelField, kText);
  driver->type("7");
  driver->click("Stays as it is");
  EXPECT_EQ(device.stored("level"), plist::Value(7.0));
}

TEST_F(Rows, EscapeGivesBackTheValueThatWasThere) {
  driver->click("Custom level");
  driver->click(kLevelField, kText);
  driver->type("7");
  driver->key(Qt::Key_Escape);
  EXPECT_TRUE(device.stored("level").isNothing());
  EXPECT_TRUE(driver->shows("50"));
  EXPECT_EQ(title(), "Sample");
}

TEST_F(Rows, WhatASliderCantTakeIsRefusedInWords) {
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

TEST_F(Rows, NoKeyLeavesAnEditorWithWhatASliderCantTake) {
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

TEST_F(Rows, LettersCantBeTypedAsAValue) {
  driver->click("Custom level");
  driver->click(kLevelField, kText);
  driver->type("nan 4e2x");
  driver->key(Qt::Key_Return);
  EXPECT_EQ(device.stored("level"), plist::Value(42.0));
}

TEST_F(Rows, AValueOfADimmedSliderCantBeTyped) {
  driver->clickItem(driver->find(kLevelField, kText));
  driver->type("7");
  driver->key(Qt::Key_Return);
  EXPECT_TRUE(device.stored("level").isNothing());
}

TEST_F(Rows, AClickOnASegmentStoresItsValue) {
  driver->click("Below", kRadioButton);
  EXPECT_EQ(device.stored("when"), plist::Value("below"));
  EXPECT_TRUE(driver->find("Below", kRadioButton)->property("chosen").toBool());
  EXPECT_FALSE(driver->find("Above", kRadioButton)->property("chosen").toBool());
}

TEST_F(Rows, AClickOnTheChosenSegmentLeavesItChosen) {
  driver->click("Above", kRadioButton);
  EXPECT_TRUE(driver->find("Above", kRadioButton)->property("checked").toBool());
}

TEST_F(Rows, TheChosenSegmentHasTheTintThatThePageGaveIt) {
  QQuickItem* segments = driver->itemsOfType("SegmentRow").front();
  const QColor before = segments->property("chosenColor").value<QColor>();
  (*application->row("when"))->control()->tintColor = uikit::Color::fromBytes(200, 0, 0);
  application->buildVisibleRows();
  driver->waitUntilIdle();
  EXPECT_EQ(segments->property("chosenColor").value<QColor>(), QColor(200, 0, 0));
  EXPECT_NE(before, QColor(200, 0, 0));
}

TEST_F(Rows, AnEmptyTextShowsItsPlaceholder) {
  EXPECT_TRUE(driver->shows("Somebody"));
  driver->click("Name", kText);
  EXPECT_TRUE(driver->shows("Somebody"));
  driver->type("A");
  EXPECT_FALSE(driver->shows("Somebody"));
}

TEST_F(Rows, TextIsStoredWhenReturnEndsIt) {
  driver->click("Name", kText);
  driver->type("Ann");
  EXPECT_TRUE(device.stored("name").isNothing());
  driver->key(Qt::Key_Return);
  EXPECT_EQ(device.stored("name"), plist::Value("Ann"));
}

TEST_F(Rows, TextIsStoredWhenThePageIsLeft) {
  driver->click("A long page");
  driver->key(Qt::Key_Escape);
  driver->click("Name", kText);
  driver->type("Ann");
  driver->click("Tone");
  EXPECT_EQ(device.stored("name"), plist::Value("Ann"));
}

TEST_F(Rows, TextIsStoredWhenTheWindowIsClosed) {
  driver->click("Name", kText);
  driver->type("Ann");
  window->close();
  EXPECT_EQ(device.stored("name"), plist::Value("Ann"));
}

TEST_F(Rows, ATextThatDoesNotFitBesideItsLabelStandsBelowItAndWraps) {
  QQuickItem* field = driver->find("Name", kText);
  QQuickItem* card = field;
  while (!card->property("cardHeight").isValid()) card = card->parentItem();
  const auto labelOfRow = [&] {
    for (QQuickItem* text : driver->itemsOfType("QQuickText"))
      if (text->property("text") == "Name") return driver->place(text);
    return QRectF();
  };
  EXPECT_GT(driver->place(field).left(), labelOfRow().right());
  const double height = card->height();
  driver->click("Name", kText);
  driver->type("A name that is so long that no row of a phone has room for all of it");
  EXPECT_GE(driver->place(field).top(), labelOfRow().bottom() - 1);
  EXPECT_GT(card->height(), height * 1.6) << "it is seen whole while it is typed";
  driver->key(Qt::Key_Return);
  driver->click("A long page");
  driver->key(Qt::Key_Escape);
  for (QQuickItem* text : driver->itemsOfType("QQuickText")) {
    const bool isIt = text->property("text").toString().startsWith("A name that");
    EXPECT_FALSE(isIt && text->property("truncated").toBool());
  }
}

TEST_F(Rows, ATextOfOneLineTakesAPastedTextAsOneLine) {
  QGuiApplication::clipboard()->setText("Ann\n  and Bo");
  driver->click("Name", kText);
  driver->key(Qt::Key_V, Qt::ControlModifier);
  driver->key(Qt::Key_Return);
  EXPECT_EQ(device.stored("name"), plist::Value("Ann and Bo"));
}

TEST_F(Rows, ATextThatNobodyEditedStaysAsItIsStored) {
  const std::string odd =
      "a\xC2\xA0"
      "b\nc";
  ASSERT_TRUE(device.preferences.setAppValue("name", plist::Value(odd), sample::kDomain));
  bridge().activate();
  driver->waitUntilIdle();
  driver->click("Name", kText);
  driver->key(Qt::Key_Tab);
  EXPECT_EQ(device.stored("name"), plist::Value(odd));
}

TEST_F(Rows, ArrowsLeaveATextAtItsFirstAndLastLine) {
  driver->click("Name", kText);
  driver->key(Qt::Key_Down);
  EXPECT_NE(driver->focused(), "Name");
  driver->key(Qt::Key_Up);
  EXPECT_EQ(driver->focused(), "Name");
}

TEST_F(Rows, EscapeGivesBackTheTextThatWasThere) {
  driver->click("Password", kText);
  driver->type("x");
  driver->key(Qt::Key_Escape);
  EXPECT_EQ(driver->find("Password", kText)->property("text").toString(), "secret");
  driver->key(Qt::Key_Return);
  EXPECT_TRUE(device.stored("secret").isNothing());
}

TEST_F(Rows, ASecretIsMasked) {
  EXPECT_FALSE(driver->find("Password", kText)->property("displayText").toString().contains("s"));
}

TEST_F(Rows, AButtonRunsItsAction) {
  driver->click("Press me");
  EXPECT_TRUE(driver->shows("yes"));
}

TEST_F(Rows, ARowThatIsOffScreenIsMadeWhenItScrollsIn) {
  driver->resize(390, 700);
  driver->click("Choices");
  scrollTo("long");
  driver->click("A long page");
  ASSERT_EQ(title(), "A long page");
  EXPECT_TRUE(row("row1").built);
  EXPECT_FALSE(row("row40").built);
  scrollTo("row39");
  EXPECT_TRUE(row("row40").built);
  EXPECT_FALSE(row("row59").built);
  driver->click("Row 40");
  EXPECT_EQ(device.stored("row40"), plist::Value(true));
}

TEST_F(Rows, ATallerWindowMakesMoreRows) {
  driver->resize(390, 700);
  scrollTo("long");
  driver->click("A long page");
  EXPECT_FALSE(row("row30").built);
  driver->resize(390, 4000);
  EXPECT_TRUE(row("row30").built);
}

class Widths : public Rows, public testing::WithParamInterface<int> {};
INSTANTIATE_TEST_SUITE_P(, Widths, testing::Values(320, 390, 768, 1200),
                         testing::PrintToStringParamName());

TEST_P(Widths, NoTextLeavesTheWindow) {
  driver->resize(GetParam(), 2000);
  const auto texts = driver->itemsOfType("QQuickText");
  ASSERT_GT(texts.size(), 40u);
  for (QQuickItem* text : texts) {
    QRectF place = driver->place(text);
    EXPECT_GE(place.left(), 0) << text->property("text").toString().toStdString();
    EXPECT_LE(place.right(), GetParam()) << text->property("text").toString().toStdString();
  }
}

TEST_P(Widths, RowsFollowOneAnotherWithoutOverlap) {
  driver->resize(GetParam(), 2000);
  double bottom = 0;
  for (const char* label : {"Custom level", "Stays as it is", "Tone", "One of very many entries",
                            "No entries at all", "A long page", "Press me"}) {
    QRectF place = driver->place(driver->find(label));
    EXPECT_GE(place.top(), bottom) << label;
    bottom = place.bottom();
  }
}

TEST_P(Widths, TheColumnOfRowsIsNeverTooWideToRead) {
  driver->resize(GetParam(), 2000);
  QRectF place = driver->place(driver->find("Tone"));
  EXPECT_LE(place.width(), 640);
  EXPECT_NEAR(place.center().x(), GetParam() / 2.0, 1);
}

}  // namespace
