#pragma once

#include <cassert>
#include <utility>
#include <variant>

namespace platform {

// Either what was asked for or why it could not be had. Failures are values here: nothing in
// platform, prefs or host throws across a layer.
template <class T, class E>
class [[nodiscard]] Result {
 public:
  Result(T value) : state_(std::in_place_index<0>, std::move(value)) {}
  Result(E error) : state_(std::in_place_index<1>, std::move(error)) {}

  explicit operator bool() const { return state_.index() == 0; }

  T& operator*() { return assert(*this), *std::get_if<0>(&state_); }
  const T& operator*() const { return assert(*this), *std::get_if<0>(&state_); }
  T* operator->() { return &**this; }
  const T* operator->() const { return &**this; }

  const E& error() const { return assert(!*this), *std::get_if<1>(&state_); }

 private:
  std::variant<T, E> state_;
};

// What a Result holds when success carries nothing.
struct Done {};

}  // namespace platform
