#include "platform/plist/utf.h"

#include <gtest/gtest.h>

#include <cstring>

namespace plist {
namespace {

TEST(Utf, RecognizesAsciiAtEveryLengthAndPlace) {
  for (std::size_t size = 0; size < 40; ++size) {
    std::string text(size, 'a');
    EXPECT_TRUE(isAscii(text)) << size;
    for (std::size_t at = 0; at < size; ++at) {
      std::string other = text;
      other[at] = '\x80';
      EXPECT_FALSE(isAscii(other)) << size << " " << at;
    }
  }
}

TEST(Utf, FindsWhereTextIsNotUtf8) {
  EXPECT_EQ(firstNotUtf8("a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80"), std::nullopt);
  EXPECT_EQ(firstNotUtf8("ab\xFF"), 2u);
  EXPECT_EQ(firstNotUtf8("\x80"), 0u);
  EXPECT_EQ(firstNotUtf8("a\xC3"), 1u);
  EXPECT_EQ(firstNotUtf8("\xE2\x82"), 0u);
  EXPECT_EQ(firstNotUtf8("\xF0\x9F\x98"), 0u);
  EXPECT_EQ(firstNotUtf8("\xC3("), 0u);
}

TEST(Utf, RefusesOverlongFormsSurrogatesAndTooLargePoints) {
  EXPECT_EQ(firstNotUtf8("\xC0\x80"), 0u);
  EXPECT_EQ(firstNotUtf8("\xC1\xBF"), 0u);
  EXPECT_EQ(firstNotUtf8("\xE0\x9F\xBF"), 0u);
  EXPECT_EQ(firstNotUtf8("\xED\xA0\x80"), 0u);
  EXPECT_EQ(firstNotUtf8("\xED\xBF\xBF"), 0u);
  EXPECT_EQ(firstNotUtf8("\xF0\x8F\xBF\xBF"), 0u);
  EXPECT_EQ(firstNotUtf8("\xF4\x90\x80\x80"), 0u);
  EXPECT_EQ(firstNotUtf8("\xF5\x80\x80\x80"), 0u);
}

TEST(Utf, ComesBackFromUtf16ForEveryPoint) {
  for (char32_t point = 0; point <= 0x10FFFF; ++point) {
    if (point >= 0xD800 && point <= 0xDFFF) continue;
    std::uint8_t units[4] = {static_cast<std::uint8_t>(point >> 8),
                             static_cast<std::uint8_t>(point), 0, 0};
    if (point >= 0x10000) {
      const char32_t high = 0xD800 | (point - 0x10000) >> 10;
      const char32_t low = 0xDC00 | ((point - 0x10000) & 0x3FF);
      units[0] = static_cast<std::uint8_t>(high >> 8), units[1] = static_cast<std::uint8_t>(high);
      units[2] = static_cast<std::uint8_t>(low >> 8), units[3] = static_cast<std::uint8_t>(low);
    }
    const std::size_t count = point >= 0x10000 ? 2 : 1;
    std::string text;
    readUtf16(units, count, text);
    ASSERT_EQ(firstNotUtf8(text), std::nullopt) << static_cast<unsigned>(point);
    ASSERT_EQ(utf16Units(text), count) << static_cast<unsigned>(point);
    std::uint8_t back[4] = {};
    ASSERT_EQ(writeUtf16(text, back), back + 2 * count);
    ASSERT_EQ(std::memcmp(back, units, 2 * count), 0) << static_cast<unsigned>(point);
  }
}

TEST(Utf, TakesABrokenCharacterForTheBytesThatBeginOne) {
  const auto sizeOfBroken = [](std::string_view text) {
    const Character first = firstCharacter(text);
    return first.isValid ? 0 : first.size;
  };
  EXPECT_EQ(sizeOfBroken("\x80"), 1u);
  EXPECT_EQ(sizeOfBroken("\xC3("), 1u);
  EXPECT_EQ(sizeOfBroken("\xE2\x82"), 2u);
  EXPECT_EQ(sizeOfBroken("\xE0\x9F\xBF"), 1u);
  EXPECT_EQ(sizeOfBroken("\xED\xA0\x80"), 1u);
  EXPECT_EQ(sizeOfBroken("\xF0\x9F\x98x"), 3u);
  EXPECT_EQ(sizeOfBroken("\xF4\x90\x80\x80"), 1u);
  EXPECT_EQ(firstCharacter("\xF0\x9F\x98\x80x").point, char32_t{0x1F600});
  EXPECT_EQ(firstCharacter("\xF0\x9F\x98\x80x").size, 4u);
  EXPECT_EQ(firstCharacter("\xFF").point, char32_t{0xFFFD});
}

}  // namespace
}  // namespace plist
