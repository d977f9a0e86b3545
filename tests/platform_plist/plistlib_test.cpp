#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/platform_plist/dump.h"
#include "tests/platform_plist/random_value.h"
#include "tests/platform_plist/temporary.h"

namespace plist_test {
namespace {

using plist::Value;

class Plistlib : public ::testing::Test {
 protected:
  // What plistlib reads and writes for each value: a line and bytes in turn.
  std::vector<ByteVector> ask(const std::vector<Value>& values) {
    std::vector<ByteVector> batch;
    for (const Value& value : values) batch.push_back(*plist::writeBinary(value));
    writeBatch(folder_ / "in", batch);
    const std::string command = "/usr/bin/python3 '" PLISTLIB_PEER "' '" +
                                (folder_ / "in").string() + "' '" + (folder_ / "out").string() +
                                "'";
    EXPECT_EQ(std::system(command.c_str()), 0);
    return readBatch(folder_ / "out");
  }

 private:
  TemporaryFolder folder_;
};

std::vector<Value> valuesForPlistlib() {
  RandomValues random(20240101);
  random.hasSets = random.hasNothing = false;  // plistlib has neither
  std::vector<Value> values;
  for (int i = 0; i < 3000; ++i) values.push_back(random.value());
  return values;
}

TEST_F(Plistlib, ReadsWhatIsWritten) {
  const auto values = valuesForPlistlib();
  const auto answers = ask(values);
  ASSERT_EQ(answers.size(), 2 * values.size());
  for (std::size_t i = 0; i < values.size(); ++i)
    ASSERT_EQ(std::string(answers[2 * i].begin(), answers[2 * i].end()), dump(values[i])) << i;
}

TEST_F(Plistlib, WritesWhatIsRead) {
  const auto values = valuesForPlistlib();
  const auto answers = ask(values);
  ASSERT_EQ(answers.size(), 2 * values.size());
  for (std::size_t i = 0; i < values.size(); ++i) {
    const auto value = plist::readBinary(answers[2 * i + 1]);
    ASSERT_TRUE(value) << i << " " << value.error().message();
    ASSERT_EQ(dump(*value), dump(values[i])) << i;
  }
}

}  // namespace
}  // namespace plist_test
