#include "services/xml_writer.h"

#include "platform/plist/base64.h"
#include "platform/plist/binary.h"
#include "platform/plist/date_text.h"
#include "platform/plist/utf.h"
#include "services/xml_scalars.h"

namespace services {

namespace {

constexpr std::string_view kHeader =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
    "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
    "<plist version=\"1.0\">\n";
constexpr std::string_view kFooter = "</plist>\n";

// The length of the XML character at the start of UTF-8 text; 0 where there is none.
std::size_t characterLength(std::string_view text) {
  const auto [point, size, isValid] = plist::firstCharacter(text);
  const bool isControl = point < 0x20 && point != '\t' && point != '\n' && point != '\r';
  return isValid && !isControl && point != 0xFFFE && point != 0xFFFF ? size : 0;
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
        return element("data", plist::writeBase64(*v.data()));
      case plist::Kind::Date:
        return element("date", plist::writeDate(*v.date()));
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
    if (open_.size() == plist::kMaximumDepth) {
      return fail("nested deeper than " + std::to_string(plist::kMaximumDepth));
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
