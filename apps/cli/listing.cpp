#include "apps/cli/listing.h"

#include <algorithm>

#include "apps/cli/column_widths.h"
#include "apps/cli/terminal.h"
#include "host/text.h"

namespace cli {
namespace {

// The texts in columns of these widths, each on as many lines as it needs; nothing of no text.
std::vector<std::string> besideEachOther(const std::vector<std::string>& cells,
                                         const std::vector<std::size_t>& widths) {
  std::vector<std::string> lines;
  for (std::size_t column = 0, margin = 0; column < cells.size(); ++column) {
    const auto pieces = wrapped(cells[column], widths[column]);
    for (std::size_t i = 0; i < pieces.size(); ++i) {
      if (pieces[i].empty()) continue;
      if (i >= lines.size()) lines.resize(i + 1);
      lines[i].append(margin - cellsOf(lines[i]), ' ').append(pieces[i]);
    }
    margin += widths[column] + kColumnGap;
  }
  for (std::string& line : lines) line.erase(line.find_last_not_of(' ') + 1);
  std::erase(lines, "");
  return lines;
}

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
  const auto isHeader = [](const Line& line) { return line.kind == Header; };
  const std::size_t indent = std::ranges::any_of(lines_, isHeader) ? kColumnGap : 0;
  std::vector<Line> shown = lines_;
  std::vector<std::vector<std::string>> rows;
  for (Line& line : shown) {
    // On a terminal some letters are shown as escapes, which take more room.
    if (width > 0)
      for (std::string& cell : line.cells) cell = host::visibleText(cell);
    if (line.kind == Cells) rows.push_back(line.cells);
  }
  const auto widths = columnWidths(rows, width > indent ? width - indent : width);
  std::vector<StyledLine> out;
  for (const auto& [kind, style, cells] : shown) {
    if (kind == Header && !out.empty()) out.push_back({});
    const std::size_t margin = kind == Header ? 0 : indent;
    const std::vector<std::size_t> whole{width > margin ? width - margin : 0};
    for (std::string& line : besideEachOther(cells, kind == Cells ? widths : whole))
      out.push_back({std::string(margin, ' ') + line, style});
  }
  return out;
}

}  // namespace cli
