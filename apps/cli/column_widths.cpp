#include "apps/cli/column_widths.h"

#include <algorithm>
#include <numeric>

#include "apps/cli/terminal.h"

namespace cli {
namespace {

constexpr std::size_t kNarrowest = 6;
constexpr std::size_t kBrokenWord = 20;      // is as bad as so many lines
constexpr std::size_t kTooWide = 1'000'000;  // likewise
// What is looked at of long tables and texts, since each width is tried.
constexpr std::size_t kRowsTried = 500, kBytesTried = 1000;

using Rows = std::span<const std::vector<std::string>>;

bool breaksWord(std::string_view text, std::size_t width) {
  for (;;) {
    const std::size_t end = text.find(' ');
    if (cellsOf(text.substr(0, end)) > width) return true;
    if (end == text.npos) return false;
    text.remove_prefix(end + 1);
  }
}

// What the column's texts lose at that width.
std::size_t lossOf(Rows rows, std::size_t column, std::size_t width) {
  std::size_t loss = 0;
  for (const auto& cells : rows.first(std::min(rows.size(), kRowsTried))) {
    if (column >= cells.size()) continue;
    const std::string_view text = std::string_view(cells[column]).substr(0, kBytesTried);
    if (cellsOf(text) <= width) continue;
    loss += wrapped(text, width).size() - 1;
    if (breaksWord(text, width)) loss += kBrokenWord;
  }
  return loss;
}

// The best widths of the columns from one on, for each room that there may be for them.
struct Choice {
  std::size_t loss = 0, width = 0;
};
using Choices = std::vector<Choice>;

Choices choicesOf(Rows rows, std::size_t column, std::size_t widest, const Choices& further) {
  std::vector<std::size_t> losses(widest + 1);
  const std::size_t narrowest = std::min(widest, kNarrowest);
  for (std::size_t width = narrowest; width < widest; ++width)
    losses[width] = lossOf(rows, column, width);
  Choices choices(further.size(), {kTooWide, narrowest});
  for (std::size_t room = narrowest; room < choices.size(); ++room)
    for (std::size_t width = narrowest; width <= std::min(widest, room); ++width) {
      const std::size_t loss = losses[width] + further[room - width].loss;
      if (loss < choices[room].loss) choices[room] = {loss, width};
    }
  return choices;
}

}  // namespace

std::vector<std::size_t> columnWidths(Rows rows, std::size_t room) {
  std::vector<std::size_t> widths;
  for (const auto& cells : rows) {
    widths.resize(std::max(widths.size(), cells.size()));
    for (std::size_t i = 0; i < cells.size(); ++i)
      widths[i] = std::max(widths[i], cellsOf(cells[i]));
  }
  const std::size_t gaps = widths.empty() ? 0 : kColumnGap * (widths.size() - 1);
  if (room == 0 || std::reduce(widths.begin(), widths.end()) + gaps <= room) return widths;
  std::size_t left = room - std::min(room, gaps);
  std::vector<Choices> choices{Choices(left + 1)};  // of no column, of the last one, and so on
  for (std::size_t column = widths.size(); column-- > 0;)
    choices.push_back(choicesOf(rows, column, std::min(widths[column], std::max(left, kNarrowest)),
                                choices.back()));
  for (std::size_t column = 0; column < widths.size(); ++column) {
    widths[column] = choices[widths.size() - column][left].width;
    left -= std::min(left, widths[column]);
  }
  return widths;
}

}  // namespace cli
