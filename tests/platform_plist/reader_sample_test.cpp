#include <gtest/gtest.h>

#include "tests/platform_plist/samples.h"

namespace plist_test {
namespace {

constexpr const char* kBinary = "binary";

TEST(ReaderSamples, GetTheVerdictListedWithThem) {
  const auto samples = samplesIn(kBinary);
  EXPECT_GE(samples.size(), 40u);
  for (const Sample& sample : samples)
    EXPECT_EQ(verdict(sample.bytes) == "ok" ? "ok" : "refused", sample.verdict) << sample.name;
}

TEST(ReaderSamples, ReadAgainWhatIsWrittenForThem) {
  int read = 0;
  for (const char* folder : {kBinary, "archives"})
    for (const Sample& sample : samplesIn(folder)) {
      const auto value = plist::readBinary(sample.bytes);
      if (!value) continue;
      const auto bytes = plist::writeBinary(*value);
      ASSERT_TRUE(bytes) << sample.name;
      const auto again = plist::readBinary(*bytes);
      ASSERT_TRUE(again) << sample.name;
      EXPECT_EQ(*again, *value) << sample.name;
      ++read;
    }
  EXPECT_GE(read, 30);
}

TEST(ReaderSamples, OfAnotherWriterHaveTheirValues) {
  EXPECT_EQ(*plist::readBinary(sample("binary/of-no-ascii")),
            plist::Value(plist::Dictionary{{"日本", "語"}, {"é", plist::Array{"ü"}}}));
  EXPECT_EQ(*plist::readBinary(sample("binary/of-dates")),
            plist::Value(plist::Array{plist::Date{0}, plist::Date{-978307200}}));
}

}  // namespace
}  // namespace plist_test
