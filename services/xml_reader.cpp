#include "services/xml_reader.h"

#include <expat.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/plist/base64.h"
#include "platform/plist/binary_walk.h"
#include "platform/plist/date_text.h"
#include "services/xml_scalars.h"

namespace services {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kTooLarge = "holds more than its size allows for";

enum class Element { Plist, Dict, Array, Key, String, Integer, Real, True, False, Date, Data };

constexpr std::array<std::pair<std::string_view, Element>, 11> kElements{{
    {"plist", Element::Plist},
    {"dict", Element::Dict},
    {"array", Element::Array},
    {"key", Element::Key},
    {"string", Element::String},
    {"integer", Element::Integer},
    {"real", Element::Real},
    {"true", Element::True},
    {"false", Element::False},
    {"date", Element::Date},
    {"data", Element::Data},
}};

bool isContainer(Element element) {
  return element <= Element::Array;
}

// An open <plist>, <dict> or <array>.
struct Container {
  Element element;
  plist::Dictionary dictionary;
  plist::Array members;  // of <plist>: its one value
  std::optional<std::string> key = {};
};

std::uint32_t low32(const plist::Value& number) {
  if (const auto integer = number.integer()) return static_cast<std::uint32_t>(*integer);
  if (const auto integer = number.unsignedInteger()) return static_cast<std::uint32_t>(*integer);
  const double real = number.real().value_or(0);
  return std::fabs(real) < 0x1p63 ? static_cast<std::uint32_t>(static_cast<std::int64_t>(real)) : 0;
}

plist::Value dictionaryOrUid(plist::Dictionary dictionary) {
  const plist::Value* number = dictionary.size() == 1 ? dictionary.find("CF$UID") : nullptr;
  if (number && (number->kind() == plist::Kind::Integer || number->kind() == plist::Kind::Real))
    return plist::Uid{low32(*number)};
  return plist::Value(std::move(dictionary));
}

// In one line, shortened.
std::string quoted(std::string_view text) {
  std::string shown(text.substr(0, 40));
  std::replace_if(
      shown.begin(), shown.end(), [](unsigned char c) { return c < ' '; }, ' ');
  return '"' + shown + '"';
}

class Reader {
 public:
  Reader(XML_Parser parser, std::size_t size)
      : parser_(parser), budget_(plist::expansionLimit(size)) {
    XML_SetUserData(parser, this);
    XML_SetElementHandler(
        parser, [](void* self, const char* name, const char**) { reader(self).open(name); },
        [](void* self, const char*) { reader(self).close(); });
    XML_SetCharacterDataHandler(parser, [](void* self, const char* text, int length) {
      reader(self).characters({text, static_cast<std::size_t>(length)});
    });
    XML_SetEntityDeclHandler(parser, [](void* self, const char* name, int, const char*, int,
                                        const char*, const char*, const char*, const char*) {
      reader(self).fail("declares the entity " + std::string(name));
    });
    XML_SetAttlistDeclHandler(
        parser, [](void* self, const char* element, const char*, const char*, const char*, int) {
          reader(self).fail("declares attributes of " + quoted(element));
        });
    XML_SetSkippedEntityHandler(parser, [](void* self, const char* name, int) {
      reader(self).fail("unknown entity &" + std::string(name) + ";");
    });
  }

  platform::Result<XmlWithLines> read(std::string_view text) {
    // A header behind white space is not XML, but property lists have it.
    const std::size_t start = std::min(text.find_first_not_of(kBlanks), text.size());
    skippedLines_ =
        static_cast<unsigned long>(std::count(text.begin(), text.begin() + start, '\n'));
    text.remove_prefix(start);
    constexpr std::size_t piece = 1 << 20;
    XML_Status status = XML_STATUS_OK;
    for (bool last = false; !last && status == XML_STATUS_OK;
         text.remove_prefix(std::min(piece, text.size()))) {
      last = text.size() <= piece;
      status =
          XML_Parse(parser_, text.data(), static_cast<int>(std::min(piece, text.size())), last);
    }
    if (error_) return std::move(*error_);
    if (root_) return XmlWithLines{std::move(*root_), std::move(itemLines_)};
    return at(XML_ErrorString(XML_GetErrorCode(parser_)));
  }

 private:
  static Reader& reader(void* self) { return *static_cast<Reader*>(self); }

  unsigned long line() const { return XML_GetCurrentLineNumber(parser_) + skippedLines_; }
  platform::Error at(std::string_view what) const {
    return {.what = "line " + std::to_string(line()) + ": " + std::string(what)};
  }

  void fail(std::string_view what) {
    if (!error_) error_ = at(what);
    XML_StopParser(parser_, XML_FALSE);
  }

  bool stopped() const { return error_ || root_; }

