// libplist reads and writes binary property lists; the way between the objects of an archive and a
// flat dictionary is ours, as short as its interface allows: arrays are walked with iterators
// (indexing them walks a list), values are moved instead of copied where the interface can.
#include <plist/plist.h>

#include <cstdint>
#include <cstdlib>
#include <vector>

#include "benchmarks/peers/codec.h"

namespace {

plist_t gProfile = nullptr;

std::vector<plist_t> membersOf(plist_t array) {
  std::vector<plist_t> members;
  members.reserve(plist_array_get_size(array));
  plist_array_iter iterator = nullptr;
  plist_array_new_iter(array, &iterator);
  for (plist_t member = nullptr;;) {
    plist_array_next_item(array, iterator, &member);
    if (!member) break;
    members.push_back(member);
  }
  std::free(iterator);
  return members;
}

plist_t target(const std::vector<plist_t>& objects, plist_t uid) {
  std::uint64_t index = 0;
  if (uid && plist_get_node_type(uid) == PLIST_UID) plist_get_uid_val(uid, &index);
  return index < objects.size() ? objects[index] : nullptr;
}

plist_t decode(const std::uint8_t* bytes, std::size_t size) {
  plist_t frame = nullptr, flat = plist_new_dict();
  plist_from_bin(reinterpret_cast<const char*>(bytes), static_cast<std::uint32_t>(size), &frame);
  if (!frame) return flat;
  const auto objects = membersOf(plist_dict_get_item(frame, "$objects"));
  const plist_t root = target(objects, plist_access_path(frame, 2, "$top", "root"));
  const auto keys = membersOf(plist_dict_get_item(root, "NS.keys"));
  const auto values = membersOf(plist_dict_get_item(root, "NS.objects"));
  for (std::size_t i = 0; i < keys.size() && i < values.size(); ++i) {
    const plist_t key = target(objects, keys[i]), value = target(objects, values[i]);
    if (key && value)
      plist_dict_set_item(flat, plist_get_string_ptr(key, nullptr), plist_copy(value));
  }
  plist_free(frame);
  return flat;
}

// The objects of an archive; equal values become one.
class Objects {
 public:
  plist_t array = plist_new_array();

  std::uint64_t append(plist_t object) {
    plist_array_append_item(array, object);
    return count_++;
  }

  std::uint64_t appendOnce(plist_t value) {
    for (const Seen& seen : seen_)
      if (plist_compare_node_value(seen.value, value)) return seen.index;
    const plist_t copy = plist_copy(value);
    seen_.push_back({copy, append(copy)});
    return seen_.back().index;
  }

 private:
  struct Seen {
    plist_t value;
    std::uint64_t index;
  };
  std::vector<Seen> seen_;
  std::uint64_t count_ = 0;
};

plist_t classEntry() {
  const plist_t entry = plist_new_dict(), names = plist_new_array();
  for (const char* name : {"NSMutableDictionary", "NSDictionary", "NSObject"})
    plist_array_append_item(names, plist_new_string(name));
  plist_dict_set_item(entry, "$classname", plist_new_string("NSMutableDictionary"));
  plist_dict_set_item(entry, "$classes", names);
  return entry;
}

template <class Visit>
void forEach(plist_t dictionary, Visit visit) {
  plist_dict_iter iterator = nullptr;
  plist_dict_new_iter(dictionary, &iterator);
  for (;;) {
    char* key = nullptr;
    plist_t value = nullptr;
    plist_dict_next_item(dictionary, iterator, &key, &value);
    if (!value) break;
    visit(key, value);
    std::free(key);
  }
  std::free(iterator);
}

std::size_t encode(plist_t flat) {
  Objects objects;
  const plist_t root = plist_new_dict(), keys = plist_new_array(), values = plist_new_array();
  objects.append(plist_new_string("$null"));
  objects.append(root);
  forEach(flat, [&](const char* key, plist_t) {
    plist_array_append_item(keys, plist_new_uid(objects.append(plist_new_string(key))));
  });
  forEach(flat, [&](const char*, plist_t value) {
    plist_array_append_item(values, plist_new_uid(objects.appendOnce(value)));
  });
  plist_dict_set_item(root, "NS.keys", keys);
  plist_dict_set_item(root, "NS.objects", values);
  plist_dict_set_item(root, "$class", plist_new_uid(objects.append(classEntry())));

  const plist_t frame = plist_new_dict(), top = plist_new_dict();
  plist_dict_set_item(top, "root", plist_new_uid(1));
  plist_dict_set_item(frame, "$version", plist_new_uint(100000));
  plist_dict_set_item(frame, "$archiver", plist_new_string("NSKeyedArchiver"));
  plist_dict_set_item(frame, "$top", top);
  plist_dict_set_item(frame, "$objects", objects.array);
  char* bytes = nullptr;
  std::uint32_t size = 0;
  plist_to_bin(frame, &bytes, &size);
  plist_to_bin_free(bytes);
  plist_free(frame);
  return size;
}

}  // namespace

std::size_t libplistDecode(const std::uint8_t* bytes, std::size_t size) {
  const plist_t flat = decode(bytes, size);
  const std::size_t count = plist_dict_get_size(flat);
  plist_free(flat);
  return count;
}

void libplistPrepare(const std::uint8_t* bytes, std::size_t size) {
  gProfile = decode(bytes, size);
}

std::size_t libplistEncode() {
  return encode(gProfile);
}
