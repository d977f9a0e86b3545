#include <algorithm>
#include <array>

#include "platform/archive/archived_objects.h"
#include "platform/plist/utf.h"

namespace archive {
namespace {

using plist::Object;
using plist::ObjectTable;
using plist::ObjectType;
using plist::Value;

class Unarchiver {
 public:
  explicit Unarchiver(const ObjectTable& table) : objects_(table) {}

  bool decode(Value& root);
  bool lookUp(std::span<const std::string_view> keys, Lookup& lookup);

  Error& error() { return objects_.error(); }

 private:
  struct Open {
    std::uint32_t uid;
    Shape shape;
    std::uint64_t next;
    const Object* keys;  // arrays of UIDs; the keys of an array or set are its values
    const Object* values;
    plist::Dictionary* entries;  // where they go; both null when nothing is built
    plist::Array* members;
  };

  struct Wanted {
    std::string_view key;
    bool isAscii;
    Value* place;
  };

  bool run(Value& root);
  bool step(Open& open);
  const Object* followMember(const Object& reference);
  const Object* keyOf(std::uint32_t uid, const Object& object);
  Value* placeFor(const Object& key);

  bool enter(std::uint32_t uid, const Object& object, Value* place);
  bool enterContainer(std::uint32_t uid, const Object& object, Value* place);
  bool enterEncoded(std::uint32_t uid, const Fields& fields, Value* place);
  bool enterCollection(std::uint32_t uid, Shape shape, const Fields& fields, Value* place);
  bool isCircular() const;

  ArchivedObjects objects_;

  Lookup* lookup_ = nullptr;    // where wanted values go instead of into a root value
  std::vector<Wanted> wanted_;  // and not found so far

