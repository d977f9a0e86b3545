// Values as text: Base64, dates, hexadecimal digits.
#include <gtest/gtest.h>

#include <limits>

#include "platform/plist/base64.h"
#include "platform/plist/date_text.h"
#include "platform/plist/hexadecimal.h"

namespace plist {
namespace {

Data bytes(std::string_view text) {
  return {{text.begin(), text.end()}};
}

std::optional<Data> strict(std::string_view text) {
  return readBase64(text, Base64Form::Strict);
}

std::optional<Data> lenient(std::string_view text) {
  return readBase64(text, Base64Form::Lenient);
}

TEST(Base64, IsWrittenWithPadding) {
  EXPECT_EQ(writeBase64({}), "");
  EXPECT_EQ(writeBase64(bytes("f")), "Zg==");
  EXPECT_EQ(writeBase64(bytes("fo")), "Zm8=");
  EXPECT_EQ(writeBase64(bytes("foo")), "Zm9v");
  EXPECT_EQ(writeBase64({{0xFB, 0xFF}}), "+/8=");
}

TEST(Base64, IsReadStrictly) {
  for (const char* text : {"", "f", "fo", "foo", "foob", "fooba"})
    EXPECT_EQ(strict(writeBase64(bytes(text))), bytes(text));
  for (const char* text :
       {"Zg", "Zg=", "Zg===", "Z", "Z===", "====", "Zm9v=", "Zm 8=", "Zm8=\n", "Zm8=Zm8=", "Zm-v"})
    EXPECT_EQ(strict(text), std::nullopt) << text;
}

TEST(Base64, IsReadLeniently) {
  for (const char* text : {"Zm8=", "Zm8", "Z\tm\n8=\r\n", "Zm8=="})
    EXPECT_EQ(lenient(text), bytes("fo")) << text;
  for (const char* text : {"Z", "Zm8=Zg", "Zm-v"}) EXPECT_EQ(lenient(text), std::nullopt) << text;
}

TEST(DateText, IsReadAsItIsWritten) {
  for (const char* text : {"2001-01-01T00:00:00Z", "2026-01-31T12:00:59Z", "1969-12-31T23:59:59Z",
                           "0001-01-01T00:00:00Z", "-0044-03-15T12:00:00Z", "9999-12-31T23:59:59Z"})
    EXPECT_EQ(writeDate(readDate(text).value()), text);
  EXPECT_EQ(readDate("2001-01-02T00:00:01Z"), Date{86401});
}

TEST(DateText, IsNotReadInAnyOtherForm) {
  for (const char* text :
       {"", "2026-01-31", "2026-02-29T00:00:00Z", "2026-13-01T00:00:00Z", "2026-01-31T24:00:00Z",
        "2026-01-31T23:60:00Z", "2026-01-31T23:59:61Z", "2026-01-31T12:00:00",
        "+026-01-31T12:00:00Z", "2026-01-31 12:00:00Z", "2026-1-031T12:00:00Z"})
    EXPECT_EQ(readDate(text), std::nullopt) << text;
}

TEST(DateText, StaysWithinItsSpan) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(writeDate({kInfinity}), "9999-12-31T23:59:59Z");
  EXPECT_EQ(writeDate({-kInfinity}), "-9999-01-01T00:00:00Z");
  EXPECT_EQ(writeDate({-kInfinity}, 1), "0001-01-01T00:00:00Z");
  EXPECT_EQ(writeDate({std::numeric_limits<double>::quiet_NaN()}), "2001-01-01T00:00:00Z");
  EXPECT_EQ(writeDate({-0.5}), "2000-12-31T23:59:59Z");
}

TEST(Hexadecimal, HasTwoDigitsForAByteAndReadsEitherCase) {
  std::string text;
  appendHex(text, 0x0F);
  appendHex(text, 0xA5, kUpperHexDigits);
  EXPECT_EQ(text, "0fA5");
  for (unsigned i = 0; i < 16; ++i) {
    EXPECT_EQ(hexDigit(kHexDigits[i]), i);
    EXPECT_EQ(hexDigit(kUpperHexDigits[i]), i);
  }
  for (const char c : {'g', 'G', '/', ':', '@', '`', ' ', '\0'})
    EXPECT_EQ(hexDigit(c), std::nullopt) << c;
}

}  // namespace
}  // namespace plist
