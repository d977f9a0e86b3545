#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "platform/plist/dictionary.h"

// One type for everything that is stored, archived or named in a specifier list.
namespace plist {

class Value;

using Array = std::vector<Value>;

struct Data {
  std::vector<std::uint8_t> bytes;
  bool operator==(const Data&) const = default;
};

// Seconds since 2001-01-01 00:00 UTC.
struct Date {
  double seconds = 0;
  bool operator==(const Date&) const = default;
};

// A reference into the object table of a keyed archive.
struct Uid {
  std::uint32_t index = 0;
  bool operator==(const Uid&) const = default;
};

// An unordered collection; only ever read, in the order it was written, and compared in it.
struct Set {
  Array members;
};

enum class Kind { Nothing, Boolean, Integer, Real, Text, Data, Date, Uid, Array, Set, Dictionary };

// The word for a kind in messages: "text", "a dictionary" ...
std::string_view describe(Kind kind);

// A value. A number keeps its kind: boolean, integer (64-bit signed, or unsigned above that range),
// real (and whether it was 4 bytes wide). Text is UTF-8. Freeing, copying and comparing never
// recurse without bound, however deep the value is.
class Value {
 public:
  Value() = default;
  // A boolean and nothing else: a pointer would turn into one.
  template <std::same_as<bool> Boolean>
  Value(Boolean boolean) : state_(bool{boolean}) {}
  Value(int integer) : Value(static_cast<long long>(integer)) {}
  Value(unsigned integer) : Value(static_cast<unsigned long long>(integer)) {}
  Value(long integer) : Value(static_cast<long long>(integer)) {}
  Value(long long integer) : state_(Integer{static_cast<std::uint64_t>(integer), integer < 0}) {}
  Value(unsigned long integer) : Value(static_cast<unsigned long long>(integer)) {}
  Value(unsigned long long integer) : state_(Integer{integer, false}) {}
  Value(float real) : state_(Real{real, true}) {}    // a 4-byte real
  Value(double real) : state_(Real{real, false}) {}  // an 8-byte real
  Value(std::nullptr_t) = delete;
  Value(const char* text) : state_(std::in_place_type<std::string>, text) {}
  Value(std::string_view text) : state_(std::in_place_type<std::string>, text) {}
  Value(std::string text) : state_(std::move(text)) {}
  Value(Data data) : state_(std::move(data)) {}
  Value(Date date) : state_(date) {}
  Value(Uid uid) : state_(uid) {}
  Value(Array array) : state_(std::move(array)) {}
  Value(Set set) : state_(std::move(set)) {}
  Value(Dictionary dictionary) : state_(std::move(dictionary)) {}

  Value(const Value& other);
#ifndef __clang__  // g++ 12 takes the other members of a variant for uninitialized
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif
  Value(Value&& other) noexcept : state_(std::move(other.state_)) {}
#ifndef __clang__
#pragma GCC diagnostic pop
#endif
  Value& operator=(const Value& other);
  Value& operator=(Value&& other) noexcept;
  ~Value() {
    if (isContainer()) freeMembers();
  }

  Kind kind() const {
    return static_cast<Kind>(state_.index());
  }
  bool isNothing() const {
    return kind() == Kind::Nothing;
  }
  bool isNumber() const {  // boolean, integer or real
    return kind() == Kind::Boolean || kind() == Kind::Integer || kind() == Kind::Real;
  }
  bool isContainer() const {
    return kind() >= Kind::Array;
  }  // array, set or dictionary

  // Each is null (or empty) for any other kind.
  std::optional<bool> boolean() const {
    const bool* boolean = std::get_if<bool>(&state_);
    return boolean ? std::optional(*boolean) : std::nullopt;
  }
  std::optional<std::int64_t> integer() const {  // an integer within the signed range
    const Integer* integer = std::get_if<Integer>(&state_);
    if (!integer || (!integer->negative && integer->bits > INT64_MAX)) return {};
    return static_cast<std::int64_t>(integer->bits);
  }
  std::optional<std::uint64_t> unsignedInteger() const {  // an integer from 0 up
    const Integer* integer = std::get_if<Integer>(&state_);
    return integer && !integer->negative ? std::optional(integer->bits) : std::nullopt;
  }
  std::optional<double> real() const {
    const Real* real = std::get_if<Real>(&state_);
    return real ? std::optional(real->value) : std::nullopt;
  }
  bool isSinglePrecision() const {  // a real that was 4 bytes wide
    const Real* real = std::get_if<Real>(&state_);
    return real && real->single;
  }
  std::optional<double> number() const;  // any number, as a double
  const std::string* text() const {
    return std::get_if<std::string>(&state_);
  }
  const Data* data() const {
    return std::get_if<Data>(&state_);
  }
  const Date* date() const {
    return std::get_if<Date>(&state_);
  }
  const Uid* uid() const {
    return std::get_if<Uid>(&state_);
  }
  const Array* array() const {
    return std::get_if<Array>(&state_);
  }
  Array* array() {
    return std::get_if<Array>(&state_);
  }
  const Set* set() const {
    return std::get_if<Set>(&state_);
  }
  Set* set() {
    return std::get_if<Set>(&state_);
  }
  const Dictionary* dictionary() const {
    return std::get_if<Dictionary>(&state_);
  }
  Dictionary* dictionary() {
    return std::get_if<Dictionary>(&state_);
  }

  // Of a container: how many members or entries it has, and the value of each by its position.
  std::size_t size() const;
  const Value& member(std::size_t index) const;

  // Makes it a T (std::string, Data, Array, Set, Dictionary) in place, built from the arguments.
  template <class T, class... Arguments>
  T& become(Arguments&&... arguments) {
    if (isContainer()) freeMembers();
    return state_.template emplace<T>(std::forward<Arguments>(arguments)...);
  }

  // Same kind, same width, same content; NaN equals NaN. Dictionaries compare without order.
  friend bool operator==(const Value& a, const Value& b);

 private:
  struct Integer {
    std::uint64_t bits = 0;  // two's complement when negative
    bool negative = false;
    bool operator==(const Integer&) const = default;
  };
  struct Real {
    double value = 0;
    bool single = false;
  };

  void freeMembers();
  void copyMembers(const Value& other);
  bool equalLeaf(const Value& other) const;
  const Array* members() const;  // of an array or a set

  // In the order of Kind.
  std::variant<std::monostate, bool, Integer, Real, std::string, Data, Date, Uid, Array, Set,
               Dictionary>
      state_;
};

struct Dictionary::Entry {
  std::string key;
  Value value;
};

inline std::size_t Value::size() const {
  const Dictionary* entries = dictionary();
  return entries ? entries->size() : members()->size();
}

inline const Value& Value::member(std::size_t index) const {
  const Dictionary* entries = dictionary();
  return entries ? entries->begin()[index].value : (*members())[index];
}

inline const Array* Value::members() const {
  if (const Array* values = array()) return values;
  const Set* collection = set();
  return collection ? &collection->members : nullptr;
}

// Numbers by value (1, 1.0 and true are equal), everything else as ==.
bool equalByValue(const Value& a, const Value& b);

// What every reader of property lists understands of a value: booleans, numbers, text, data, dates,
// arrays and dictionaries, all the way down. Nothing, UIDs and sets are left out, each with its key
// when it is an entry and with its place when it is a member; a container that loses its last one
// stays, empty. Empty when the value itself is one of them.
std::optional<Value> storable(Value value);

}  // namespace plist
