#include <gtest/gtest.h>

#include "tests/platform_plist/samples.h"
#include "tests/services/xml_text.h"

namespace {

using plist_test::samplesIn;

std::string contents(const plist_test::ByteVector& bytes) {
  return {bytes.begin(), bytes.end()};
}

plist::Value readSample(const char* name) {
  return read(contents(plist_test::sample(name)));
}

TEST(XmlSamples, GetTheVerdictListedWithThem) {
  const auto samples = samplesIn("xml");
  EXPECT_GE(samples.size(), 24u);
  for (const auto& sample : samples)
    EXPECT_EQ(refusal(contents(sample.bytes)) == "" ? "ok" : "refused", sample.verdict)
        << sample.name;
}

TEST(XmlSamples, EncodingsAgree) {
  const plist::Value expected(plist::Dictionary{{"é", "語"}});
  for (const char* name : {"xml/utf-8", "xml/utf-16-big-endian", "xml/utf-16-little-endian"})
    EXPECT_EQ(readSample(name), expected) << name;
}

TEST(XmlSamples, AreWhatTheBinaryOnesOfTheSameWriterAre) {
  for (const std::string name : {"of-every-kind", "of-one-text"})
    EXPECT_EQ(readSample(("xml/" + name).c_str()),
              *plist::readBinary(plist_test::sample("binary/" + name)))
        << name;
}

TEST(XmlSamples, OfOthersComeBackFromOurWriter) {
  int checked = 0;
  for (const auto& sample : samplesIn("xml")) {
    const auto value = readXmlText(contents(sample.bytes));
    if (!value) continue;
    EXPECT_EQ(read(written(*value)), *value) << sample.name;
    ++checked;
  }
  EXPECT_GE(checked, 15);
}

}  // namespace
