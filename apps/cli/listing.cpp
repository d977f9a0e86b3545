#include "apps/cli/listing.h"

#include <algorithm>

#include "host/text.h"

namespace cli {
namespace {

constexpr std::size_t kGap = 2;

// In characters; some are wider on screen, which is ignored.
std::size_t width(const std::string& text) {
  return static_cast<std::size_t>(
      std::ranges::count_if(text, [](char c) { return (c & 0xC0) != 0x80; }));
}

}  // namespace

void Columns::addHeader(std::string_view text) {
  lines_.push_back({Header, {host::oneLine(text)}});
}

void Columns::add(const std::vector<std::string>& cells) {
  lines_.push_back({Cells, {}});
  for (const std::string& cell : cells) lines_.back().cells.push_back(host::oneLine(cell));
}

void Columns::addNote(std::string_view text) {
  lines_.push_back({Note, {host::oneLine(text)}});
}

std::vector<std::string> Columns::lines() const {
  std::vector<std::size_t> widths;
  for (const Line& line : lines_) {
    if (line.kind != Cells) continue;
    widths.resize(std::max(widths.size(), line.cells.size()));
    for (std::size_t i = 0; i < line.cells.size(); ++i)
      widths[i] = std::max(widths[i], width(line.cells[i]));
  }
  const auto isHeader = [](const Line& line) { return line.kind == Header; };
  const std::string indent(std::ranges::any_of(lines_, isHeader) ? kGap : 0, ' ');
  std::vector<std::string> out;
  for (const auto& [kind, cells] : lines_) {
    if (kind == Header && !out.empty()) out.emplace_back();
    std::string line = kind == Header ? "" : indent;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      line += cells[i];
      if (i + 1 < cells.size()) line.append(widths[i] - width(cells[i]) + kGap, ' ');
    }
    line.erase(line.find_last_not_of(' ') + 1);
    if (!line.empty()) out.push_back(std::move(line));
  }
  return out;
}

}  // namespace cli
