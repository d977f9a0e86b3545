#include "platform/archive/archived_objects.h"

#include <algorithm>

namespace archive {
namespace {

using plist::Object;
using plist::ObjectType;

constexpr std::uint64_t kVersion = 100000;

// Charged for each look at a pair or a name, so that many objects can't share one long class.
constexpr std::uint64_t kLookCost = 16;

constexpr std::array<std::string_view, kFieldCount> kFieldNames = {
    "$class", "NS.keys", "NS.objects", "NS.string", "NS.data", "NS.time"};

}  // namespace

bool ArchivedObjects::open() {
  plist::MemoryBudget budget(plist::expansionLimit(table_.bytes()));
  if (!walk_.read(table_.top(), nullptr, budget)) {
    error_ = walk_.error();
    return false;
  }
  const Object& all = table_[table_.top()];
  if (all.type != ObjectType::Dictionary) return failFrame(ErrorKind::NotDictionary);

  const Object* archiver = find(all, "$archiver");
  if (!archiver || !archiver->is("NSKeyedArchiver")) return failFrame(ErrorKind::Archiver);
  const Object* version = find(all, "$version");
  if (!isPresent(version, ObjectType::Integer) || version->bits() != kVersion)
    return failFrame(ErrorKind::Version);
  const Object* top = find(all, "$top");
  if (!isPresent(top, ObjectType::Dictionary)) return failFrame(ErrorKind::Top);
  objects_ = find(all, "$objects");
  if (!isPresent(objects_, ObjectType::Array)) return failFrame(ErrorKind::Objects);
  const Object* root = find(*top, "root");
  if (!isPresent(root, ObjectType::Uid)) return failFrame(ErrorKind::Root);
  root_ = root->uid();
  return target(root_) || failFrame(ErrorKind::Reference);
}

const Object* ArchivedObjects::find(const Object& dictionary, std::string_view key) const {
  for (std::uint64_t i = 0; i < dictionary.count; ++i)
    if (memberOf(dictionary, i).is(key)) return &memberOf(dictionary, dictionary.count + i);
  return nullptr;
}

const Object* ArchivedObjects::follow(const Object* field, ObjectType type,
                                      ObjectType alternative) const {
  if (isPresent(field, ObjectType::Uid)) {
    field = target(field->uid());
    if (field && field->is(kNil)) return nullptr;
  }
  return isPresent(field, type) || isPresent(field, alternative) ? field : nullptr;
}

bool ArchivedObjects::readPlain(std::uint32_t uid, plist::Value* value) {
  return walk_.read(table_.member(*objects_, uid), value, budget_) ||
         fail(ErrorKind::TooLarge, uid);
}

bool ArchivedObjects::readFields(std::uint32_t uid, const Object& dictionary, Fields& fields) {
  if (!charge(dictionary.count * kLookCost, uid)) return false;
  fields.fill(nullptr);
  for (std::uint64_t i = 0; i < dictionary.count; ++i) {
    const Object& key = memberOf(dictionary, i);
    const auto name = std::find_if(kFieldNames.begin(), kFieldNames.end(),
                                   [&key](std::string_view field) { return key.is(field); });
    if (name == kFieldNames.end()) continue;
    const Object*& field = fields[static_cast<std::size_t>(name - kFieldNames.begin())];
    if (!field) field = &memberOf(dictionary, dictionary.count + i);
  }
  return true;
}

std::optional<Shape> ArchivedObjects::resolveClass(std::uint32_t uid, std::uint32_t instance) {
  if (uid == knownClass_ && uid != 0) return knownShape_;
  const Object* description = target(uid);
  if (!isPresent(description, ObjectType::Dictionary))
    return fail(ErrorKind::Class, instance), std::nullopt;
  if (!charge(description->count * kLookCost, uid)) return {};
  const Object* name = find(*description, "$classname");
  if (!name || !name->isText()) return fail(ErrorKind::Class, uid), std::nullopt;

  auto shape = shapeOfClass(*name);
  for (const std::string_view list : {"$classhints", "$classes"}) {
    if (shape) break;
    const Object* names = find(*description, list);
    if (isPresent(names, ObjectType::Array) && !shapeAmong(*names, shape))
      return fail(ErrorKind::TooLarge, uid), std::nullopt;
  }
  if (!shape) return failClass(uid, *name), std::nullopt;
  knownClass_ = uid;
  knownShape_ = *shape;
  return shape;
}

bool ArchivedObjects::shapeAmong(const Object& names, std::optional<Shape>& shape) {
  for (std::uint64_t i = 0; i < names.count && !shape; ++i) {
    if (!budget_.charge(kLookCost)) return false;
    shape = shapeOfClass(memberOf(names, i));
  }
  return true;
}

bool ArchivedObjects::failFrame(ErrorKind kind) {
  error_.kind = kind;
  error_.offset = table_.offsetOf(table_.top());
  return false;
}

bool ArchivedObjects::fail(ErrorKind kind, std::uint32_t uid) {
  error_.kind = kind;
  error_.offset = table_.offsetOf(table_.member(*objects_, uid));
  failedUid_ = uid;
  return false;
}

bool ArchivedObjects::failClass(std::uint32_t uid, const Object& name) {
  name.readText(error_.className);
  return fail(ErrorKind::UnknownClass, uid);
}

bool ArchivedObjects::failContent(std::uint32_t uid, const Fields& fields) {
  const std::uint32_t classUid = fields[kClass]->uid();
  const Object* name = find(*target(classUid), "$classname");
  return shapeOfClass(*name) ? fail(ErrorKind::Field, uid) : failClass(classUid, *name);
}

}  // namespace archive
