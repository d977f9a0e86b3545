#include <gtest/gtest.h>

#include "platform/uikit/color.h"
#include "platform/uikit/controls.h"
#include "platform/uikit/table_view_cell.h"

using namespace uikit;

namespace {

TEST(Hsb, OfGreysHasNeitherHueNorSaturation) {
  EXPECT_EQ(hsbOf({0, 0, 0, 1}), (Hsb{0, 0, 0}));
  EXPECT_EQ(hsbOf({1, 1, 1, 1}), (Hsb{0, 0, 1}));
  EXPECT_EQ(hsbOf(Color::fromBytes(0x7F, 0x7F, 0x7F)), (Hsb{0, 0, 0x7F / 255.0}));
}

TEST(Hsb, OfPureColorsIsASixthOfACircleEach) {
  EXPECT_EQ(hsbOf({1, 0, 0, 1}), (Hsb{0, 1, 1}));
  EXPECT_EQ(hsbOf({1, 1, 0, 1}), (Hsb{1 / 6.0, 1, 1}));
  EXPECT_EQ(hsbOf({0, 1, 0, 1}), (Hsb{2 / 6.0, 1, 1}));
  EXPECT_EQ(hsbOf({0, 1, 1, 1}), (Hsb{3 / 6.0, 1, 1}));
  EXPECT_EQ(hsbOf({0, 0, 1, 1}), (Hsb{4 / 6.0, 1, 1}));
  EXPECT_EQ(hsbOf({1, 0, 1, 1}), (Hsb{5 / 6.0, 1, 1}));
}

TEST(Hsb, TurnsANegativeHueRound) {
  EXPECT_GT(hsbOf({1, 0, 0.01, 1}).hue, 0.99);
  EXPECT_LT(hsbOf({1, 0, 0.01, 1}).hue, 1.0);
}

TEST(Hsb, SaturationIsTheSpreadOfTheLargest) {
  EXPECT_EQ(hsbOf({0.5, 0.25, 0.25, 1}), (Hsb{0, 0.5, 0.5}));
}

TEST(Hsb, DoesNotSeeAlpha) {
  EXPECT_EQ(hsbOf({0.5, 0.2, 0.1, 0}), hsbOf({0.5, 0.2, 0.1, 1}));
}

TEST(SwatchTest, CountsAPartOfAPixelAsOne) {
  EXPECT_EQ((Swatch{{1.5, 2}, {}}.rgba().size()), 2u * 2 * 4);
  EXPECT_TRUE((Swatch{{0, 24}, {}}.rgba().empty()));
  EXPECT_TRUE((Swatch{{-1, 24}, {}}.rgba().empty()));
}

struct ControlTest : testing::Test {
  std::shared_ptr<Slider> slider = std::make_shared<Slider>();
  std::string received;
  Control::Action record(char what) {
    return [this, what](Control& sender) {
      EXPECT_EQ(&sender, slider.get());
      received += what;
    };
  }
};

TEST_F(ControlTest, SendsAnEventToTheActionsRegisteredForIt) {
  slider->addAction(event::kValueChanged, record('v'));
  slider->addAction(event::kTouchUpInside | event::kTouchUpOutside, record('u'));
  slider->sendActions(event::kValueChanged);
  slider->sendActions(event::kTouchUpInside);
  slider->sendActions(event::kTouchUpOutside);
  EXPECT_EQ(received, "vuu");
}

TEST_F(ControlTest, ADragSendsEachStepAndReleasingSendsItsOwnEvent) {
  slider->addAction(event::kValueChanged, record('v'));
  slider->addAction(event::kTouchUpInside, record('u'));
  slider->drag(0.5f);
  slider->drag(0.75f);
  EXPECT_EQ(received, "vv");
  slider->endTracking();
  EXPECT_EQ(received, "vvu");
  EXPECT_EQ(slider->value(), 0.75f);
}

TEST_F(ControlTest, ASliderThatIsNotContinuousSendsAtTheEnd) {
  slider->continuous = false;
  slider->addAction(event::kValueChanged, record('v'));
  slider->drag(0.5f);
  EXPECT_EQ(received, "");
  slider->endTracking();
  EXPECT_EQ(received, "v");
}

TEST_F(ControlTest, AValueThatTheProgramSetsSendsNothing) {
  slider->addAction(event::kValueChanged, record('v'));
  slider->setValue(0.5f);
  EXPECT_EQ(received, "");
}

TEST_F(ControlTest, OutlivesAnActionThatRemovesIt) {
  auto view = std::make_shared<View>();
  view->addSubview(slider);
  Slider* sender = slider.get();
  int calls = 0;
  auto removeIt = [&](Control&) {
    slider.reset();
    sender->removeFromSuperview();
    ++calls;
  };
  slider->addAction(event::kValueChanged, removeIt);
  slider->addAction(event::kValueChanged, [&](Control&) { ++calls; });
  sender->sendActions(event::kValueChanged);
  EXPECT_EQ(calls, 2);
  EXPECT_TRUE(view->subviews().empty());
}

TEST(CellLayout, IsAsWideAsAPhoneUntilAnotherFrameIsGiven) {
  TableViewCell cell(CellStyle::Default, "cell");
  cell.layoutSubviews();
  EXPECT_EQ(cell.contentView.frame, (Rect{0, 0, 320, 44}));
  cell.frame = {0, 88, 768, 60};
  cell.layoutSubviews();
  EXPECT_EQ(cell.contentView.frame, (Rect{0, 0, 768, 60}));
}

}  // namespace
