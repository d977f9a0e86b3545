#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace cli {

inline constexpr std::size_t kColumnGap = 2;  // between two columns, in a terminal's cells

// How wide the columns of a table are in a terminal's cells, each as wide as its widest text needs.
// Where they and the gaps don't come to `room` at most (0: there is no bound), those are made
// narrower that lose the least by it: the fewest further lines and broken words. No column becomes
// so narrow that nothing can be read in it, so that very little room is exceeded.
std::vector<std::size_t> columnWidths(std::span<const std::vector<std::string>> rows,
                                      std::size_t room);

}  // namespace cli
