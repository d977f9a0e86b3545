// Other programs read every domain file, whatever was to be stored in it.
#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/platform_foundation/preferences_fixture.h"
#include "tests/platform_plist/dump.h"
#include "tests/platform_plist/temporary.h"

namespace foundation::test {
namespace {

using plist::Array;
using plist::Dictionary;
using plist::Value;
using plist_test::dump;

Dictionary storableOfEveryKind() {
  return {{"true", true},
          {"false", false},
          {"integer", -5},
          {"large", INT64_MAX},
          {"single", 0.5f},
          {"double", 0.1},
          {"text", "\u00E9 \U0001F600"},
          {"empty", ""},
          {"data", plist::Data{{0, 255}}},
          {"date", plist::Date{86400}},
          {"array", Array{1, Array{}, Dictionary{}, "a"}},
          {"dictionary", Dictionary{{"key", Array{false}}}}};
}

// The same with what a foreign archive may bring, at the top and deep inside.
Dictionary everyKind() {
  Dictionary all = storableOfEveryKind();
  all.set("nothing", Value());
  all.set("uid", plist::Uid{7});
  all.set("set", plist::Set{{1, 2}});
  all.set("array", Array{1, plist::Uid{1}, Array{Value()}, Dictionary{{"n", Value()}}, "a"});
  all.set("dictionary", Dictionary{{"s", plist::Set{{"x"}}}, {"key", Array{plist::Uid{}, false}}});
  return all;
}

struct DomainReaders : PreferencesTest {
  std::string path(const char* name) const { return (scratch / name).string(); }

  // What a peer says of the file, in a line.
  std::string ask(const std::string& peer) {
    plist_test::writeBatch(path("in"), {plist_test::readFile(folder.at(kFile))});
    EXPECT_EQ(std::system((peer + " '" + path("in") + "' '" + path("out") + "'").c_str()), 0);
    const auto answers = plist_test::readBatch(path("out"));
    return answers.empty() ? "" : std::string(answers[0].begin(), answers[0].end());
  }

  void expectReadByAll() {
    const std::string expected = dump(storableOfEveryKind());
    EXPECT_EQ(ask("/usr/bin/python3 -B '" PLISTLIB_PEER "'"), expected);
    EXPECT_EQ(ask("GNUSTEP_USER_DEFAULTS_DIR=/nonexistent '" GNUSTEP_PEER "' plist"), expected);
    const std::string convert =
        "plistutil -f bin -i '" + folder.at(kFile).string() + "' -o '" + path("converted") + "'";
    ASSERT_EQ(std::system(convert.c_str()), 0);
    const auto converted = plist::readBinary(plist_test::readFile(path("converted")));
    ASSERT_TRUE(converted);
    EXPECT_EQ(dump(*converted), expected);
  }

  plist_test::TemporaryFolder scratch;
};

TEST_F(DomainReaders, ReadWhatIsSetAtOnce) {
  ASSERT_TRUE(preferences.setMultiple(everyKind(), {}, kDomain));
  expectReadByAll();
}

TEST_F(DomainReaders, ReadWhatIsSetKeyByKey) {
  for (const auto& [key, value] : everyKind())
    ASSERT_TRUE(preferences.setAppValue(key, value, kDomain)) << key;
  expectReadByAll();
}

TEST_F(DomainReaders, ReadADomainThatHeldOtherKindsOnceItIsWritten) {
  const auto foreign = *plist::writeBinary(everyKind());
  folder.write(kFile, textOf(foreign));
  EXPECT_EQ(preferences.copyAppValue("set", kDomain), std::nullopt);
  ASSERT_TRUE(preferences.setAppValue("integer", -5, kDomain));
  expectReadByAll();
}

TEST_F(PreferencesTest, SetOfASetOrAUidLeavesTheKeyAsItIs) {
  ASSERT_TRUE(preferences.setAppValue("a", 1, kDomain));
  ASSERT_TRUE(preferences.setAppValue("a", plist::Set{{2}}, kDomain));
  ASSERT_TRUE(preferences.setMultiple({{"a", plist::Uid{2}}, {"b", Value()}}, {}, kDomain));
  EXPECT_EQ(preferences.copyAppValue("a", kDomain), Value(1));
  EXPECT_EQ(preferences.copyAppValue("b", kDomain), std::nullopt);
  EXPECT_EQ(stored("a"), Value(1));
}

}  // namespace
}  // namespace foundation::test
