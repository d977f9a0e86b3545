#include <set>

#include "prefs/colorpicker/color_values.h"
#include "prefs/colorpicker/palettes.h"
#include "tests/prefs_colorpicker/picker_fixture.h"

namespace {

using plist::Array;

const std::string& text(const plist::Value& entry, const char* key) {
  return *entry.dictionary()->find(key)->text();
}

// "name=hex," for each entry.
std::string written(const Array& entries) {
  std::string all;
  for (const auto& entry : entries) all += text(entry, "name") + "=" + text(entry, "hex") + ",";
  return all;
}

std::string names(const Array& entries) {
  std::string all;
  for (const auto& entry : entries) all += text(entry, "name") + ",";
  return all;
}

struct Expected {
  const char* title;
  const char* colors;
};
constexpr Expected kExpected[] = {
    {"Special",
     "None=none,"
     "Quorvantis=#34495F,"},
    {"iOS Palette",
     "Purple=#5856D6,"
     "System Blue=#007AFF,"
     "Marine Blue=#34AADC,"
     "Light Blue=#5AC8FA,"
     "Pink=#FF2D55,"
     "System Red=#FF3B30,"
     "Orange=#FF9500,"
     "Yellow=#FFCC00,"
     "System Green=#4CD964,"
     "Gray=#8E8E93,"},
    {"Crayons",
     "Snow=#FFFFFF,"
     "Mercury=#E6E6E6,"
     "Silver=#CCCCCC,"
     "Magnesium=#B3B3B3,"
     "Aluminum=#999999,"
     "Nickel=#808080,"
     "Tin=#7F7F7F,"
     "Steel=#666666,"
     "Iron=#4C4C4C,"
     "Tungsten=#333333,"
     "Lead=#191919,"
     "Licorice=#000000,"
     "Marascino=#FF0000,"
     "Cayenne=#800000,"
     "Salmon=#FF6666,"
     "Maroon=#800040,"
     "Strawberry=#FF0080,"
     "Carnation=#FF6FCF,"
     "Magenta=#FF00FF,"
     "Plum=#800080,"
     "BubbleGum=#FF66FF,"
     "Lavender=#CC66FF,"
     "Grape=#8000FF,"
     "Eggplant=#400080,"
     "Blueberry=#0000FF,"
     "Midnight=#000080,"
     "Orchid=#6666FF,"
     "Ocean=#004080,"
     "Aqua=#0080FF,"
     "Sky=#66CCFF,"
     "Turquoise=#00FFFF,"
     "Teal=#008080,"
     "Ice=#66FFFF,"
     "Spindrift=#66FFCC,"
     "Sea Foam=#00FF80,"
     "Moss=#008040,"
     "Spring=#00FF00,"
     "Clover=#008000,"
     "Flora=#66FF66,"
     "Fern=#408000,"
     "Lime=#80FF00,"
     "Honeydew=#CCFF66,"
     "Lemon=#FFFF00,"
     "Asperagus=#808000,"
     "Banana=#FFFF66,"
     "Cantaloupe=#FFCC66,"
     "Tangerine=#FF8000,"
     "Mocha=#804000,"},
    {"Custom", "Custom=custom,"},
};

struct Palettes : picker::Page {
  Palettes() { open(picker::row()); }
};

TEST_F(Palettes, AreFourInThisOrderWithTheseColors) {
  const Array palettes = page->palettes();
  ASSERT_EQ(palettes.size(), 4u);
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(text(palettes[i], "title"), kExpected[i].title);
    EXPECT_EQ(written(*palettes[i].dictionary()->find("colors")->array()), kExpected[i].colors);
  }
}

TEST_F(Palettes, AreEachThereByAnOperation) {
  EXPECT_EQ(written(page->specialColors()), kExpected[0].colors);
  EXPECT_EQ(written(page->iOSColors()), kExpected[1].colors);
  EXPECT_EQ(written(page->crayonColors()), kExpected[2].colors);
  EXPECT_EQ(written(page->customColor()), kExpected[3].colors);
}

TEST_F(Palettes, HoldNothingButNameAndHex) {
  ASSERT_EQ(page->palettes().size(), 4u);
  for (const auto& palette : page->palettes()) {
    EXPECT_EQ(palette.dictionary()->size(), 2u);
    const Array& colors = *palette.dictionary()->find("colors")->array();
    ASSERT_FALSE(colors.empty());
    for (const auto& entry : colors) EXPECT_EQ(entry.dictionary()->size(), 2u);
  }
}

