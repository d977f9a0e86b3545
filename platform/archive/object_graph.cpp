#include "platform/archive/object_graph.h"

#include "platform/archive/archived_objects.h"
#include "platform/plist/utf.h"

namespace archive {
namespace {

using plist::ObjectType;
using plist::Value;

constexpr std::size_t kExpected = 128;       // objects, before anything has to grow
constexpr std::uint64_t kEncodedCost = 128;  // for the fields and the class of an encoded object

}  // namespace

ObjectGraph::ObjectGraph(bool mergesEqual) : merges(mergesEqual), leaves(kExpected) {
  nodes.reserve(kExpected);
  members.reserve(2 * kExpected);
  nodes.push_back({.form = Form::Nil});
}

std::optional<Error> ObjectGraph::build(const Value& value, Mutability mutability) {
  if (!value.isNothing() && !enter(value, mutability == Mutability::Mutable, root)) return error_;
  while (!open_.empty()) {
    Open& top = open_.back();
    const std::size_t index = top.next++;
    if (index == top.value->size()) {
      const Node& node = nodes[top.uid];
      const std::uint32_t uid = classOf(node.shape, node.isMutable);
      nodes[top.uid].classUid = uid;
      open_.pop_back();
      continue;
    }
    const std::size_t place = top.members + index;
    std::uint32_t uid = 0;
    if (!enter(top.value->member(index), false, uid)) return error_;
    members[place] = uid;
  }
  return {};
}

bool ObjectGraph::enter(const Value& value, bool isMutable, std::uint32_t& uid) {
  switch (value.kind()) {
    case plist::Kind::Text:
      return addText(*value.text(), uid);
    case plist::Kind::Boolean:
    case plist::Kind::Integer:
    case plist::Kind::Real:
      uid = addNumber(value);
      return true;
    case plist::Kind::Data:
      uid = add({.form = Form::Leaf, .value = &value});
      cost += plist::memoryCost(ObjectType::Data, value.data()->bytes.size());
      return true;
    case plist::Kind::Date:
      uid = addEncoded({.form = {}, .shape = Shape::Date, .value = &value});
      return true;
    case plist::Kind::Nothing:
      uid = addNull();
      return true;
    case plist::Kind::Uid:
      return fail(ErrorKind::NotArchivable, 0);
    default:
      return open(value, isMutable, uid);
  }
}

bool ObjectGraph::open(const Value& value, bool isMutable, std::uint32_t& uid) {
  if (open_.size() == plist::kMaximumDepth) return fail(ErrorKind::TooDeep, 0);
  const plist::Dictionary* dictionary = value.dictionary();
  const std::size_t size = value.size(), first = members.size();
  const auto count = static_cast<std::uint32_t>(dictionary ? 2 * size : size);
  const Shape shape = dictionary ? Shape::Dictionary : value.set() ? Shape::Set : Shape::Array;
  cost += kEncodedCost +
          plist::memoryCost(dictionary ? ObjectType::Dictionary : ObjectType::Array, size);
  members.resize(first + count);
  uid = add({.form = Form::Encoded,
             .shape = shape,
             .isMutable = isMutable,
             .count = count,
             .first = first});
  open_.push_back({&value, uid, 0, first + count - size});
  if (!dictionary) return true;
  for (std::size_t i = 0; i < size; ++i)
    if (!addText(dictionary->begin()[i].key, members[first + i])) return false;
  return true;
}

bool ObjectGraph::addText(const std::string& text, std::uint32_t& uid) {
  cost += plist::memoryCost(ObjectType::Utf16, text.size());
  const std::uint32_t leaf = merges ? leaves.text(text) : 0;
  if (merges && leaves[leaf].uid != 0) {
    uid = leaves[leaf].uid;
    return true;
  }
  const bool isAscii = plist::isAscii(text);
  if (const auto at = isAscii ? std::nullopt : plist::firstNotUtf8(text))
    return fail(ErrorKind::NotUtf8, *at);
  if (text == kNil)
    uid = addEncoded({.form = {}, .shape = Shape::Text, .isMutable = true, .text = &text});
  else
    uid = add({.form = Form::Text, .isAscii = isAscii, .leaf = leaf, .text = &text});
  if (merges) leaves[leaf].uid = uid;
  return true;
}

std::uint32_t ObjectGraph::addNumber(const Value& value) {
  if (!merges) return add({.form = Form::Leaf, .value = &value});
  const std::uint32_t leaf = leaves.number(value);
  if (leaves[leaf].uid == 0)
    leaves[leaf].uid = add({.form = Form::Number, .leaf = leaf, .value = &value});
  return leaves[leaf].uid;
}

std::uint32_t ObjectGraph::addEncoded(Node node) {
  node.form = Form::Encoded;
  cost += kEncodedCost;
  const std::uint32_t uid = add(node);
  const std::uint32_t classUid = classOf(node.shape, node.isMutable);
  nodes[uid].classUid = classUid;
  return uid;
}

std::uint32_t ObjectGraph::addNull() {
  if (null_ == 0) null_ = addEncoded({.form = {}, .shape = Shape::Null});
  cost += kEncodedCost;
  return null_;
}

std::uint32_t ObjectGraph::classOf(Shape shape, bool isMutable) {
  std::uint32_t& uid = classes_[2 * static_cast<std::size_t>(shape) + isMutable];
  if (uid == 0) uid = add({.form = Form::Class, .shape = shape, .isMutable = isMutable});
  return uid;
}

std::uint32_t ObjectGraph::add(const Node& node) {
  nodes.push_back(node);
  return static_cast<std::uint32_t>(nodes.size() - 1);
}

bool ObjectGraph::fail(ErrorKind kind, std::size_t offset) {
  error_.kind = kind;
  error_.offset = offset;
  return false;
}

}  // namespace archive
