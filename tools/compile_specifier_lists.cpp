// compile-specifier-lists OUTPUT.cpp LIST.plist...: checks each specifier list of the bundle
// against the classes and operations that it names and writes them, in binary, as one C++ file.
// Whatever is wrong is told with file, line and row, and nothing is written.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "platform/plist/binary.h"
#include "platform/preferences/specifier_list.h"
#include "prefs/resources/classes.h"
#include "services/xml_reader.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

const preferences::Bundle kClasses{
    prefs::kPrincipalClass, prefs::pageClasses(), prefs::cellClasses(), {}};

const preferences::PageClass* pageOfList(std::string_view name) {
  for (const preferences::PageClass& page : kClasses.pages)
    if (page.list == name) return &page;
  return nullptr;
}

class List {
 public:
  explicit List(std::filesystem::path file) : file_(std::move(file)) {}

  std::string name() const { return file_.stem().string(); }

  // The compiled list; empty when something is wrong, which has been told then.
  Bytes compile() {
    std::ifstream in(file_, std::ios::binary);
    Bytes text{std::istreambuf_iterator<char>(in), {}};
    if (!in) return tell(-1, "can't be read");
    auto read = services::readXmlWithLines(text);
    if (!read) return tell(-1, read.error().message());
    lines_ = read->itemLines;
    const preferences::PageClass* page = pageOfList(name());
    if (!page) return tell(-1, "no page of the bundle loads this list");
    auto list = preferences::readSpecifierList(read->value);
    if (!list) return tell(list.error().row, list.error().what);
    auto errors = preferences::validate(*list, *page->operations, kClasses);
    for (const auto& error : errors) tell(error.row, error.what);
    if (!errors.empty()) return {};
    auto binary = plist::writeBinary(read->value);
    return binary ? *binary : tell(-1, binary.error().message());
  }

 private:
  Bytes tell(int row, const std::string& what) const {
    std::string place = file_.string();
    if (row >= 0 && row < static_cast<int>(lines_.size()))
      place += ":" + std::to_string(lines_[row]);
    if (row >= 0) place += ": row " + std::to_string(row);
    std::fprintf(stderr, "%s: %s\n", place.c_str(), what.c_str());
    return {};
  }

  std::filesystem::path file_;
  std::vector<unsigned long> lines_;
};

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
    List list(arguments[i]);
    lists.emplace_back(list.name(), list.compile());
    failed = failed || lists.back().second.empty();
  }
  if (failed) return 1;
  std::ofstream out(arguments[1]);
  write(out, lists);
  out.flush();
  if (!out) std::fprintf(stderr, "%s: can't be written\n", arguments[1]);
  return out ? 0 : 1;
}
