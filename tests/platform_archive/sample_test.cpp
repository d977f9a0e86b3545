// Archives of other systems, where there are any.
#include <gtest/gtest.h>

#include "tests/platform_archive/raw_archive.h"
#include "tests/platform_plist/temporary.h"

namespace archive_test {
namespace {

using plist_test::readFile;
using plist_test::sampleFolder;

std::string verdictOfFile(const std::filesystem::path& path) {
  const auto root = archive::unarchive(plist::Bytes(readFile(path)));
  if (root) return "ok";
  return std::string(nameOf(root.error().kind)) + " " + root.error().className;
}

TEST(ArchiveSamples, OfAProfileIsReadAndWrittenTheSame) {
  const auto path = sampleFolder() / "worked-example" / "profile.bin.plist";
  if (!std::filesystem::exists(path)) GTEST_SKIP() << "skipped: no sample files";
  const auto bytes = readFile(path);
  const auto root = archive::unarchive(plist::Bytes(bytes));
  ASSERT_TRUE(root) << root.error().message();
  EXPECT_EQ(*root, Value(Dictionary{{"profilepercentage", "55"},
                                    {"wifi", 1},
                                    {"custbright", 50.0},
                                    {"profiledescription", ""}}));
  const auto written = archive::archive(*root, archive::Mutability::Mutable);
  EXPECT_EQ(written->size(), bytes.size());
}

TEST(ArchiveSamples, OfCollectionsAreRead) {
  if (sampleFolder().empty()) GTEST_SKIP() << "skipped: no sample files";
  EXPECT_EQ(verdictOfFile(sampleFolder() / "node-bplist-parser" / "uid.bplist"), "ok");
  for (const char* name :
       {"NSSet-Empty", "NSSet-Numbers", "NSMutableSet-Empty", "NSMutableSet-Numbers"})
    EXPECT_EQ(
        verdictOfFile(sampleFolder() / "corelibs-macos1014" / (std::string(name) + ".archive")),
        "ok")
        << name;
}

TEST(ArchiveSamples, OfOtherClassesAreRefusedByName) {
  const auto folder = sampleFolder() / "corelibs-macos1014";
  if (!std::filesystem::exists(folder)) GTEST_SKIP() << "skipped: no sample files";
  int refused = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    const std::string found = verdictOfFile(entry.path());
    if (found == "ok") continue;
    EXPECT_TRUE(found.starts_with("UnknownClass NS")) << entry.path() << ": " << found;
    ++refused;
  }
  EXPECT_GT(refused, 20);
  EXPECT_EQ(verdictOfFile(sampleFolder() / "corelibs" / "NSKeyedUnarchiver-ComplexTest.plist"),
            "UnknownClass NSURL");
}

TEST(ArchiveSamples, WithoutARootAreRefused) {
  const auto folder = sampleFolder() / "danielpaulus";
  if (!std::filesystem::exists(folder)) GTEST_SKIP() << "skipped: no sample files";
  for (const char* name : {"arrays", "dict", "nestedarrays", "onevalue", "primitives"})
    EXPECT_EQ(verdictOfFile(folder / (std::string(name) + ".bin")), "Root ") << name;
}

}  // namespace
}  // namespace archive_test
