#include "tests/window/sample_window.h"

namespace {

class Rows : public SampleWindow {
 protected:
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
