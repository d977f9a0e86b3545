#include <algorithm>
#include <span>

#include "platform/archive/archived_objects.h"
#include "platform/archive/object_graph.h"
#include "platform/plist/object_writer.h"

namespace archive {
namespace {

using plist::ObjectType;
using plist::ObjectWriter;
using plist::Value;

// Writes the objects of a graph and the frame around them.
class GraphWriter {
 public:
  explicit GraphWriter(ObjectGraph& graph) : graph_(graph) {
    uidObjects_.resize(graph.nodes.size());
  }

  // False when there are more objects than an archive can hold.
  bool write();

  ObjectWriter& out() { return out_; }

 private:
  std::uint32_t write(const ObjectGraph::Node& node);
  std::uint32_t writeText(const ObjectGraph::Node& node);
  std::uint32_t writeNumber(std::uint32_t leaf, const Value& number);
  std::uint32_t writeEncoded(const ObjectGraph::Node& node);
  std::uint32_t writeClass(const ArchivedClass& archivedClass);
  std::uint32_t writeUids(std::size_t first, std::size_t count);
  std::uint32_t writeUid(std::uint32_t uid);
  std::uint32_t writeWord(std::string_view word);

  ObjectGraph& graph_;
  ObjectWriter out_;
  std::vector<std::uint32_t> uidObjects_;  // by UID; 0 until it is written
};

std::span<const std::string_view> fieldsOf(Shape shape) {
  static constexpr std::string_view kCollection[] = {"NS.keys", "NS.objects"};
  static constexpr std::string_view kString[] = {"NS.string"}, kTime[] = {"NS.time"};
  switch (shape) {
    case Shape::Dictionary:
      return kCollection;
    case Shape::Array:
    case Shape::Set:
      return std::span(kCollection).subspan(1);
    case Shape::Text:
      return kString;
    case Shape::Date:
      return kTime;
    default:
      return {};
  }
}

bool GraphWriter::write() {
  static const Value kVersion(100000);
  const auto frame = out_.addContainer(ObjectType::Dictionary, 4);
  std::size_t place = 0;
  for (const std::string_view key : {"$version", "$archiver", "$top", "$objects"})
    out_.setMember(frame, place++, writeWord(key));
  out_.setMember(frame, 4, writeNumber(graph_.leaves.number(kVersion), kVersion));
  out_.setMember(frame, 5, writeWord("NSKeyedArchiver"));

  const auto top = out_.addContainer(ObjectType::Dictionary, 1);
  out_.setMember(frame, 6, top.number);
  out_.setMember(top, 0, writeWord("root"));
  out_.setMember(top, 1, writeUid(graph_.root));

  const auto objects = out_.addContainer(ObjectType::Array, graph_.nodes.size());
  out_.setMember(frame, 7, objects.number);
  for (std::size_t uid = 0; uid < graph_.nodes.size() && !out_.isFull(); ++uid)
    out_.setMember(objects, uid, write(graph_.nodes[uid]));
  return !out_.isFull();
}

std::uint32_t GraphWriter::write(const ObjectGraph::Node& node) {
  switch (node.form) {
    case ObjectGraph::Form::Nil:
      return writeWord(kNil);
    case ObjectGraph::Form::Text:
      return writeText(node);
    case ObjectGraph::Form::Number:
      return writeNumber(node.leaf, *node.value);
    case ObjectGraph::Form::Leaf:
      return out_.addLeaf(*node.value);
    case ObjectGraph::Form::Encoded:
      return writeEncoded(node);
    case ObjectGraph::Form::Class:
      return writeClass(classFor(node.shape, node.isMutable));
  }
  return 0;
}

std::uint32_t GraphWriter::writeText(const ObjectGraph::Node& node) {
  if (!graph_.merges) return out_.addText(*node.text, node.isAscii);
  std::uint32_t& object = graph_.leaves[node.leaf].object;
  if (object == 0) object = out_.addText(*node.text, node.isAscii);
  return object;
}

std::uint32_t GraphWriter::writeNumber(std::uint32_t leaf, const Value& number) {
  std::uint32_t& object = graph_.leaves[leaf].object;
  if (object == 0) object = out_.addLeaf(number);
  return object;
}

std::uint32_t GraphWriter::writeWord(std::string_view word) {
  std::uint32_t& object = graph_.leaves[graph_.leaves.text(word)].object;
  if (object == 0)
    object = out_.addText(word, true);
  else
    out_.chargeText(word);
  return object;
}

std::uint32_t GraphWriter::writeEncoded(const ObjectGraph::Node& node) {
  const std::span<const std::string_view> fields = fieldsOf(node.shape);
  const auto object = out_.addContainer(ObjectType::Dictionary, fields.size() + 1);
  std::size_t place = 0;
  for (const std::string_view field : fields) out_.setMember(object, place++, writeWord(field));
  out_.setMember(object, place++, writeWord("$class"));
  const std::uint32_t half = node.count / 2;
  switch (node.shape) {
    case Shape::Dictionary:
      out_.setMember(object, place++, writeUids(node.first, half));
      out_.setMember(object, place++, writeUids(node.first + half, half));
      break;
    case Shape::Array:
    case Shape::Set:
      out_.setMember(object, place++, writeUids(node.first, node.count));
      break;
    case Shape::Text:
      out_.setMember(object, place++, writeWord(*node.text));
      break;
    case Shape::Date:
      out_.setMember(object, place++, out_.addLeaf(node.value->date()->seconds));
      break;
    default:
      break;
  }
  out_.setMember(object, place, writeUid(node.classUid));
  return object.number;
}

std::uint32_t GraphWriter::writeClass(const ArchivedClass& archivedClass) {
  const auto object = out_.addContainer(ObjectType::Dictionary, 2);
  out_.setMember(object, 0, writeWord("$classname"));
  out_.setMember(object, 1, writeWord("$classes"));
  out_.setMember(object, 2, writeWord(archivedClass.name()));
  const auto names = out_.addContainer(ObjectType::Array, archivedClass.names.size());
  out_.setMember(object, 3, names.number);
  std::size_t place = 0;
  for (const std::string_view name : archivedClass.names)
    out_.setMember(names, place++, writeWord(name));
  return object.number;
}

std::uint32_t GraphWriter::writeUids(std::size_t first, std::size_t count) {
  const auto array = out_.addContainer(ObjectType::Array, count);
  for (std::size_t i = 0; i < count; ++i)
    out_.setMember(array, i, writeUid(graph_.members[first + i]));
  return array.number;
}

std::uint32_t GraphWriter::writeUid(std::uint32_t uid) {
  std::uint32_t& object = uidObjects_[uid];
  if (object == 0) object = out_.addUid(uid);
  return object;
}

}  // namespace

platform::Result<std::vector<std::uint8_t>, Error> archive(const Value& root,
                                                           Mutability mutability) {
  for (const bool merges : {true, false}) {
    ObjectGraph graph(merges);
    if (auto error = graph.build(root, mutability)) return *error;
    GraphWriter writer(graph);
    if (!writer.write()) break;
    auto bytes = writer.out().finish();
    const std::uint64_t cost = std::max(graph.cost, writer.out().cost());
    if (!merges || cost <= plist::expansionLimit(bytes.size())) return bytes;
  }
  return Error{.kind = ErrorKind::TooLarge};
}

}  // namespace archive
