#include <optional>

#include "platform/plist/leaf_table.h"
#include "platform/plist/object_writer.h"
#include "platform/plist/utf.h"

namespace plist {
namespace {

constexpr std::size_t kExpected = 128;  // leaves, before anything has to grow

class Writer {
 public:
  explicit Writer(bool merges) : merges_(merges), leaves_(kExpected) {}

  bool add(const Value& root);

  ObjectWriter& out() { return out_; }
  const Error& error() const { return error_; }

 private:
  struct Open {
    const Value* value;
    ObjectWriter::Container container;
    std::size_t next;
  };

  bool enter(const Value& value, std::uint32_t& number);
  bool addText(std::string_view text, std::uint32_t& number);
  std::uint32_t addNumber(const Value& value);
  bool addKeys(const Dictionary& dictionary, ObjectWriter::Container container);

  bool merges_;
  LeafTable leaves_;
  ObjectWriter out_;
  std::vector<Open> open_;
  Error error_;
};

ObjectType typeOf(const Value& container) {
  if (container.dictionary()) return ObjectType::Dictionary;
  return container.set() ? ObjectType::Set : ObjectType::Array;
}

bool Writer::add(const Value& root) {
  std::uint32_t number = 0;
  if (!enter(root, number)) return false;
  while (!open_.empty()) {
    if (out_.isFull()) {
      error_ = {ErrorKind::TooLarge, 0};
      return false;
    }
    Open& open = open_.back();
    const std::size_t size = open.value->size(), index = open.next++;
    if (index == size) {
      open_.pop_back();
      continue;
    }
    const ObjectWriter::Container container = open.container;
    const std::size_t place = open.value->dictionary() ? size + index : index;
    if (!enter(open.value->member(index), number)) return false;
    out_.setMember(container, place, number);
  }
  return true;
}

bool Writer::enter(const Value& value, std::uint32_t& number) {
  if (value.text()) return addText(*value.text(), number);
  if (!value.isContainer()) {
    number = value.isNumber() ? addNumber(value) : out_.addLeaf(value);
    return true;
  }
  if (open_.size() == kMaximumDepth) {
    error_ = {ErrorKind::TooDeep, 0};
    return false;
  }
  const auto container = out_.addContainer(typeOf(value), value.size());
  number = container.number;
  open_.push_back({&value, container, 0});
  return !value.dictionary() || addKeys(*value.dictionary(), container);
}

bool Writer::addKeys(const Dictionary& dictionary, ObjectWriter::Container container) {
  std::size_t place = 0;
  for (const auto& entry : dictionary) {
    std::uint32_t number = 0;
    if (!addText(entry.key, number)) return false;
    out_.setMember(container, place++, number);
  }
  return true;
}

// An object's number is 0 for the top one only, and the top one is never met again.
bool Writer::addText(std::string_view text, std::uint32_t& number) {
  const std::uint32_t leaf = merges_ ? leaves_.text(text) : 0;
  if (merges_ && leaves_[leaf].object != 0) {
    out_.chargeText(text);
    number = leaves_[leaf].object;
    return true;
  }
  const bool ascii = isAscii(text);
  if (const auto at = ascii ? std::nullopt : firstNotUtf8(text)) {
    error_ = {ErrorKind::NotUtf8, *at};
    return false;
  }
  number = out_.addText(text, ascii);
  if (merges_) leaves_[leaf].object = number;
  return true;
}

std::uint32_t Writer::addNumber(const Value& value) {
  if (!merges_) return out_.addLeaf(value);
  std::uint32_t& object = leaves_[leaves_.number(value)].object;
  if (object == 0) object = out_.addLeaf(value);
  return object;
}

}  // namespace

platform::Result<std::vector<std::uint8_t>, Error> writeBinary(const Value& value) {
  for (bool merges = true;; merges = false) {
    Writer writer(merges);
    if (!writer.add(value)) return writer.error();
    auto bytes = writer.out().finish();
    if (!merges || writer.out().cost() <= expansionLimit(bytes.size())) return bytes;
  }
}

}  // namespace plist
