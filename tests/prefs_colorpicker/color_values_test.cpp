#include <gtest/gtest.h>

#include "prefs/colorpicker/color_values.h"

namespace {

using prefs::colorFromHexString;
using uikit::Color;

const Color kBlack{0, 0, 0, 1};

TEST(ColorFromHexString, ReadsRedGreenAndBlueAsFractionsOf255) {
  EXPECT_EQ(colorFromHexString("#34495F"), (Color{0x34 / 255.0, 0x49 / 255.0, 0x5F / 255.0, 1.0}));
}

TEST(ColorFromHexString, TakesDigitsOfEitherCase) {
  EXPECT_EQ(colorFromHexString("#ffffff"), colorFromHexString("#FFFFFF"));
  EXPECT_EQ(colorFromHexString("#ffffff"), (Color{1, 1, 1, 1}));
}

TEST(ColorFromHexString, MakesBlackOfWhatIsNotAHexColor) {
  for (auto text : {"none", "custom", "#", "x", "##", "#xyz"})
    EXPECT_EQ(colorFromHexString(text), kBlack) << text;
}

TEST(ColorFromHexString, MakesBlackOfEmptyText) {
  EXPECT_EQ(colorFromHexString(""), kBlack);
}

TEST(ColorFromHexString, DropsTheFirstCharacterWhateverItIs) {
  EXPECT_EQ(colorFromHexString("FF0000"), (Color{0x0F / 255.0, 0, 0, 1}));
}

TEST(ColorFromHexString, DropsOneUtf16UnitOnly) {
  EXPECT_EQ(colorFromHexString("\u00E9112233"), Color::fromBytes(0x11, 0x22, 0x33));
  EXPECT_EQ(colorFromHexString("\U0001F600112233"), kBlack);
}

TEST(ColorFromHexString, HasNoShortForm) {
  EXPECT_EQ(colorFromHexString("#FFF"), (Color{0, 0x0F / 255.0, 1, 1}));
}

TEST(ColorFromHexString, DropsTheTopByteOfEightDigits) {
  EXPECT_EQ(colorFromHexString("#12345678"), Color::fromBytes(0x34, 0x56, 0x78));
  EXPECT_EQ(colorFromHexString("#00000000").alpha, 1.0);
}

TEST(ColorFromHexString, MakesWhiteOfMoreThanEightDigits) {
  EXPECT_EQ(colorFromHexString("#123456789"), (Color{1, 1, 1, 1}));
  EXPECT_EQ(colorFromHexString("#000123456"), Color::fromBytes(0x12, 0x34, 0x56))
      << "leading zeros don't count";
}

TEST(ColorFromHexString, PassesOverWhiteSpaceAndAPrefix) {
  EXPECT_EQ(colorFromHexString("# 0x112233"), Color::fromBytes(0x11, 0x22, 0x33));
  EXPECT_EQ(colorFromHexString("0x112233"), kBlack) << "the 0 is dropped and an x stays";
}

TEST(ColorFromHexString, StopsAtTheFirstOtherCharacter) {
  EXPECT_EQ(colorFromHexString("#FF00GG"), Color::fromBytes(0, 0xFF, 0));
}

TEST(ThumbnailWithSize, HasTheSizeAndTheColorAtEveryPixel) {
  auto image = prefs::thumbnailWithSize(Color::fromBytes(0x34, 0x49, 0x5F), {48, 24});
  EXPECT_EQ(image.size, (uikit::Size{48, 24}));
  auto pixels = image.rgba();
  ASSERT_EQ(pixels.size(), 48u * 24 * 4);
  for (std::size_t at = 0; at < pixels.size(); at += 4) {
    ASSERT_EQ(pixels[at], 0x34) << at;
    ASSERT_EQ(pixels[at + 1], 0x49) << at;
    ASSERT_EQ(pixels[at + 2], 0x5F) << at;
    ASSERT_EQ(pixels[at + 3], 0xFF) << at;
  }
}

TEST(ColorString, CutsFractionsOff) {
  EXPECT_EQ(prefs::colorStringOf(255.0f, 127.6f, 0.0f), "#FF7F00");
  EXPECT_EQ(prefs::colorStringOf(254.9f, 0.99f, 254.99f), "#FE00FE");
}

TEST(ColorString, IsUpperCaseWithLeadingZeros) {
  EXPECT_EQ(prefs::colorStringOf(0x0A, 0x7F, 0xFF), "#0A7FFF");
  EXPECT_EQ(prefs::colorStringOf(0, 0, 0), "#000000");
}

TEST(ColorString, IsReadAsTheColorItWasMadeOf) {
  for (int byte = 0; byte < 256; ++byte) {
    auto value = static_cast<float>(byte);
    EXPECT_EQ(colorFromHexString(prefs::colorStringOf(value, 255 - value, value)),
              Color::fromBytes(byte, 255 - byte, byte));
  }
}

}  // namespace
