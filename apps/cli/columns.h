#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace cli {

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

}  // namespace cli
