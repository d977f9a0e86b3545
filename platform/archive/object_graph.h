#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "platform/archive/archived_class.h"
#include "platform/archive/keyed_archive.h"
#include "platform/plist/leaf_table.h"

namespace archive {

// A value taken apart into the objects of an archive, each with its UID. Keeps pointers: the value
// must outlive it.
class ObjectGraph {
 public:
  enum class Form : std::uint8_t { Nil, Text, Number, Leaf, Encoded, Class };

  // An entry of $objects.
  struct Node {
    Form form;
    Shape shape{};           // of an encoded object or a class
    bool isMutable = false;  // its class
    bool isAscii = false;    // a text
    std::uint32_t classUid = 0;
    std::uint32_t leaf = 0;   // of a text or number, in leaves
    std::uint32_t count = 0;  // members of a collection; keys and then values of a dictionary
    std::size_t first = 0;    // where their UIDs are in members
    const plist::Value* value = nullptr;  // of a number, a leaf, an encoded date
    const std::string* text = nullptr;    // of a text, encoded or not
  };

  // With `merges` equal texts and equal numbers of the same kind are one object.
  explicit ObjectGraph(bool merges);

  // Takes the root apart; why it can't be archived.
  std::optional<Error> build(const plist::Value& root, Mutability mutability);

  const bool merges;
  std::vector<Node> nodes;  // by UID
  std::vector<std::uint32_t> members;
  plist::LeafTable leaves;
  std::uint32_t root = 0;
  std::uint64_t cost = 0;  // what unarchive will take for all this, at most

 private:
  struct Open {
    const plist::Value* value;
    std::uint32_t uid;
    std::size_t next;
    std::size_t members;  // where the UIDs of its members are
  };

  bool enter(const plist::Value& value, bool isMutable, std::uint32_t& uid);
  bool open(const plist::Value& value, bool isMutable, std::uint32_t& uid);
  bool addText(const std::string& text, std::uint32_t& uid);
  std::uint32_t addNumber(const plist::Value& value);
  std::uint32_t addEncoded(Node node);
  std::uint32_t addNull();
  std::uint32_t classOf(Shape shape, bool isMutable);
  std::uint32_t add(const Node& node);
  bool fail(ErrorKind kind, std::size_t offset);

  std::vector<Open> open_;
  std::array<std::uint32_t, 14> classes_{};  // by shape, immutable and mutable
  std::uint32_t null_ = 0;
  Error error_;
};

}  // namespace archive
