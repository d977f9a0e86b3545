#include "services/data_source.h"

#include <algorithm>

namespace services {

namespace {

std::string_view trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(" \t\r"), last = text.find_last_not_of(" \t\r");
  return first == text.npos ? std::string_view() : text.substr(first, last - first + 1);
}

// One that belongs to itself, over however many others, is not enabled.
bool isEnabled(const DataSources& sources, const std::string& identifier) {
  const std::string* each = &identifier;
  for (std::size_t steps = 0; steps <= sources.size(); ++steps) {
    const auto found = sources.find(*each);
    if (found == sources.end()) return true;
    if (!found->second.enabled) return false;
    each = &found->second.parent;
  }
  return false;
}

}  // namespace

DataSource readDataSource(std::string_view keyFile) {
  DataSource source;
  std::string_view group;
  while (!keyFile.empty()) {
    const auto end = std::min(keyFile.find('\n'), keyFile.size());
    const std::string_view line = trimmed(keyFile.substr(0, end));
    keyFile.remove_prefix(std::min(end + 1, keyFile.size()));
    if (line.starts_with('[') && line.ends_with(']')) {
      group = line.substr(1, line.size() - 2);
      if (group == "Address Book") source.isAddressBook = true;
    }
    const auto equals = line.find('=');
    if (group != "Data Source" || equals == line.npos) continue;
    const auto key = trimmed(line.substr(0, equals)), value = trimmed(line.substr(equals + 1));
    if (key == "DisplayName") source.name = value;
    if (key == "Parent") source.parent = value;
    if (key == "Enabled") source.enabled = value != "false";
  }
  return source;
}

std::vector<std::string> enabledAddressBooks(const DataSources& sources) {
  std::vector<std::string> books;
  for (const auto& [identifier, source] : sources)
    if (source.isAddressBook && isEnabled(sources, identifier)) books.push_back(identifier);
  return books;
}

}  // namespace services
