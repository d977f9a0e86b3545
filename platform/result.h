#pragma once

#include <cstdio>
#include <cstdlib>
#include <type_traits>
#include <utility>
#include <variant>

#include "platform/error.h"

namespace platform {

// Either what was asked for or why it could not be had. Failures are values here: nothing in
// platform, prefs or host throws across a layer. Taking the value of a failure, or the error of a
// success, stops the program with a message on stderr, in every build.
template <class T, class E = Error>
class [[nodiscard]] Result {
 public:
  Result(T value) : state_(std::in_place_index<0>, std::move(value)) {}
  Result(E error) : state_(std::in_place_index<1>, std::move(error)) {}

  explicit operator bool() const { return state_.index() == 0; }

  T& operator*() {
    if (!*this) stop("the value of a failed result was used");
    return *std::get_if<0>(&state_);
  }
  const T& operator*() const { return *const_cast<Result&>(*this); }
  T* operator->() { return &**this; }
  const T* operator->() const { return &**this; }

  const E& error() const {
    if (*this) stop("the error of a successful result was used");
    return *std::get_if<1>(&state_);
  }

  // What `next` makes of the value, which it may take; its result has the same type of error. A
  // failure stays the failure that it is.
  template <class Next>
  auto and_then(Next&& next) && -> std::invoke_result_t<Next, T&&> {
    if (!*this) return std::move(*std::get_if<1>(&state_));
    return std::forward<Next>(next)(std::move(**this));
  }
  template <class Next>
  auto and_then(Next&& next) const& -> std::invoke_result_t<Next, const T&> {
    if (!*this) return error();
    return std::forward<Next>(next)(**this);
  }

 private:
  [[noreturn, gnu::cold, gnu::noinline]] static void stop(const char* why) {
    std::fprintf(stderr, "%s\n", why);
    std::abort();
  }

  std::variant<T, E> state_;
};

// What a Result holds when success carries nothing.
struct Done {};

}  // namespace platform
