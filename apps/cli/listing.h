#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "apps/cli/style.h"
#include "drive/json.h"

namespace cli {

using drive::Json;

// Lines of aligned columns; where there are headers, an empty line above each and the rest
// indented. Headers are bold, notes dim.
class Columns {
 public:
  void addHeader(std::string_view text);
  void add(const std::vector<std::string>& cells, Style style = Style::Plain);
  void addNote(std::string_view text);  // a line of its own, on which no column depends

  // With a width, in cells, what doesn't fit is broken into further lines of its column.
  std::vector<StyledLine> lines(std::size_t width = 0) const;

 private:
  enum Kind { Header, Cells, Note };
  struct Line {
    Kind kind;
    Style style;
    std::vector<std::string> cells;
  };

  std::vector<Line> lines_;
};

// What a listing command prints, in both forms: lines of columns, and the items of one JSON array
// or the members of one object.
struct Listing {
  Json document = Json::array();
  Columns columns;

  static Listing ofObject() { return {Json::object(), {}}; }

  void add(Json item, const std::vector<std::string>& cells, Style style = Style::Plain) {
    document.push_back(std::move(item));
    columns.add(cells, style);
  }
  void addMember(const char* name, Json value, const std::string& text) {
    document[name] = std::move(value);
    columns.add({name, text});
  }
};

}  // namespace cli
