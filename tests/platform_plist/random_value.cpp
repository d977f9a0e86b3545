#include "tests/platform_plist/random_value.h"

namespace plist_test {

plist::Value RandomValues::value(int depth) {
  const std::uint64_t choice = below(depth > 0 ? 10 : 6);
  if (choice < 6) return leaf();
  if (choice < 8) return dictionary(depth);
  if (choice == 8 && hasSets && below(4) == 0) return plist::Set{members(depth)};
  return members(depth);
}

plist::Dictionary RandomValues::dictionary(int depth) {
  plist::Dictionary dictionary;
  for (std::uint64_t count = below(below(8) == 0 ? 40 : 6); count > 0; --count)
    dictionary.set(text(), value(depth - 1));
  return dictionary;
}

plist::Array RandomValues::members(int depth) {
  plist::Array members;
  for (std::uint64_t count = below(below(8) == 0 ? 40 : 6); count > 0; --count)
    members.push_back(value(depth - 1));
  return members;
}

plist::Value RandomValues::leaf() {
  switch (below(8)) {
    case 0:
      return below(2) == 0;
    case 1:
    case 2:
      return number();
    case 3: {
      plist::Data data;
      for (std::uint64_t count = below(20); count > 0; --count)
        data.bytes.push_back(static_cast<std::uint8_t>(below(256)));
      return data;
    }
    case 4:
      return plist::Date{static_cast<double>(below(2000000000)) - 1e9};
    case 5:
      if (hasUids && below(2) == 0)
        return plist::Uid{static_cast<std::uint32_t>(engine_() >> (32 + below(32)))};
      if (hasNothing && below(2) == 0) return {};
      return number();
    default:
      return text();
  }
}

plist::Value RandomValues::number() {
  const std::uint64_t bits = engine_() >> below(64) >> !hasLargeIntegers;
  switch (below(6)) {
    case 0:
      return static_cast<float>(static_cast<double>(bits) / 16);
    case 1:
      return -static_cast<double>(bits | 1) / 3;  // no -0.0: plistlib takes it for 0.0
    case 2:
      return 0.1 * static_cast<double>(below(1000));
    case 3:
      return -static_cast<std::int64_t>(bits >> 1);
    case 4:
      return (std::uint64_t{1} << below(hasLargeIntegers ? 64 : 63)) - below(2);
    default:
      return bits;
  }
}

std::string RandomValues::text() {
  static constexpr std::string_view kCharacters[] = {"a",
                                                     "b",
                                                     "Z",
                                                     " ",
                                                     "/",
                                                     "\n",
                                                     "\x7F",
                                                     "\xC2\x80",
                                                     "\xC3\xA9",
                                                     "\xDF\xBF",
                                                     "\xE0\xA0\x80",
                                                     "\xE2\x82\xAC",
                                                     "\xED\x9F\xBF",
                                                     "\xEE\x80\x80",
                                                     "\xEF\xBF\xBD",
                                                     "\xF0\x90\x80\x80",
                                                     "\xF0\x9F\x98\x80",
                                                     "\xF4\x8F\xBF\xBF"};
  const std::uint64_t kinds = below(2) == 0 ? 6 : std::size(kCharacters);
  std::string text;
  for (std::uint64_t count = below(below(6) == 0 ? 300 : 20); count > 0; --count)
    text += kCharacters[below(kinds)];
  return text;
}

}  // namespace plist_test
