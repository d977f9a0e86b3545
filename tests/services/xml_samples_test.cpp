#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "tests/services/xml_text.h"

namespace {

std::string contents(const std::filesystem::path& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

class XmlSamples : public testing::Test {
 protected:
  void SetUp() override {
    const char* folder = std::getenv("QUORVANTIS_SAMPLES");
    if (!folder || !std::filesystem::is_directory(folder))
      GTEST_SKIP() << "skipped: no sample files";
    samples = folder;
  }
  std::filesystem::path samples;
};

}  // namespace

TEST_F(XmlSamples, OddInputsHaveTheirVerdicts) {
  std::ifstream verdicts(samples / "odd-inputs/EXPECTED.txt");
  std::string name, verdict;
  int checked = 0;
  for (std::string line; std::getline(verdicts, line);) {
    std::istringstream(line) >> name >> verdict;
    if (name.find("-xml-") == name.npos) continue;
    EXPECT_EQ(refusal(contents(samples / "odd-inputs" / name)) == "", verdict == "ok") << name;
    ++checked;
  }
  EXPECT_GE(checked, 14);
}

TEST_F(XmlSamples, EncodingsAgree) {
  const auto folder = samples / "dd-plist";
  const plist::Value plain = read(contents(folder / "test1.plist"));
  EXPECT_EQ(plain.kind(), plist::Kind::Dictionary);
  EXPECT_EQ(read(contents(folder / "test-xml-utf-16be-bom.plist")),
            read(contents(folder / "test-xml-utf-16le-bom.plist")));
}

TEST_F(XmlSamples, ArchivesOfOthersComeBackFromOurWriter) {
  int checked = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(samples)) {
    if (!entry.is_regular_file()) continue;
    const std::string text = contents(entry.path());
    if (text.find("<plist") == text.npos) continue;
    const auto value = readXmlText(text);
    if (!value) continue;
    EXPECT_EQ(read(written(*value)), *value) << entry.path();
    ++checked;
  }
  EXPECT_GE(checked, 20);
}
