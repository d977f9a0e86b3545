#include "host/profile_import.h"
#include "platform/archive/keyed_archive.h"
#include "services/xml_reader.h"
#include "tests/support/environment.h"

namespace {

using host::Failure;

struct RealXml : testing_support::NoXml {
  platform::Result<plist::Value> read(plist::Bytes bytes) override {
    return services::readXml(bytes);
  }
};

std::string failureOf(std::string_view text) {
  RealXml xml;
  const auto read =
      host::readImport({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}, xml);
  EXPECT_FALSE(read) << text;
  return read ? "" : read.error().problem.words;
}

const std::string kArchiveHead =
    "<plist version='1.0'><dict><key>$version</key><integer>100000</integer>"
    "<key>$archiver</key><string>NSKeyedArchiver</string>"
    "<key>$top</key><dict><key>root</key><dict><key>CF$UID</key><integer>1</integer></dict></dict>"
    "<key>$objects</key>";

// Bringing XML to the binary form gives offsets of no file that the user has.
TEST(ImportErrors, OfAnArchiveInXmlHoldNoOffset) {
  for (const char* objects :
       {"<array><string>$null</string></array>", "<string>none</string>",
        "<array><string>$null</string><dict><key>NS.keys</key><array/></dict></array>"}) {
    const std::string words = failureOf(kArchiveHead + objects + "</dict></plist>");
    EXPECT_EQ(words.find("at byte"), std::string::npos) << words;
    EXPECT_EQ(words.find_first_of("0123456789"), std::string::npos) << words;
  }
}

TEST(ImportErrors, OfABinaryArchiveHoldOffsetsInTheFileItself) {
  const auto whole =
      *plist::writeBinary(plist::Dictionary{{"$version", 100000},
                                            {"$archiver", "NSKeyedArchiver"},
                                            {"$top", plist::Dictionary{{"root", plist::Uid{1}}}},
                                            {"$objects", plist::Array{"$null"}}});
  const std::string_view text(reinterpret_cast<const char*>(whole.data()), whole.size());
  RealXml xml;
  const auto direct = archive::unarchive(whole);
  ASSERT_FALSE(direct);
  EXPECT_NE(direct.error().message().find("at byte"), std::string::npos)
      << direct.error().message();
  EXPECT_EQ(failureOf(text), "not a keyed archive: " + direct.error().message());
}

TEST(ImportErrors, OfBrokenXmlNameItsLine) {
  EXPECT_NE(failureOf("<plist version='1.0'>\n<dict>\n</array></plist>").find("3"),
            std::string::npos);
}

}  // namespace
