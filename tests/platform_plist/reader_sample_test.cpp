// Files of other systems, where there are any.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "tests/platform_plist/temporary.h"

namespace plist_test {
namespace {

// Lines "name ok fmt=200 ..." or "name REJECT"; another fmt was read as something else than binary.
TEST(ReaderSamples, GetTheVerdictListedWithThem) {
  const auto folder = sampleFolder() / "odd-inputs";
  if (!std::filesystem::exists(folder / "EXPECTED.txt")) GTEST_SKIP() << "skipped: no sample files";
  std::ifstream list(folder / "EXPECTED.txt");
  int checked = 0;
  for (std::string line; std::getline(list, line);) {
    std::istringstream words(line);
    std::string name, expected, format;
    words >> name >> expected >> format;
    if (name.empty() || name[0] == '#') continue;
    const bool accepted = expected == "ok" && format == "fmt=200";
    EXPECT_EQ(verdict(readFile(folder / name)) == "ok", accepted) << line;
    ++checked;
  }
  EXPECT_GT(checked, 40);
}

TEST(ReaderSamples, ReadAgainWhatIsWrittenForThem) {
  if (sampleFolder().empty()) GTEST_SKIP() << "skipped: no sample files";
  int read = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(sampleFolder())) {
    if (!entry.is_regular_file()) continue;
    const auto value = plist::readBinary(readFile(entry.path()));
    if (!value) continue;
    const auto bytes = plist::writeBinary(*value);
    ASSERT_TRUE(bytes) << entry.path();
    const auto again = plist::readBinary(*bytes);
    ASSERT_TRUE(again) << entry.path();
    EXPECT_EQ(*again, *value) << entry.path();
    ++read;
  }
  EXPECT_GT(read, 50);
}

TEST(ReaderSamples, RefusesThoseThatAreDamaged) {
  const auto folder = sampleFolder() / "rust-plist";
  if (!std::filesystem::exists(folder)) GTEST_SKIP() << "skipped: no sample files";
  EXPECT_NE(verdict(readFile(folder / "binary_circular_array.plist")), "ok");
  EXPECT_NE(verdict(readFile(folder / "binary_zero_offset_size.plist")), "ok");
}

}  // namespace
}  // namespace plist_test
