#include <gtest/gtest.h>
#include <plist/plist.h>

#include <cstdlib>
#include <memory>

#include "tests/platform_plist/dump.h"
#include "tests/platform_plist/random_value.h"
#include "tests/platform_plist/raw_plist.h"

namespace plist_test {
namespace {

using plist::Value;

struct FreeNode {
  void operator()(void* node) const { plist_free(node); }
};
using Node = std::unique_ptr<void, FreeNode>;

Value fromNode(plist_t node) {
  switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN: {
      std::uint8_t truth = 0;
      plist_get_bool_val(node, &truth);
      return truth != 0;
    }
    case PLIST_UINT: {
      std::uint64_t bits = 0;
      plist_get_uint_val(node, &bits);
      return bits;
    }
    case PLIST_REAL: {
      double real = 0;
      plist_get_real_val(node, &real);
      return real;
    }
    case PLIST_STRING: {
      std::uint64_t size = 0;
      const char* text = plist_get_string_ptr(node, &size);
      return std::string(text, size);
    }
    case PLIST_DATA: {
      std::uint64_t size = 0;
      const char* bytes = plist_get_data_ptr(node, &size);
      return plist::Data{{bytes, bytes + size}};
    }
    case PLIST_DATE: {
      std::int32_t seconds = 0, microseconds = 0;
      plist_get_date_val(node, &seconds, &microseconds);
      return plist::Date{seconds + microseconds / 1e6};
    }
    case PLIST_UID: {
      std::uint64_t index = 0;
      plist_get_uid_val(node, &index);
      return plist::Uid{static_cast<std::uint32_t>(index)};
    }
    case PLIST_ARRAY: {
      plist::Array members;
      for (std::uint32_t i = 0; i < plist_array_get_size(node); ++i)
        members.push_back(fromNode(plist_array_get_item(node, i)));
      return members;
    }
    case PLIST_DICT: {
      plist::Dictionary dictionary;
      plist_dict_iter iterator = nullptr;
      plist_dict_new_iter(node, &iterator);
      for (;;) {
        char* key = nullptr;
        plist_t value = nullptr;
        plist_dict_next_item(node, iterator, &key, &value);
        if (!value) break;
        dictionary.set(key, fromNode(value));
        std::free(key);
      }
      std::free(iterator);
      return dictionary;
    }
    default:
      return {};
  }
}

plist_t toNode(const Value& value) {
  using plist::Kind;
  switch (value.kind()) {
    case Kind::Boolean:
      return plist_new_bool(*value.boolean());
    case Kind::Integer:
      return plist_new_uint(value.integer() ? static_cast<std::uint64_t>(*value.integer())
                                            : *value.unsignedInteger());
    case Kind::Real:
      return plist_new_real(*value.real());
    case Kind::Text:
      return plist_new_string(value.text()->c_str());
    case Kind::Data:
      return plist_new_data(reinterpret_cast<const char*>(value.data()->bytes.data()),
                            value.data()->bytes.size());
    case Kind::Date:
      return plist_new_date(static_cast<std::int32_t>(value.date()->seconds), 0);
    case Kind::Uid:
      return plist_new_uid(value.uid()->index);
    case Kind::Array: {
      plist_t array = plist_new_array();
      for (const Value& member : *value.array()) plist_array_append_item(array, toNode(member));
      return array;
    }
    default: {
      plist_t dictionary = plist_new_dict();
      for (const auto& entry : *value.dictionary())
        plist_dict_set_item(dictionary, entry.key.c_str(), toNode(entry.value));
      return dictionary;
    }
  }
}

// libplist 2.2 takes every integer as 64 bits without a sign.
Value withoutSigns(const Value& value) {
  if (value.integer()) return static_cast<std::uint64_t>(*value.integer());
  if (const auto* array = value.array()) {
    plist::Array members;
    for (const Value& member : *array) members.push_back(withoutSigns(member));
    return members;
  }
  if (const auto* dictionary = value.dictionary()) {
    plist::Dictionary entries;
    for (const auto& entry : *dictionary) entries.set(entry.key, withoutSigns(entry.value));
    return entries;
  }
  return value;
}

RandomValues valuesForLibplist() {
  RandomValues random(20240202);
  random.hasSets = random.hasNothing = false;  // libplist has neither
  return random;
}

TEST(Libplist, ReadsWhatIsWritten) {
  RandomValues random = valuesForLibplist();
  for (int i = 0; i < 3000; ++i) {
    const Value value = random.value();
    const auto bytes = plist::writeBinary(value);
    plist_t read = nullptr;
    plist_from_bin(reinterpret_cast<const char*>(bytes->data()),
                   static_cast<std::uint32_t>(bytes->size()), &read);
    const Node node(read);
    ASSERT_TRUE(node) << i << " " << dump(value);
    ASSERT_EQ(dump(withoutSigns(fromNode(read))), dump(withoutSigns(value))) << i;
  }
}

TEST(Libplist, WritesWhatIsRead) {
  RandomValues random = valuesForLibplist();
  for (int i = 0; i < 3000; ++i) {
    const Value value = random.value();
    const Node node(toNode(value));
    char* data = nullptr;
    std::uint32_t size = 0;
    plist_to_bin(node.get(), &data, &size);
    const auto read = plist::readBinary({reinterpret_cast<const std::uint8_t*>(data), size});
    plist_to_bin_free(data);
    ASSERT_TRUE(read) << i << " " << read.error().message();
    ASSERT_EQ(dump(withoutSigns(*read)), dump(withoutSigns(value))) << i;
  }
}

}  // namespace
}  // namespace plist_test
