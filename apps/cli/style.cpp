#include "apps/cli/style.h"

#include <unistd.h>

#include <cstdlib>

#include "host/text.h"

namespace cli {
namespace {

// ECMA-48, "select graphic rendition"
constexpr const char* kSequences[] = {"", "\x1b[1m", "\x1b[2m", "\x1b[31m"};
constexpr const char* kReset = "\x1b[0m";

std::string_view variable(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

bool showsStyles(host::Stream stream) {
  const std::string_view terminal = variable("TERM");
  return isatty(static_cast<int>(stream)) && variable("NO_COLOR").empty() && !terminal.empty() &&
         terminal != "dumb";
}

}  // namespace

void StyledText::add(std::string_view text, Style style) {
  const std::size_t begin = text_.size();
  text_ += text;
  if (style != Style::Plain && !text.empty()) styled_.push_back({begin, text_.size(), style});
}

platform::Result<platform::Done> StyledText::write(host::Stream stream) const {
  if (styled_.empty() || !showsStyles(stream)) return host::writeStream(stream, text_);
  const auto visible = [this](std::size_t begin, std::size_t end) {
    return host::visibleText(std::string_view(text_).substr(begin, end - begin));
  };
  std::string shown;
  std::size_t at = 0;
  for (const auto& [begin, end, style] : styled_) {
    shown +=
        visible(at, begin) + kSequences[static_cast<int>(style)] + visible(begin, end) + kReset;
    at = end;
  }
  shown += visible(at, text_.size());
  return host::writeStream(stream, shown, host::Controls::Kept);
}

}  // namespace cli
