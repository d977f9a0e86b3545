#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdlib>
#include <random>
#include <sstream>

#include "tests/services/temporary_folder.h"
#include "tests/services/xml_text.h"

namespace {

// Values that Python's form has too: no UID, no carriage return (its writer changes it).
class Generator {
 public:
  plist::Value value(int depth) {
    switch (below(depth > 0 ? 9 : 7)) {
      case 0:
        return below(2) == 0;
      case 1:
        return static_cast<std::int64_t>(random_() >> below(64));
      case 2:
        return -static_cast<std::int64_t>(random_() >> (1 + below(62)));
      case 3:
        return real();
      case 4:
        return text();
      case 5:
        return plist::Date{std::floor(std::uniform_real_distribution(-6.3e10, 2.5e11)(random_))};
      case 6:
        return data();
      case 7:
        return array(depth - 1);
      default:
        return dictionary(depth - 1);
    }
  }

  plist::Array array(int depth) {
    plist::Array members;
    for (auto count = below(12); count > 0; --count) members.push_back(value(depth));
    return members;
  }

 private:
  std::uint64_t below(std::uint64_t limit) { return random_() % limit; }

  double real() {
    const double any = std::bit_cast<double>(random_());
    return std::isfinite(any) ? any : 0.5;
  }

  std::string text() {
    constexpr std::string_view pieces[] = {"a",  "Z", "<", ">",   "&", "\"", "'", " ",     "\t",
                                           "\n", "é", "😀", "]]>", "%", "0",  "ı", "\u2028"};
    std::string text;
    for (auto count = below(20); count > 0; --count) text += pieces[below(std::size(pieces))];
    return text;
  }

  plist::Data data() {
    plist::Data data;
    for (auto count = below(100); count > 0; --count)
      data.bytes.push_back(static_cast<std::uint8_t>(random_()));
    return data;
  }

  plist::Dictionary dictionary(int depth) {
    plist::Dictionary entries;
    for (auto count = below(12); count > 0; --count) entries.set(text(), value(depth));
    return entries;
  }

  std::mt19937_64 random_{2026};
};

}  // namespace

TEST(XmlPeer, PythonReadsAndWritesTheSameValues) {
  Generator generator;
  plist::Array values;
  for (int i = 0; i < 6000; ++i) values.push_back(generator.value(4));
  const plist::Value all(std::move(values));

  const TemporaryFolder folder;
  const auto ours = folder.write("ours.plist", written(all));
  const auto theirs = folder.path / "theirs.plist";
  const std::string command =
      "/usr/bin/python3 '" PEER_SCRIPT "' '" + ours.string() + "' '" + theirs.string() + "'";
  ASSERT_EQ(std::system(command.c_str()), 0);

  std::ostringstream text;
  text << std::ifstream(theirs, std::ios::binary).rdbuf();
  const plist::Value back = read(text.str());
  ASSERT_TRUE(back.array());
  ASSERT_EQ(back.array()->size(), all.array()->size());
  for (std::size_t i = 0; i < all.array()->size(); ++i)
    ASSERT_TRUE((*back.array())[i] == (*all.array())[i]) << written((*all.array())[i]);
}
