#include "apps/cli/split_arguments.h"

#include <algorithm>
#include <string_view>

namespace cli {
namespace {

constexpr std::string_view kOptionsWithValue[] = {"--root", "--contacts", "--idiom", "--viewport"};
constexpr std::string_view kKinds[] = {"-int", "-float", "-bool", "-string"};

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

bool isNegativeNumber(std::string_view word) {
  if (word.size() > 2 && word[1] == '.') word.remove_prefix(1);
  return word.size() > 1 && isDigit(word[1]);
}

bool isOption(std::string_view word) {
  return word.size() > 1 && word[0] == '-' && !isNegativeNumber(word);
}

}  // namespace

SplitArguments splitArguments(const std::vector<std::string>& arguments) {
  SplitArguments words;
  auto word = arguments.begin();
  for (; word != arguments.end() && *word != "--"; ++word) {
    if (!isOption(*word)) {
      words.others.push_back(*word);
      continue;
    }
    const bool kind = std::ranges::find(kKinds, *word) != std::end(kKinds);
    const std::string name = kind ? "-" + *word : word->substr(0, word->find('='));
    if (std::ranges::find(kOptionsWithValue, name) == std::end(kOptionsWithValue)) {
      words.options.push_back(kind ? name : *word);
      continue;
    }
    words.options.push_back(name);
    if (name != *word)
      words.options.push_back(word->substr(name.size() + 1));
    else if (word + 1 != arguments.end())
      words.options.push_back(*++word);
    else
      words.unfinished = name;
  }
  if (word != arguments.end()) words.others.insert(words.others.end(), word + 1, arguments.end());
  return words;
}

}  // namespace cli
