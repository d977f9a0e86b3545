#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/archive/keyed_archive.h"
#include "tests/platform_plist/dump.h"
#include "tests/platform_plist/random_value.h"
#include "tests/platform_plist/temporary.h"

namespace plist_test {
namespace {

using plist::Array;
using plist::Dictionary;
using plist::Value;

struct Answer {
  std::string line;
  ByteVector archive;
};

class GNUstep : public ::testing::Test {
 protected:
  // What GNUstep reads in the archive of each value, and what it archives for that.
  std::vector<Answer> ask(const std::vector<Value>& values) {
    std::vector<ByteVector> batch;
    for (const Value& value : values)
      batch.push_back(*archive::archive(value, archive::Mutability::Mutable));
    writeBatch(folder_ / "in", batch);
    const std::string command =
        "GNUSTEP_USER_DEFAULTS_DIR=/nonexistent '" GNUSTEP_PEER "' archive '" +
        (folder_ / "in").string() + "' '" + (folder_ / "out").string() + "'";
    EXPECT_EQ(std::system(command.c_str()), 0);
    const auto entries = readBatch(folder_ / "out");
    std::vector<Answer> answers;
    for (std::size_t i = 0; i + 1 < entries.size(); i += 2)
      answers.push_back({{entries[i].begin(), entries[i].end()}, entries[i + 1]});
    EXPECT_EQ(answers.size(), values.size());
    answers.resize(values.size());
    return answers;
  }

  void expectUnderstood(const Value& value) {
    const Answer answer = ask({value}).front();
    EXPECT_EQ(answer.line, dump(value));
    const auto read = archive::unarchive(plist::Bytes(answer.archive));
    ASSERT_TRUE(read) << read.error().message();
    EXPECT_EQ(dump(*read), dump(value));
  }

 private:
  TemporaryFolder folder_;
};

TEST_F(GNUstep, UnderstandsAProfile) {
  expectUnderstood(Dictionary{
      {"profilepercentage", "55"}, {"wifi", 1}, {"custbright", 50.0}, {"profiledescription", ""}});
}

TEST_F(GNUstep, UnderstandsALog) {
  expectUnderstood(Array{"one", "two", "one", "\xC3\xA9"});
}

TEST_F(GNUstep, UnderstandsEveryLeaf) {
  expectUnderstood(Array{true, false, 0, -1, INT64_MIN, INT64_MAX, 0.5f, 0.1, "", "text",
                         plist::Data{hex("00 FF")}, plist::Data{}, plist::Date{0.5}, Value()});
}

TEST_F(GNUstep, UnderstandsNestedContainers) {
  expectUnderstood(Dictionary{{"a", Array{Dictionary{{"b", Array()}}, Dictionary()}},
                              {"c", Dictionary{{"a", "c"}}}});
}

TEST_F(GNUstep, UnderstandsASet) {
  expectUnderstood(Array{plist::Set{{"only"}}});
}

std::vector<Value> valuesForGNUstep(unsigned seed) {
  RandomValues random(seed);
  random.hasUids = false;           // no part of an archive
  random.hasSets = false;           // their order is not kept
  random.hasLargeIntegers = false;  // GNUstep refuses integers of 16 bytes
  std::vector<Value> values;
  for (int i = 0; i < 1500; ++i) values.push_back(random.value(3));
  return values;
}

TEST_F(GNUstep, UnderstandsThousandsOfValues) {
  const auto values = valuesForGNUstep(20240404);
  const auto answers = ask(values);
  for (std::size_t i = 0; i < values.size(); ++i) ASSERT_EQ(answers[i].line, dump(values[i])) << i;
}

TEST_F(GNUstep, IsUnderstoodForThousandsOfValues) {
  const auto values = valuesForGNUstep(20240505);
  const auto answers = ask(values);
  for (std::size_t i = 0; i < values.size(); ++i) {
    const auto read = archive::unarchive(plist::Bytes(answers[i].archive));
    ASSERT_TRUE(read) << i << " " << read.error().message();
    ASSERT_EQ(dump(*read), dump(values[i])) << i;
  }
}

}  // namespace
}  // namespace plist_test
