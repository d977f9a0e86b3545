#include "apps/cli/columns.h"

#include <algorithm>

#include "apps/cli/one_line.h"

namespace cli {
namespace {

// In characters; that some are wider on screen is let pass.
std::size_t width(const std::string& text) {
  return static_cast<std::size_t>(
      std::ranges::count_if(text, [](char c) { return (c & 0xC0) != 0x80; }));
}

}  // namespace

void Columns::addHeader(std::string_view text) {
  lines_.push_back({true, oneLine(text), {}});
}

void Columns::add(std::string_view first, std::string_view second) {
  lines_.push_back({false, oneLine(first), oneLine(second)});
}

std::vector<std::string> Columns::lines() const {
  std::size_t widest = 0;
  for (const Line& line : lines_)
    if (!line.header) widest = std::max(widest, width(line.first));
  const std::string indent(std::ranges::any_of(lines_, &Line::header) ? 2 : 0, ' ');
  std::vector<std::string> out;
  for (const auto& [header, first, second] : lines_) {
    if (header && !out.empty()) out.emplace_back();
    std::string line = header ? first : indent + first;
    if (!second.empty()) line.append(widest - width(first) + 2, ' ').append(second);
    if (!line.empty()) out.push_back(std::move(line));
  }
  return out;
}

}  // namespace cli
