#include "apps/cli/terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <span>

namespace cli {
namespace {

constexpr std::size_t kUnknownWidth = 80;

struct Range {
  char32_t first, last;
};
constexpr Range kWide[] = {
    {0x1100, 0x115F},   {0x2E80, 0x303E},   {0x3041, 0xA4CF},  {0xA960, 0xA97F}, {0xAC00, 0xD7A3},
    {0xF900, 0xFAFF},   {0xFE30, 0xFE6F},   {0xFF00, 0xFF60},  {0xFFE0, 0xFFE6}, {0x1F300, 0x1F64F},
    {0x1F680, 0x1F6FF}, {0x1F900, 0x1F9FF}, {0x20000, 0x3FFFD}};
constexpr Range kCombining[] = {{0x0300, 0x036F}, {0x1AB0, 0x1AFF}, {0x1DC0, 0x1DFF},
                                {0x200B, 0x200F}, {0x20D0, 0x20FF}, {0xFE00, 0xFE0F},
                                {0xFE20, 0xFE2F}};

bool isIn(std::span<const Range> ranges, char32_t letter) {
  return std::ranges::any_of(
      ranges, [=](const Range& range) { return letter >= range.first && letter <= range.last; });
}

bool continues(char byte) {
  return (byte & 0xC0) == 0x80;
}

// Takes the first letter of UTF-8 off.
char32_t takeLetter(std::string_view& text) {
  const auto lead = static_cast<unsigned char>(text.front());
  char32_t letter = lead < 0x80   ? lead
                    : lead < 0xE0 ? lead & 0x1F
                    : lead < 0xF0 ? lead & 0xF
                                  : lead & 7;
  text.remove_prefix(1);
  for (; !text.empty() && continues(text.front()); text.remove_prefix(1))
    letter = letter << 6 | (text.front() & 0x3F);
  return letter;
}

std::size_t cellsOfLetter(char32_t letter) {
  return isIn(kCombining, letter) ? 0 : isIn(kWide, letter) ? 2 : 1;
}

// Takes off what fits of a longer word, a letter at least.
std::string_view takeBeginning(std::string_view& word, std::size_t width) {
  std::size_t end = 0, behindSlash = 0, cells = 0;
  for (std::string_view rest = word; !rest.empty();) {
    cells += cellsOfLetter(takeLetter(rest));
    if (end > 0 && cells > width) break;
    end = word.size() - rest.size();
    if (word[end - 1] == '/') behindSlash = end;
  }
  if (behindSlash > end / 2) end = behindSlash;
  const std::string_view beginning = word.substr(0, end);
  word.remove_prefix(end);
  return beginning;
}

}  // namespace

std::size_t terminalWidth() {
  winsize size{};
  if (isatty(STDOUT_FILENO) == 0) return 0;
  const bool known = ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return known ? size.ws_col : kUnknownWidth;
}

std::size_t cellsOf(std::string_view text) {
  std::size_t cells = 0;
  while (!text.empty()) cells += cellsOfLetter(takeLetter(text));
  return cells;
}

std::vector<std::string> wrapped(std::string_view text, std::size_t width) {
  if (width == 0 || cellsOf(text) <= width) return {std::string(text)};
  std::vector<std::string> lines(1);
  while (!text.empty()) {
    std::string_view word = text.substr(0, text.find(' '));
    text.remove_prefix(std::min(word.size() + 1, text.size()));
    std::size_t cells = cellsOf(word);
    if (!lines.back().empty() && cellsOf(lines.back()) + 1 + cells > width)
      lines.emplace_back();
    else if (!lines.back().empty())
      lines.back() += ' ';
    for (; cells > width; lines.emplace_back()) {
      const std::string_view beginning = takeBeginning(word, width);
      cells -= cellsOf(beginning);
      lines.back() += beginning;
    }
    lines.back() += word;
  }
  return lines;
}

}  // namespace cli
