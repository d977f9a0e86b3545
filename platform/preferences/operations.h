#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

#include "platform/foundation/object.h"
#include "platform/plist/value.h"
#include "platform/uikit/geometry.h"

namespace preferences {

// What an operation is given and gives back: nil, a property-list value, or an object.
using Argument = std::variant<std::nullptr_t, plist::Value, foundation::Object*>;

// The value in an argument; nil is Nothing. Null for an object.
std::optional<plist::Value> valueIn(const Argument& argument);

// From an argument to a parameter; empty where the argument can't stand for one.
template <class T>
struct Convert {
  static std::optional<T> from(const Argument& argument) requires std::is_arithmetic_v<T> {
    auto value = valueIn(argument);
    if (value && value->isNothing()) return T{};
    auto number = value ? value->number() : std::nullopt;
    if (!number) return std::nullopt;
    if constexpr (std::is_integral_v<T> && !std::is_same_v<T, bool>) {
      // A cast of what doesn't fit would be undefined.
      if (!(*number >= std::numeric_limits<T>::min() && *number <= std::numeric_limits<T>::max()))
        return std::nullopt;
    }
    return static_cast<T>(*number);
  }
};
template <>
struct Convert<plist::Value> {
  static std::optional<plist::Value> from(const Argument& argument) { return valueIn(argument); }
};
template <>
struct Convert<plist::Array> {
  static std::optional<plist::Array> from(const Argument& argument);
};
template <>
struct Convert<std::string> {
  static std::optional<std::string> from(const Argument& argument);
};
template <>
struct Convert<uikit::IndexPath> {  // an array of section and row
  static std::optional<uikit::IndexPath> from(const Argument& argument);
};
template <class T>
struct Convert<std::optional<T>> {  // empty for null
  static std::optional<std::optional<T>> from(const Argument& argument) {
    const auto value = valueIn(argument);
    if (value && value->isNothing()) return std::optional<T>();
    auto given = Convert<T>::from(argument);
    if (!given) return std::nullopt;
    return std::optional<T>(std::move(*given));
  }
};
template <class T>
struct Convert<T*> {
  static std::optional<T*> from(const Argument& argument) {
    if (std::holds_alternative<std::nullptr_t>(argument)) return nullptr;
    auto* object = std::get_if<foundation::Object*>(&argument);
    T* wanted = object ? dynamic_cast<T*>(*object) : nullptr;
    if (!wanted) return std::nullopt;
    return wanted;
  }
};

inline Argument resultOf(plist::Value value) {
  return value;
}
inline Argument resultOf(foundation::Object* object) {
  if (!object) return nullptr;
  return object;
}

// One operation of a class, under its selector. Made from the member function, whose parameters say
// what the operation takes: values, texts, numbers, index paths, or pointers to objects (null for
// nil). Where the member takes something else, a function that is given the object stands in.
class Operation {
 public:
  template <class T, class R, class... P>
  Operation(std::string_view selector, R (T::*method)(P...))
      : selector_(selector), arity_(sizeof...(P)) {
    run_ = [method](foundation::Object& self,
                    std::span<const Argument> arguments) -> std::optional<Argument> {
      return call<R, P...>(dynamic_cast<T&>(self), method, arguments,
                           std::index_sequence_for<P...>());
    };
  }
  template <class T, class R, class... P>
  Operation(std::string_view selector, R (*function)(T&, P...))
      : selector_(selector), arity_(sizeof...(P)) {
    run_ = [function](foundation::Object& self,
                      std::span<const Argument> arguments) -> std::optional<Argument> {
      return call<R, P...>(dynamic_cast<T&>(self), function, arguments,
                           std::index_sequence_for<P...>());
    };
  }

  std::string_view selector() const { return selector_; }
  std::size_t arity() const { return arity_; }

  // Empty when the arguments are not what the operation takes; nothing has run then.
  std::optional<Argument> run(foundation::Object& self, std::span<const Argument> arguments) const;

 private:
  template <class R, class... P, class T, class F, std::size_t... I>
  static std::optional<Argument> call(T& self, F function,
                                      [[maybe_unused]] std::span<const Argument> arguments,
                                      std::index_sequence<I...>) {
    auto given = std::tuple(Convert<std::remove_cvref_t<P>>::from(arguments[I])...);
    if (!(std::get<I>(given) && ... && true)) return std::nullopt;
    if constexpr (std::is_void_v<R>) {
      std::invoke(function, self, *std::get<I>(given)...);
      return nullptr;
    } else {
      return resultOf(std::invoke(function, self, *std::get<I>(given)...));
    }
  }

  std::string_view selector_;
  std::size_t arity_;
  std::function<std::optional<Argument>(foundation::Object&, std::span<const Argument>)> run_;
};

using OperationTable = std::vector<Operation>;

// All that a list, a button, an observer or the platform can call on a class, by selector; what
// isn't in the table is looked for in the base class's. The table is made when it is first asked
// for, by any thread, so that one that is not used costs nothing.
class Operations {
 public:
  constexpr Operations(OperationTable (*make)(), const Operations* base = nullptr)
      : make_(make), base_(base) {}

  const Operation* find(std::string_view selector) const;
  const OperationTable& own() const;

 private:
  OperationTable (*make_)();
  const Operations* base_;
  mutable const OperationTable* own_ = nullptr;  // lives as long as the program
};

}  // namespace preferences