  std::size_t depth_ = 0;
  std::array<Open, plist::kMaximumDepth> open_;
};

bool Unarchiver::decode(Value& root) {
  if (!objects_.open()) return false;
  if (run(root)) return true;
  const bool atLimit = error().kind == ErrorKind::TooDeep || error().kind == ErrorKind::TooLarge;
  if (atLimit && isCircular()) error().kind = ErrorKind::Circular;
  return false;
}

bool Unarchiver::lookUp(std::span<const std::string_view> keys, Lookup& lookup) {
  lookup_ = &lookup;
  lookup.values.resize(keys.size());
  wanted_.reserve(keys.size());
  for (std::size_t i = 0; i < keys.size(); ++i)
    wanted_.push_back({keys[i], plist::isAscii(keys[i]), &lookup.values[i]});
  Value plain;
  if (!decode(plain)) return false;
  const plist::Dictionary* dictionary = plain.dictionary();
  if (!dictionary) return true;
  lookup.isDictionary = true;
  for (std::size_t i = 0; i < keys.size(); ++i)
    if (const Value* value = dictionary->find(keys[i])) lookup.values[i] = *value;
  return true;
}

bool Unarchiver::run(Value& root) {
  if (!enter(objects_.root(), *objects_.target(objects_.root()), &root)) return false;
  while (depth_ > 0) {
    Open& open = open_[depth_ - 1];
    if (open.next == open.values->count)
      --depth_;
    else if (!step(open))
      return false;
  }
  return true;
}

bool Unarchiver::step(Open& open) {
  const std::uint64_t member = open.next++;
  Value* place = nullptr;
  if (open.shape == Shape::Dictionary) {
    const Object& reference = objects_.memberOf(*open.keys, member);
    const Object* object = followMember(reference);
    const Object* key = object ? keyOf(reference.uid(), *object) : nullptr;
    if (!key) return false;
    if (!objects_.charge(keyCost(*key), open.uid)) return false;
    if (open.entries) place = appendKey(*key, *open.entries);
    if (lookup_ && depth_ == 1) place = placeFor(*key);
  } else if (open.members) {
    place = &open.members->emplace_back();
  }
  const Object& reference = objects_.memberOf(*open.values, member);
  const Object* object = followMember(reference);
  return object && enter(reference.uid(), *object, place);
}

// What a key or a member of the innermost collection is; it can't be nil.
inline const Object* Unarchiver::followMember(const Object& reference) {
  const std::uint32_t collection = open_[depth_ - 1].uid;
  const auto failed = [&](ErrorKind kind) { return objects_.fail(kind, collection), nullptr; };
  if (reference.type != ObjectType::Uid) return failed(ErrorKind::Field);
  const Object* object = objects_.target(reference.uid());
  if (!object) return failed(ErrorKind::Reference);
  return object->is(kNil) ? failed(ErrorKind::NilElement) : object;
}

// The leaf that an object is as a key: itself, or the content of an encoded text.
const Object* Unarchiver::keyOf(std::uint32_t uid, const Object& object) {
  if (!object.isContainer()) return &object;
  const auto failed = [&](ErrorKind kind) { return objects_.fail(kind, uid), nullptr; };
  if (object.type != ObjectType::Dictionary) return failed(ErrorKind::KeyKind);
  Fields fields;
  if (!objects_.readFields(uid, object, fields)) return nullptr;
  if (!isPresent(fields[kClass], ObjectType::Uid)) return failed(ErrorKind::KeyKind);
  const auto shape = objects_.resolveClass(fields[kClass]->uid(), uid);
  if (!shape) return nullptr;
  if (*shape != Shape::Text) return failed(ErrorKind::KeyKind);
  const Object* text = objects_.follow(fields[kString], ObjectType::Ascii, ObjectType::Utf16);
  return text ? text : failed(ErrorKind::Field);
}

Value* Unarchiver::placeFor(const Object& key) {
  for (auto wanted = wanted_.begin(); wanted != wanted_.end(); ++wanted) {
    const bool isKey =
        wanted->isAscii && key.isText() ? key.is(wanted->key) : keyText(key) == wanted->key;
    if (!isKey) continue;
    Value* place = wanted->place;
    wanted_.erase(wanted);
    return place;
  }
  return nullptr;
}

inline bool Unarchiver::enter(std::uint32_t uid, const Object& object, Value* place) {
  if (object.isContainer()) return enterContainer(uid, object, place);
  if (!objects_.charge(object.cost, uid)) return false;
  if (place && !object.is(kNil)) object.read(*place);
  return true;
}

bool Unarchiver::enterContainer(std::uint32_t uid, const Object& object, Value* place) {
  if (object.type == ObjectType::Dictionary) {
    Fields fields;
    if (!objects_.readFields(uid, object, fields)) return false;
    if (isPresent(fields[kClass], ObjectType::Uid)) return enterEncoded(uid, fields, place);
  }
  return objects_.readPlain(uid, place);
}

bool Unarchiver::enterEncoded(std::uint32_t uid, const Fields& fields, Value* place) {
  const auto shape = objects_.resolveClass(fields[kClass]->uid(), uid);
  if (!shape) return false;
  const Object* content = nullptr;
  switch (*shape) {
    case Shape::Dictionary:
    case Shape::Array:
    case Shape::Set:
      return enterCollection(uid, *shape, fields, place);
    case Shape::Text:
      content = objects_.follow(fields[kString], ObjectType::Ascii, ObjectType::Utf16);
      break;
    case Shape::Data:
      content = objects_.follow(fields[kData], ObjectType::Data, ObjectType::Data);
      break;
    case Shape::Date:
      content = objects_.follow(fields[kTime], ObjectType::Real, ObjectType::Integer);
      break;
    case Shape::Null:
      return true;
  }
  if (!content) return objects_.failContent(uid, fields);
  if (!objects_.charge(content->cost, uid)) return false;
  if (!place) return true;
  content->read(*place);
  if (*shape == Shape::Date) *place = plist::Date{*place->number()};
  return true;
}

bool Unarchiver::enterCollection(std::uint32_t uid, Shape shape, const Fields& fields,
                                 Value* place) {
  const bool isDictionary = shape == Shape::Dictionary;
  const Object* values = fields[kObjects];
  const Object* keys = isDictionary ? fields[kKeys] : values;
  if (!isPresent(values, ObjectType::Array) || !isPresent(keys, ObjectType::Array))
    return objects_.failContent(uid, fields);
  if (keys->count != values->count) return objects_.fail(ErrorKind::UnequalLengths, uid);
  const auto type = isDictionary ? ObjectType::Dictionary : ObjectType::Array;
  if (!objects_.charge(plist::memoryCost(type, values->count), uid)) return false;
  if (depth_ == open_.size()) return objects_.fail(ErrorKind::TooDeep, uid);

  if (lookup_ && depth_ == 0) {
    lookup_->isDictionary = isDictionary;
    place = nullptr;
  }
  Open& open = open_[depth_++] = {uid, shape, 0, keys, values, nullptr, nullptr};
  if (!place) return true;
  if (isDictionary) {
    open.entries = &place->become<plist::Dictionary>();
    open.entries->reserve(values->count);
  } else {
    open.members =
        shape == Shape::Set ? &place->become<plist::Set>().members : &place->become<plist::Array>();
    open.members->reserve(values->count);
  }
  return true;
}

// As in a property list, going in a circle ends at one of the limits.
bool Unarchiver::isCircular() const {
  std::array<std::uint32_t, plist::kMaximumDepth + 1> path;
  for (std::size_t i = 0; i < depth_; ++i) path[i] = open_[i].uid;
  path[depth_] = objects_.failedUid();
  const auto end = path.begin() + static_cast<std::ptrdiff_t>(depth_) + 1;
  std::sort(path.begin(), end);
  return std::adjacent_find(path.begin(), end) != end;
}

}  // namespace

platform::Result<Value, Error> unarchive(plist::Bytes bytes) {
  const auto table = ObjectTable::open(bytes);
  if (!table) return table.error();
  Unarchiver unarchiver(*table);
  Value root;
  if (!unarchiver.decode(root)) return std::move(unarchiver.error());
  return root;
}

platform::Result<Value, Error> unarchive(const Value& propertyList) {
  const auto bytes = writeBinary(propertyList);
  if (!bytes) return bytes.error();
  return unarchive(plist::Bytes(*bytes));
}

platform::Result<Lookup, Error> lookUp(plist::Bytes bytes, std::span<const std::string_view> keys) {
  const auto table = ObjectTable::open(bytes);
  if (!table) return table.error();
  Unarchiver unarchiver(*table);
  Lookup lookup;
  if (!unarchiver.lookUp(keys, lookup)) return std::move(unarchiver.error());
  return lookup;
}

}  // namespace archive
