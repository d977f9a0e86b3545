#include <gtest/gtest.h>

#include "tests/platform_archive/raw_archive.h"
#include "tests/platform_plist/samples.h"

namespace archive_test {
namespace {

using plist_test::sample;
using plist_test::samplesIn;

TEST(ArchiveSamples, OfAProfileIsReadAndWrittenTheSame) {
  const auto bytes = sample("archives/profile");
  const auto root = archive::unarchive(plist::Bytes(bytes));
  ASSERT_TRUE(root) << root.error().message();
  EXPECT_EQ(*root, Value(Dictionary{{"profilepercentage", "55"},
                                    {"wifi", 1},
                                    {"custbright", 50.0},
                                    {"profiledescription", ""}}));
  const auto written = archive::archive(*root, archive::Mutability::Mutable);
  EXPECT_EQ(written->size(), bytes.size());
}

// Of collections each, of other classes none, and never one without a root.
TEST(ArchiveSamples, GetTheVerdictListedWithThem) {
  const auto samples = samplesIn("archives");
  EXPECT_GE(samples.size(), 12u);
  for (const auto& sample : samples) {
    const auto root = archive::unarchive(plist::Bytes(sample.bytes));
    std::string found = root ? "ok" : std::string(nameOf(root.error().kind));
    if (!root && !root.error().className.empty()) found += " " + root.error().className;
    EXPECT_EQ(found, sample.verdict) << sample.name;
  }
}

TEST(ArchiveSamples, OfCollectionsHaveTheirValues) {
  const auto decoded = [](const char* name) {
    return *archive::unarchive(plist::Bytes(sample(name)));
  };
  EXPECT_EQ(decoded("archives/array"), Value(Array{"a", "b"}));
  EXPECT_EQ(decoded("archives/empty-dictionary"), Value(Dictionary()));
  EXPECT_EQ(decoded("archives/set-of-numbers"), Value(plist::Set{{1, 2, 3.5}}));
  EXPECT_EQ(decoded("archives/date"), Value(plist::Date{791553600}));
}

}  // namespace
}  // namespace archive_test
