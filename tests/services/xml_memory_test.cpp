// What reading XML takes at most, whatever it holds: as the binary reader, 64 times its size and
// 1 MiB.
#include <gtest/gtest.h>

#include "prefs/core/archive_file.h"
#include "services/xml_reader.h"
#include "tests/platform_plist/allocations.h"
#include "tests/support/environment.h"

namespace {

using plist_test::allocations;

struct RealXml : testing_support::NoXml {
  platform::Result<plist::Value> read(plist::Bytes bytes) override {
    return services::readXml(bytes);
  }
};

std::string repeated(std::string_view text) {
  std::string all;
  while (all.size() < 400'000) all += text;
  return all;
}

template <class Read>
void expectBounded(const std::string& text, Read read) {
  const std::size_t before = allocations.peak = allocations.now;
  read(plist::Bytes(reinterpret_cast<const std::uint8_t*>(text.data()), text.size()));
  EXPECT_EQ(allocations.now, before);
  EXPECT_LE(allocations.peak - before, 64 * text.size() + (1 << 20)) << text.substr(0, 60);
}

TEST(XmlMemory, IsBoundedForManySmallValues) {
  for (const char* value :
       {"<true/>", "<dict/>", "<array/>", "<string/>", "<data/>", "<array><true/></array>",
        "<dict><key/><true/></dict>", "<string>0123456789abcdef</string>"})
    expectBounded("<plist><array>" + repeated(value) + "</array></plist>",
                  [](plist::Bytes bytes) { EXPECT_TRUE(services::readXml(bytes)); });
}

TEST(XmlMemory, IsBoundedForManyRowsWithLines) {
  expectBounded("<dict><key>items</key><array>" + repeated("<true/>") + "</array></dict>",
                [](plist::Bytes bytes) { EXPECT_TRUE(services::readXmlWithLines(bytes)); });
}

// Of small size and much meaning: each array holds the next one many times.
TEST(XmlMemory, IsBoundedForArchivesOfSharedObjects) {
  const auto reference = [](int uid) {
    return "<dict><key>CF$UID</key><integer>" + std::to_string(uid) + "</integer></dict>";
  };
  std::string objects = "<string>$null</string>";
  for (int level = 1; level <= 12; ++level) {
    objects += "<dict><key>$class</key>" + reference(14) + "<key>NS.objects</key><array>";
    for (int i = 0; i < 9; ++i) objects += reference(level + 1);
    objects += "</array></dict>";
  }
  objects +=
      "<string>end</string><dict><key>$classname</key><string>NSArray</string>"
      "<key>$classes</key><array><string>NSArray</string></array></dict>";
  expectBounded(
      "<plist><dict><key>$version</key><integer>100000</integer><key>$archiver</key>"
      "<string>NSKeyedArchiver</string><key>$top</key><dict><key>root</key>" +
          reference(1) + "</dict><key>$objects</key><array>" + objects + "</array></dict></plist>",
      [](plist::Bytes bytes) {
        RealXml xml;
        EXPECT_FALSE(prefs::unarchive(bytes, xml));
      });
}

}  // namespace
