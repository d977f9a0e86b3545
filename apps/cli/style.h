#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "host/user_file.h"

namespace cli {

// How a terminal shows a part of a text.
enum class Style { Plain, Bold, Dim, Red };

struct StyledLine {
  std::string text;
  Style style;
};

// A text whose parts have styles. Only a terminal gets them, unless NO_COLOR is set and not empty
// (https://no-color.org), or TERM names none that has any ("dumb", nothing).
class StyledText {
 public:
  void add(std::string_view text, Style style = Style::Plain);

  // On a terminal nothing but the styles controls it, whatever the text holds. The error is the
  // system's.
  platform::Result<platform::Done> write(host::Stream stream) const;

 private:
  struct Part {
    std::size_t begin, end;
    Style style;
  };

  std::string text_;
  std::vector<Part> styled_;  // in order; what lies between them is plain
};

}  // namespace cli
