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
  EXPECT_EQ(outputOf(PYTHON " -B " READ_ARCHIVE " " + file), lines);
}

}  // namespace
