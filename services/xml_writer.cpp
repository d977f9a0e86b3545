#include "services/xml_writer.h"

#include "services/xml_scalars.h"

namespace services {

namespace {

constexpr std::size_t kDeepest = 512;
constexpr std::string_view kHeader =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
    "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
    "<plist version=\"1.0\">\n";
constexpr std::string_view kFooter = "</plist>\n";

// The length of the UTF-8 sequence of an XML character at the start of the text; 0 where there is
// none.
std::size_t characterLength(std::string_view text) {
  const auto byte = [&](std::size_t i) {
    return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u;
  };
  const unsigned lead = byte(0);
  if (lead < 0x80) return lead >= 0x20 || lead == '\t' || lead == '\n' || lead == '\r';
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4) return 0;
  unsigned code = lead & (0x7Fu >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0) != 0x80) return 0;
    code = code << 6 | (byte(i) & 0x3F);
  }
  const bool tooLong = (length == 3 && code < 0x800) || (length == 4 && code < 0x10000);
  const bool noCharacter = (code >= 0xD800 && code < 0xE000) || code == 0xFFFE || code == 0xFFFF;
  return tooLong || noCharacter || code > 0x10FFFF ? 0 : length;
}

class Writer {
 public:
  platform::Result<std::vector<std::uint8_t>> write(const plist::Value& root) {
    value(root);
    while (!open_.empty() && !error_) step();
    if (error_) return *error_;
    out_ += kFooter;
    return std::vector<std::uint8_t>(out_.begin(), out_.end());
  }

 private:
  // A container that is being written, and how far.
  struct Level {
    const plist::Array* array;
    const plist::Dictionary* dictionary;
    std::size_t next = 0;
  };

  void step() {
    Level& level = open_.back();
    if (level.next == (level.array ? level.array->size() : level.dictionary->size())) {
      const bool array = level.array;
      open_.pop_back();
      return line(array ? "</array>" : "</dict>");
    }
    const std::size_t index = level.next++;
    if (level.array) return value((*level.array)[index]);
    const auto& entry = level.dictionary->begin()[index];
    element("key", entry.key);
    value(entry.value);
  }

  void value(const plist::Value& v) {
    switch (v.kind()) {
      case plist::Kind::Boolean:
        return line(*v.boolean() ? "<true/>" : "<false/>");
      case plist::Kind::Integer:
        return element("integer", v.integer() ? std::to_string(*v.integer())
                                              : std::to_string(*v.unsignedInteger()));
      case plist::Kind::Real:
        return element("real", writeReal(*v.real()));
      case plist::Kind::Text:
        return element("string", *v.text());
      case plist::Kind::Data:
        return element("data", writeBase64(*v.data()));
      case plist::Kind::Date:
        return element("date", writeDate(*v.date()));
      case plist::Kind::Uid:
        return uid(v.uid()->index);
      case plist::Kind::Array:
        return container("array", {v.array(), nullptr}, v.array()->empty());
      case plist::Kind::Dictionary:
        return container("dict", {nullptr, v.dictionary()}, v.dictionary()->empty());
      case plist::Kind::Nothing:
      case plist::Kind::Set:
        fail("XML property lists can't hold " + std::string(describe(v.kind())));
    }
  }

  void uid(std::uint32_t index) {
    line("<dict>");
    out_.append(open_.size() + 1, '\t').append("<key>CF$UID</key>\n");
    out_.append(open_.size() + 1, '\t');
    out_.append("<integer>").append(std::to_string(index)).append("</integer>\n");
    line("</dict>");
  }

  void container(const std::string& tag, Level level, bool empty) {
    if (open_.size() == kDeepest) {
      return fail("nested deeper than " + std::to_string(kDeepest));
    }
    if (empty) return line("<" + tag + "/>");
    line("<" + tag + ">");
    open_.push_back(level);
  }

  void line(std::string_view text) { out_.append(open_.size(), '\t').append(text).append("\n"); }

  void element(std::string_view tag, std::string_view text) {
    out_.append(open_.size(), '\t').append("<").append(tag).append(">");
    escaped(text);
    out_.append("</").append(tag).append(">\n");
  }

  void escaped(const std::string_view whole) {
    std::string_view text = whole;
    for (std::size_t length = 0; !text.empty(); text.remove_prefix(length)) {
      length = characterLength(text);
      if (length == 0) {
        return fail("XML can't hold a character of the text \"" + printable(whole) + "\"");
      }
      switch (text[0]) {
        case '&':
          out_ += "&amp;";
          break;
        case '<':
          out_ += "&lt;";
          break;
        case '>':
          out_ += "&gt;";
          break;
        case '\r':
          out_ += "&#13;";
          break;  // a bare one would be read as a line feed
        default:
          out_ += text.substr(0, length);
      }
    }
  }

  void fail(std::string what) { error_ = platform::Error{.what = std::move(what)}; }

  static std::string printable(std::string_view text) {
    std::string shown(text.substr(0, 40));
    for (char& c : shown)
      if (c < ' ' || c > '~') c = '?';
    return shown;
  }

  std::string out_{kHeader};
  std::vector<Level> open_;
  std::optional<platform::Error> error_;
};

}  // namespace

platform::Result<std::vector<std::uint8_t>> writeXml(const plist::Value& value) {
  return Writer().write(value);
}

}  // namespace services
