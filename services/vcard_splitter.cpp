#include "services/vcard_splitter.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "platform/foundation/text.h"
#include "platform/plist/hexadecimal.h"

namespace services {
namespace {

using std::string_view;

constexpr std::size_t kLongestProperty = 1024;
constexpr string_view kReplacement = "\xEF\xBF\xBD";
constexpr string_view kByteOrderMark = "\xEF\xBB\xBF";

char toLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}
bool isBlank(char c) {
  return c == ' ' || c == '\t';
}
bool isAscii(char c) {
  return static_cast<unsigned char>(c) < 0x80;
}

constexpr auto sameLetter = [](char a, char b) { return toLower(a) == toLower(b); };

bool equalsIgnoringCase(string_view a, string_view b) {
  return a.size() == b.size() && std::ranges::equal(a, b, sameLetter);
}

std::size_t findIgnoringCase(string_view text, string_view what) {
  const auto found = std::search(text.begin(), text.end(), what.begin(), what.end(), sameLetter);
  return found == text.end() ? string_view::npos : static_cast<std::size_t>(found - text.begin());
}

// What stands before the first colon outside quotes: name and parameters.
std::optional<string_view> headerOf(string_view line) {
  if (!line.empty() && isBlank(line.front())) return std::nullopt;
  bool quoted = false;
  for (std::size_t i = 0; i < std::min(line.size(), kLongestProperty); ++i) {
    if (line[i] == '"') quoted = !quoted;
    if (line[i] == ':' && !quoted) return line.substr(0, i);
  }
  return std::nullopt;
}

string_view nameOf(string_view header) {
  const string_view grouped = header.substr(0, header.find(';'));
  return grouped.substr(grouped.rfind('.') + 1);
}

bool isQuotedPrintable(string_view header) {
  return findIgnoringCase(header, "QUOTED-PRINTABLE") != string_view::npos;
}

bool isMark(string_view line, string_view mark) {
  while (!line.empty() && isBlank(line.back())) line.remove_suffix(1);
  return equalsIgnoringCase(line, mark);
}
bool isBegin(string_view line) {
  return isMark(line, "BEGIN:VCARD");
}
bool isEnd(string_view line) {
  return isMark(line, "END:VCARD");
}

class Lines {
 public:
  explicit Lines(string_view file) : rest_(file) {}

  // Unfolded; good until the next call.
  std::optional<string_view> next() {
    if (rest_.empty()) return std::nullopt;
    string_view line = takeLine();
    unfolded_.clear();
    for (;;) {
      if (hasSoftBreak(line))
        append(line, line.size() - 1, takeLine());
      else if (!rest_.empty() && isBlank(rest_.front()))
        append(line, line.size(), takeLine().substr(1));
      else
        return line;
    }
  }

 private:
  string_view firstLine() const {
    string_view line = rest_.substr(0, rest_.find('\n'));
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
  }

  string_view takeLine() {
    const string_view line = firstLine();
    const std::size_t end = rest_.find('\n', line.size());
    rest_.remove_prefix(end == string_view::npos ? rest_.size() : end + 1);
    return line;
  }

  bool hasSoftBreak(string_view line) const {
    if (!line.ends_with('=') || rest_.empty()) return false;
    const auto header = headerOf(line);
    if (!header || !isQuotedPrintable(*header)) return false;
    return !isBegin(firstLine()) && !isEnd(firstLine());
  }

  void append(string_view& line, std::size_t kept, string_view more) {
    if (unfolded_.empty()) unfolded_ = line;
    unfolded_.resize(kept);
    unfolded_ += more;
    line = unfolded_;
  }

  string_view rest_;
  std::string unfolded_;
};

bool namesForeignCharset(string_view header) {
  constexpr string_view kParameter = ";CHARSET=";
  const std::size_t found = findIgnoringCase(header, kParameter);
  if (found == string_view::npos) return false;
  string_view charset = header.substr(found + kParameter.size());
  charset = charset.substr(0, charset.find(';'));
  return !equalsIgnoringCase(charset, "UTF-8") && !equalsIgnoringCase(charset, "\"UTF-8\"");
}

void appendQuotedPrintable(std::string& card, string_view header, string_view value) {
  const bool already = isQuotedPrintable(header);
  card += header;
  card += already ? ":" : ";ENCODING=QUOTED-PRINTABLE:";
  for (const char c : value) {
    if (isAscii(c) && (c != '=' || already)) {
      card += c;
      continue;
    }
    card += '=';
    plist::appendHex(card, static_cast<std::uint8_t>(c), plist::kUpperHexDigits);
  }
}

void appendText(std::string& card, string_view line) {
  if (foundation::isUtf8(line))
    card += line;
  else
    card += foundation::replacingInvalidUtf8(line);
}

void appendProperty(std::string& card, string_view header, string_view line) {
  const std::size_t start = card.size();
  const bool ascii = std::ranges::all_of(line, isAscii);
  if (!ascii && namesForeignCharset(header))
    appendQuotedPrintable(card, foundation::replacingInvalidUtf8(header),
                          line.substr(header.size() + 1));
  else
    appendText(card, line);
  for (auto zero = card.find('\0', start); zero != card.npos; zero = card.find('\0', zero))
    card.replace(zero, 1, kReplacement);
  card += "\r\n";
}

bool isWanted(string_view name) {
  constexpr std::array<string_view, 4> kWanted{"N", "FN", "TEL", "EMAIL"};
  return std::ranges::any_of(kWanted, [&](auto each) { return equalsIgnoringCase(each, name); });
}

}  // namespace

void splitCards(string_view file, const CardVisit& visit) {
  if (file.starts_with(kByteOrderMark)) file.remove_prefix(kByteOrderMark.size());
  Lines lines(file);
  std::string card;
  bool inside = false, agent = false;
  std::size_t nested = 0;
  while (const auto line = lines.next()) {
    const bool inAgent = std::exchange(agent, false);
    if (isBegin(*line)) {
      nested = inside && inAgent ? nested + 1 : 0;
      if (nested == 0) card = "BEGIN:VCARD\r\n";
      inside = true;
    } else if (isEnd(*line)) {
      if (nested > 0) {
        --nested;
      } else if (std::exchange(inside, false)) {
        card += "END:VCARD\r\n";
        visit(card);
      }
    } else if (const auto header = headerOf(*line); inside && header) {
      const string_view name = nameOf(*header);
      agent = equalsIgnoringCase(name, "AGENT") && header->size() + 1 == line->size();
      if (nested == 0 && isWanted(name) && line->size() <= kLongestProperty)
        appendProperty(card, *header, *line);
    }
  }
}

}  // namespace services
