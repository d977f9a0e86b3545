#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace cli {

// Lines of two columns, the second one aligned; where there are headers, an empty line above each
// and the rest indented.
class Columns {
 public:
  void addHeader(std::string_view text);
  void add(std::string_view first, std::string_view second);

  std::vector<std::string> lines() const;

 private:
  struct Line {
    bool header;
    std::string first, second;
  };

  std::vector<Line> lines_;
};

}  // namespace cli
