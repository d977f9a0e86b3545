#include "apps/cli/listing.h"

#include <algorithm>

#include "apps/cli/terminal.h"
#include "host/text.h"

namespace cli {
namespace {

constexpr std::size_t kGap = 2;

constexpr std::size_t kNarrowest = 20;  // what is broken into lines has this much room

}  // namespace

void Columns::addHeader(std::string_view text) {
  lines_.push_back({Header, Style::Bold, {host::oneLine(text)}});
}

void Columns::add(const std::vector<std::string>& cells, Style style) {
  lines_.push_back({Cells, style, {}});
  for (const std::string& cell : cells) lines_.back().cells.push_back(host::oneLine(cell));
}

void Columns::addNote(std::string_view text) {
  lines_.push_back({Note, Style::Dim, {host::oneLine(text)}});
}

std::vector<StyledLine> Columns::lines(std::size_t width) const {
  std::vector<std::size_t> widths;
  for (const Line& line : lines_) {
    if (line.kind != Cells) continue;
    widths.resize(std::max(widths.size(), line.cells.size()));
    for (std::size_t i = 0; i < line.cells.size(); ++i)
      widths[i] = std::max(widths[i], cellsOf(line.cells[i]));
  }
  const auto isHeader = [](const Line& line) { return line.kind == Header; };
  const std::string indent(std::ranges::any_of(lines_, isHeader) ? kGap : 0, ' ');
  std::vector<StyledLine> out;
  for (const auto& [kind, style, cells] : lines_) {
    if (kind == Header && !out.empty()) out.push_back({});
    std::string line = kind == Header ? "" : indent;
    for (std::size_t i = 0; i + 1 < cells.size(); ++i)
      line.append(cells[i]).append(widths[i] - cellsOf(cells[i]) + kGap, ' ');
    const std::size_t margin = cellsOf(line);
    const std::string last = cells.empty() ? "" : cells.back();
    const bool fits = margin + cellsOf(last) <= width || margin + kNarrowest > width;
    for (const std::string& piece : fits ? std::vector{last} : wrapped(last, width - margin)) {
      line += piece;
      line.erase(line.find_last_not_of(' ') + 1);
      if (!line.empty()) out.push_back({line, style});
      line.assign(margin, ' ');
    }
  }
  return out;
}

}  // namespace cli
