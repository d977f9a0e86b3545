#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace services {

// What an Evolution Data Server knows of one source of data: an account, an address book, …
struct DataSource {
  std::string name, parent;  // for its user; the identifier of the source that it belongs to
  bool enabled = true;
  bool isAddressBook = false;
  bool operator==(const DataSource&) const = default;
};
using DataSources = std::map<std::string, DataSource>;  // by their identifiers

// Reads the key file of a source ("[Data Source]", "Enabled=true", …). What is not understood is
// passed over.
DataSource readDataSource(std::string_view keyFile);

// The address books that are enabled, as is all that they belong to.
std::vector<std::string> enabledAddressBooks(const DataSources& sources);

}  // namespace services
