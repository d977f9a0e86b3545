#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// What a terminal shows in how much room, counted in its cells.
namespace cli {

// Of the terminal that is standard output; 0 where that is none.
std::size_t terminalWidth();

// A letter of East Asia or a picture takes two cells, what combines with the letter before it none.
std::size_t cellsOf(std::string_view text);

// The text as lines of so many cells at most (0: there is no bound), broken at blanks; a longer
// word is broken behind a "/" or, where it has none, anywhere.
std::vector<std::string> wrapped(std::string_view text, std::size_t width);

}  // namespace cli
