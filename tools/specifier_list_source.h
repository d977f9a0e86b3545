#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/plist/value.h"
#include "platform/preferences/specifier_list.h"
#include "platform/result.h"

// Specifier lists as they are written in prefs/resources (see the README there).
namespace tools {

// Adds to each row what the list states once: "id" from the row's "key"; the properties that
// "rowDefaults" has for the row's cell type; and, for a row with a "key", those of
// "settingDefaults". What a row states itself stays; between the two tables "rowDefaults" wins.
// Removes both tables from the root. A table or entry that no row uses is an error.
platform::Result<platform::Done, preferences::ListError> addRowDefaults(plist::Value& root);

class SpecifierListSource {
 public:
  // With its defaults added. An error names file, line and row.
  static platform::Result<SpecifierListSource, std::string> read(std::filesystem::path file);

  std::string name() const { return file_.stem().string(); }
  const plist::Value& root() const { return root_; }
  // "FILE:LINE: row ROW: WHAT"; without a line and a row where the error names none.
  std::string message(const preferences::ListError& error) const;

 private:
  std::filesystem::path file_;
  plist::Value root_;
  std::vector<unsigned long> lines_;  // on which each row starts
};

}  // namespace tools