TEST_F(Palettes, HaveSixtyOneRowsOfDifferentColors) {
  std::set<std::string_view> colors;
  for (const auto& palette : prefs::colorPalettes())
    for (const auto& entry : palette.colors)
      EXPECT_TRUE(colors.insert(entry.hex).second) << entry.hex;
  EXPECT_EQ(colors.size(), 61u);
}

TEST_F(Palettes, WriteTheirColorsAsTheStoreDoes) {
  int colors = 0;
  for (const auto& palette : prefs::colorPalettes())
    for (const auto& entry : palette.colors) {
      if (!entry.hex.starts_with('#')) continue;
      EXPECT_EQ(prefs::colorFromHexString(entry.hex).hex(), entry.hex) << entry.name;
      ++colors;
    }
  EXPECT_EQ(colors, 59);
}

TEST_F(Palettes, KnowTheirOwnColors) {
  int known = 0;
  for (const auto& palette : prefs::colorPalettes())
    for (const auto& entry : palette.colors)
      known += page->presetColorExists(std::string(entry.hex));
  EXPECT_EQ(known, 61);
}

TEST_F(Palettes, CountTheSpecialWordsAsPresets) {
  EXPECT_TRUE(page->presetColorExists("none"));
  EXPECT_TRUE(page->presetColorExists("custom"));
  EXPECT_TRUE(page->presetColorExists("#34495F"));
}

TEST_F(Palettes, KnowNoOtherColor) {
  EXPECT_TRUE(page->presetColorExists("#FF9500"));
  for (auto other : {"#FF9501", "#34495E", "FF9500", "", "None", "#FF9500 "})
    EXPECT_FALSE(page->presetColorExists(other)) << other;
  EXPECT_FALSE(page->presetColorExists(std::nullopt));
}

TEST_F(Palettes, KnowColorsInTheirOwnCaseOnly) {
  EXPECT_FALSE(page->presetColorExists("#ff9500"));
  EXPECT_FALSE(page->presetColorExists("#ffffff"));
}

// As exact arithmetic with fractions orders them.
TEST_F(Palettes, SortGreysBeforeRedsByBrightness) {
  EXPECT_EQ(names(page->sortPaletteByHue(page->crayonColors())),
            "Licorice,Lead,Tungsten,Iron,Steel,Tin,Nickel,Aluminum,Magnesium,Silver,Mercury,Snow,"
            "Salmon,Cayenne,Marascino,Mocha,Tangerine,Cantaloupe,Banana,Asperagus,Lemon,Honeydew,"
            "Lime,Fern,Flora,Clover,Spring,Moss,Sea Foam,Spindrift,Ice,Teal,Turquoise,Sky,Aqua,"
            "Ocean,Orchid,Midnight,Blueberry,Eggplant,Grape,Lavender,BubbleGum,Plum,Magenta,"
            "Carnation,Strawberry,Maroon,");
}

TEST_F(Palettes, SortByHueThenSaturationThenBrightness) {
  const auto entry = [](const char* hex) { return plist::Dictionary{{"name", hex}, {"hex", hex}}; };
  const Array given{entry("#0000FF"), entry("#00FF00"), entry("#FF0000"), entry("#800000"),
                    entry("#FF8080"), entry("#FFFFFF"), entry("#000000"), entry("#FF0001")};
  EXPECT_EQ(names(page->sortPaletteByHue(given)),
            "#000000,#FFFFFF,#FF8080,#800000,#FF0000,#00FF00,#0000FF,#FF0001,");
}

TEST_F(Palettes, SortIntoANewListOfTheSameEntries) {
  const Array given = page->iOSColors();
  const Array sorted = page->sortPaletteByHue(given);
  EXPECT_EQ(written(given), kExpected[1].colors);
  EXPECT_EQ(names(sorted),
            "System Red,Orange,Yellow,System Green,Marine Blue,Light Blue,System Blue,Gray,Purple,"
            "Pink,");
}

TEST_F(Palettes, SortWhatHasNoHexAsBlack) {
  const Array given{plist::Dictionary{{"name", "white"}, {"hex", "#FFFFFF"}},
                    plist::Dictionary{{"name", "odd"}}};
  EXPECT_EQ(names(page->sortPaletteByHue(given)), "odd,white,");
  EXPECT_EQ(page->sortPaletteByHue({5, "x"}).size(), 2u);
  EXPECT_TRUE(page->sortPaletteByHue({}).empty());
}

TEST_F(Palettes, AreShownInTheirStoredOrder) {
  EXPECT_EQ(cell({1, 0})->textLabel.text, "Purple");
  EXPECT_EQ(cell({1, 9})->textLabel.text, "Gray");
}

}  // namespace
