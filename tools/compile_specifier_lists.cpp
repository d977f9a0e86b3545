// compile-specifier-lists OUTPUT.cpp LIST.plist...: checks each specifier list of the bundle
// against the classes and operations that it names and the rules of its page, and writes them, in
// binary, as one C++ file. Errors name file, line and row, and nothing is written then.
#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "platform/plist/binary.h"
#include "platform/preferences/specifier_list.h"
#include "prefs/resources/classes.h"
#include "tools/rule_check.h"
#include "tools/specifier_list_source.h"

namespace {

using Bytes = std::vector<std::uint8_t>;
using tools::SpecifierListSource;

const preferences::Bundle kClasses{
    prefs::kPrincipalClass, prefs::pageClasses(), prefs::cellClasses(), {}};

const preferences::PageClass* pageOfList(std::string_view name) {
  for (const preferences::PageClass& page : kClasses.pages)
    if (page.list == name) return &page;
  return nullptr;
}

// The compiled list; empty when something is wrong, which has been reported then.
Bytes compile(const SpecifierListSource& source) {
  const auto report = [&](const preferences::ListError& error) {
    std::fprintf(stderr, "%s\n", source.message(error).c_str());
    return Bytes();
  };
  const preferences::PageClass* page = pageOfList(source.name());
  if (!page) return report({-1, "no page of the bundle loads this list"});
  auto list = preferences::readSpecifierList(source.root());
  if (!list) return report(list.error());
  auto errors = preferences::validate(*list, *page->operations, kClasses);
  std::ranges::move(tools::ruleErrors(page->name, prefs::rulesOfPage(page->name), *list),
                    std::back_inserter(errors));
  for (const auto& error : errors) report(error);
  if (!errors.empty()) return {};
  auto binary = plist::writeBinary(source.root());
  return binary ? *binary : report({-1, binary.error().message()});
}

void write(std::ostream& out, const std::vector<std::pair<std::string, Bytes>>& lists) {
  out << "#include <cstdint>\n\n#include \"prefs/resources/bundle.h\"\n\nnamespace prefs {\n"
         "namespace {\n\n";
  for (std::size_t i = 0; i < lists.size(); ++i) {
    out << "const std::uint8_t kList" << i << "[] = {";
    for (int byte : lists[i].second) out << byte << ',';
    out << "};\n";
  }
  out << "const preferences::ListResource kLists[] = {\n";
  for (std::size_t i = 0; i < lists.size(); ++i)
    out << "    {\"" << lists[i].first << "\", kList" << i << "},\n";
  out << "};\n\n}  // namespace\n\n"
         "std::span<const preferences::ListResource> compiledLists() { return kLists; }\n\n"
         "}  // namespace prefs\n";
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 3) {
    std::fprintf(stderr, "usage: compile-specifier-lists OUTPUT.cpp LIST.plist...\n");
    return 2;
  }
  std::vector<std::pair<std::string, Bytes>> lists;
  bool failed = false;
  for (int i = 2; i < count; ++i) {
    auto source = SpecifierListSource::read(arguments[i]);
    if (!source) std::fprintf(stderr, "%s\n", source.error().c_str());
    Bytes compiled = source ? compile(*source) : Bytes();
    if (compiled.empty())
      failed = true;
    else
      lists.emplace_back(source->name(), std::move(compiled));
  }
  if (failed) return 1;
  std::ofstream out(arguments[1]);
  write(out, lists);
  out.flush();
  if (!out) std::fprintf(stderr, "%s: can't be written\n", arguments[1]);
  return out ? 0 : 1;
}
