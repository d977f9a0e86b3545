#pragma once

#include "platform/archive/keyed_archive.h"
#include "tests/platform_plist/raw_plist.h"

namespace archive_test {

using plist::Array;
using plist::Dictionary;
using plist::Uid;
using plist::Value;

// The property list of an archive of these objects, "$null" before them; the first is the root.
inline Dictionary archiveOf(Array objects, Value root = Uid{1}) {
  objects.insert(objects.begin(), Value("$null"));
  return {{"$version", 100000},
          {"$archiver", "NSKeyedArchiver"},
          {"$top", Dictionary{{"root", std::move(root)}}},
          {"$objects", std::move(objects)}};
}

inline Dictionary classNamed(const char* name, Array ancestors = {}) {
  ancestors.insert(ancestors.begin(), Value(name));
  return {{"$classname", name}, {"$classes", std::move(ancestors)}};
}

inline Array uids(std::initializer_list<unsigned> indexes) {
  Array array;
  for (const unsigned index : indexes) array.push_back(Uid{index});
  return array;
}

inline Dictionary dictionaryObject(Array keys, Array values, unsigned classUid) {
  return {
      {"NS.keys", std::move(keys)}, {"NS.objects", std::move(values)}, {"$class", Uid{classUid}}};
}

inline Dictionary arrayObject(Array values, unsigned classUid) {
  return {{"NS.objects", std::move(values)}, {"$class", Uid{classUid}}};
}

// What decoding ends with: "ok", or the name of the error and the class that it names.
inline std::string verdict(const Value& propertyList) {
  const auto root = archive::unarchive(propertyList);
  if (root) return "ok";
  std::string text(nameOf(root.error().kind));
  if (!root.error().className.empty()) text += " " + root.error().className;
  return text;
}

inline Value decoded(const Value& propertyList) {
  const auto root = archive::unarchive(propertyList);
  return root ? *root : Value("refused: " + root.error().message());
}

}  // namespace archive_test
