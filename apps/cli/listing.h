#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "drive/json.h"

namespace cli {

using drive::Json;

// Lines of aligned columns; where there are headers, an empty line above each and the rest
// indented.
class Columns {
 public:
  void addHeader(std::string_view text);
  void add(const std::vector<std::string>& cells);

  std::vector<std::string> lines() const;

 private:
  struct Line {
    bool header;
    std::vector<std::string> cells;
  };

  std::vector<Line> lines_;
};

// The items of a listing command in both forms: members of one JSON array, and lines of columns.
struct Listing {
  Json::array_t document;
  Columns columns;

  void add(Json item, const std::vector<std::string>& cells) {
    document.push_back(std::move(item));
    columns.add(cells);
  }
};

}  // namespace cli
