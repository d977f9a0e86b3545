// write-setting-keys OUTPUT.h LIST.plist...: writes a constant for the "key" of each row of the
// specifier lists, in alphabetical order. OUTPUT.h stays as it is when nothing in it would change,
// so that only new, renamed and removed settings make the build compile anything. Errors name the
// file and the row, and nothing is written then.
#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <optional>
#include <set>
#include <sstream>

#include "tools/specifier_list_source.h"

namespace {

using tools::SpecifierListSource;

bool isKeyName(const std::string& text) {
  const auto isLetter = [](char c) { return c >= 'a' && c <= 'z'; };
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  return !text.empty() && isLetter(text[0]) &&
         std::ranges::all_of(text, [&](char c) { return isLetter(c) || isDigit(c); });
}

// Adds the keys of one list; what is wrong with them otherwise.
std::optional<preferences::ListError> addKeys(const plist::Value& root,
                                              std::set<std::string>& keys) {
  int row = 0;
  for (const plist::Value& item : *root.dictionary()->find("items")->array()) {
    const plist::Dictionary* properties = item.dictionary();
    const plist::Value* key = properties ? properties->find("key") : nullptr;
    if (key && (!key->text() || !isKeyName(*key->text())))
      return preferences::ListError{row, "key must be text of lower-case letters and digits"};
    if (key) keys.insert(*key->text());
    ++row;
  }
  return std::nullopt;
}

std::string headerOf(const std::set<std::string>& keys) {
  std::ostringstream out;
  out << "// Written by the build from prefs/resources; prefs/core/key.h says how to use it.\n"
         "#pragma once\n\n#include \"prefs/core/key.h\"\n\nnamespace prefs::key {\n\n";
  for (const std::string& key : keys)
    out << "inline constexpr Key " << key << "{\"" << key << "\"};\n";
  out << "\n}  // namespace prefs::key\n";
  return out.str();
}

bool holds(const char* file, const std::string& text) {
  std::ifstream in(file, std::ios::binary);
  return in && std::string(std::istreambuf_iterator<char>(in), {}) == text;
}

bool write(const char* file, const std::string& text) {
  std::ofstream out(file, std::ios::binary);
  out << text;
  out.flush();
  if (!out) std::fprintf(stderr, "%s: can't be written\n", file);
  return static_cast<bool>(out);
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 3) {
    std::fprintf(stderr, "usage: write-setting-keys OUTPUT.h LIST.plist...\n");
    return 2;
  }
  std::set<std::string> keys;
  for (int i = 2; i < count; ++i) {
    auto source = SpecifierListSource::read(arguments[i]);
    auto error = source ? addKeys(source->root(), keys) : std::nullopt;
    if (source && !error) continue;
    std::fprintf(stderr, "%s\n", (source ? source->message(*error) : source.error()).c_str());
    return 1;
  }
  const std::string header = headerOf(keys);
  return holds(arguments[1], header) || write(arguments[1], header) ? 0 : 1;
}
