#include <cstdio>
#include <map>

#include "platform/foundation/text.h"
#include "tests/prefs_profiles/profile_page.h"

namespace {

using ProfilePeer = profiles_test::ProfilePage;

std::string outputOf(const std::string& command) {
  std::string output;
  FILE* pipe = popen(command.c_str(), "r");
  for (int c; (c = fgetc(pipe)) != EOF;) output += static_cast<char>(c);
  EXPECT_EQ(pclose(pipe), 0) << command;
  return output;
}

TEST_F(ProfilePeer, ReadsTheSameDictionaryWithNumbersOfTheSameKind) {
  device.store("wifi", true);
  device.store("custbright", 12.5f);
  device.store("customvolume", 40);
  device.store("msgtext", "\u00e9 \u2713");
  choose("Save", "Battery 20%");

  std::map<std::string, std::string> expected;
  for (const auto& [key, value] : profiles_test::defaults())
    expected[key] = (value.text() ? "str\t" : "int\t") + foundation::descriptionOf(value);
  expected["wifi"] = "bool\tTrue";
  expected["custbright"] = "float\t12.5";
  expected["customvolume"] = "int\t40";
  expected["msgtext"] = "str\t\u00e9 \u2713";
  expected["profilepercentage"] = "str\t20";
  std::string lines;
  for (const auto& [key, line] : expected) lines += key + "\t" + line + "\n";

  const std::string file = device.at(prefs::profilePath(20)).string();
  EXPECT_EQ(outputOf("'" PYTHON "' -B '" READ_ARCHIVE "' '" + file + "'"), lines);
}

TEST_F(ProfilePeer, ReadsTheDomainAfterALoadOfAForeignArchiveAndALaterSave) {
  seed::archive(device, "profile_20.qvx",
                plist::Dictionary{{"profilepercentage", "20"},
                                  {"wifi", plist::Set{{1, 2}}},
                                  {"vpn", plist::Value()},
                                  {"dnd", plist::Array{plist::Set{{"a"}}, plist::Value(), 1}},
                                  {"siri", plist::Dictionary{{"inner", plist::Value()}}}});
  const std::string file = device.at(device.kDomainFile).string();
  const std::string print =
      "'" PYTHON
      "' -B -c \"import plistlib, sys; d = plistlib.load(open(sys.argv[1], 'rb'));"
      " print([d[k] for k in ('wifi', 'vpn', 'dnd', 'siri', 'profilepercentage')])\" '" +
      file + "'";
  choose("Load", "Battery 20%");
  EXPECT_EQ(outputOf(print), "[0, 0, [1], {}, '20']\n");
  choose("Save", "Battery 21%");
  EXPECT_TRUE(device.problems.empty());
  EXPECT_EQ(outputOf(print), "[0, 0, [1], {}, '21']\n");
}

}  // namespace