  void open(std::string_view name) {
    if (stopped()) return;
    const auto known = std::find_if(kElements.begin(), kElements.end(),
                                    [&](const auto& element) { return element.first == name; });
    if (known == kElements.end()) return fail("unknown element <" + std::string(name) + ">");
    const Element element = known->second;
    if (const char* reason = misplaced(element))
      return fail('<' + std::string(name) + '>' + reason);
    if (!isContainer(element)) {
      leaf_ = element;
      text_.clear();
    } else if (element != Element::Plist && depth() == plist::kMaximumDepth) {
      return fail("nested deeper than " + std::to_string(plist::kMaximumDepth));
    }
    noteItem();
    if (isContainer(element)) open_.push_back({element, {}, {}});
  }

  bool inPlist() const { return !open_.empty() && open_[0].element == Element::Plist; }
  std::size_t depth() const { return open_.size() - inPlist(); }

  // Why an element may not stand here, or null.
  const char* misplaced(Element element) const {
    if (leaf_) return " within a value";
    if (open_.empty()) return element == Element::Key ? " outside <dict>" : nullptr;
    if (element == Element::Plist) return " within a value";
    const Container& parent = open_.back();
    const bool keyExpected = parent.element == Element::Dict && !parent.key;
    if (element == Element::Key && parent.element != Element::Dict) return " outside <dict>";
    if (element == Element::Key && !keyExpected) return " where a value belongs";
    if (element != Element::Key && keyExpected) return " where a key belongs";
    if (parent.element == Element::Plist && !parent.members.empty()) return ": a second root";
    return nullptr;
  }

  void noteItem() {
    if (depth() != 2 || open_.back().element != Element::Array) return;
    if (open_[inPlist()].key != "items") return;
    itemLines_.push_back(line());
  }

  void characters(std::string_view text) {
    if (stopped()) return;
    if (leaf_) {
      if (!budget_.charge(2 * text.size())) return fail(kTooLarge);  // as its buffer grows
      text_ += text;
    } else if (text.find_first_not_of(kBlanks) != text.npos) {
      fail("text outside a value");
    }
  }

  void close() {
    if (stopped()) return;
    if (leaf_) return closeLeaf();
    Container container = std::move(open_.back());
    open_.pop_back();
    if (container.key) return fail("a key without a value");
    if (container.element == Element::Dict)
      return add(dictionaryOrUid(std::move(container.dictionary)));
    if (container.element == Element::Array) return add(std::move(container.members));
    if (container.members.empty()) return fail("<plist> holds no value");
    finish(std::move(container.members[0]));
  }

  void closeLeaf() {
    const Element element = *std::exchange(leaf_, std::nullopt);
    switch (element) {
      case Element::Key:
        if (depth() == 1 && text_ == "items") itemLines_.clear();  // again: the last one wins
        open_.back().key = std::move(text_);
        return;
      case Element::String:
        return add(std::move(text_));
      case Element::True:
      case Element::False:
        return text_.empty() ? add(element == Element::True) : fail("text within a boolean");
      case Element::Integer:
        return addIf(readInteger(text_), "an integer");
      case Element::Real:
        return addIf(readReal(text_), "a real");
      case Element::Date:
        return addIf(plist::readDate(text_), "a date");
      default:
        return addIf(plist::readBase64(text_, plist::Base64Form::Lenient), "Base64");
    }
  }

  template <class T>
  void addIf(std::optional<T> value, std::string_view kind) {
    if (!value) return fail(quoted(text_) + " is not " + std::string(kind));
    add(std::move(*value));
  }

  void add(plist::Value value) {
    if (open_.empty()) return finish(std::move(value));
    Container& parent = open_.back();
    const auto type = parent.key ? plist::ObjectType::Dictionary : plist::ObjectType::Array;
    // Twice: containers grow by doubling.
    if (!budget_.charge(2 * plist::memoryCost(type, 1))) return fail(kTooLarge);
    if (parent.element != Element::Dict) return parent.members.push_back(std::move(value));
    parent.dictionary.set(*parent.key, std::move(value));
    parent.key.reset();
  }

  void finish(plist::Value value) {
    root_ = std::move(value);
    XML_StopParser(parser_, XML_FALSE);
  }

  XML_Parser parser_;
  plist::MemoryBudget budget_;
  unsigned long skippedLines_ = 0;
  std::vector<Container> open_;
  std::optional<Element> leaf_;  // the open element that holds text
  std::string text_;
  std::optional<plist::Value> root_;
  std::vector<unsigned long> itemLines_;
  std::optional<platform::Error> error_;
};

}  // namespace

platform::Result<XmlWithLines> readXmlWithLines(plist::Bytes bytes) {
  const std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser(
      XML_ParserCreate(nullptr), XML_ParserFree);
  if (!parser) return platform::Error{.what = "out of memory"};
  return Reader(parser.get(), bytes.size())
      .read({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

platform::Result<plist::Value> readXml(plist::Bytes bytes) {
  return readXmlWithLines(bytes).and_then(
      [](XmlWithLines&& list) { return platform::Result<plist::Value>(std::move(list.value)); });
}

}  // namespace services
