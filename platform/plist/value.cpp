#include "platform/plist/value.h"

#include <array>
#include <cmath>

namespace plist {

std::string_view describe(Kind kind) {
  static constexpr std::array<std::string_view, 11> kWords = {
      "nothing", "a boolean", "an integer", "a real", "text",        "data",
      "a date",  "a UID",     "an array",   "a set",  "a dictionary"};
  return kWords[static_cast<std::size_t>(kind)];
}

std::optional<double> Value::number() const {
  if (const auto truth = boolean()) return *truth ? 1.0 : 0.0;
  if (const auto small = integer()) return static_cast<double>(*small);
  if (const auto large = unsignedInteger()) return static_cast<double>(*large);
  return real();
}

namespace {

bool sameReal(double a, double b) {
  return a == b || (std::isnan(a) && std::isnan(b));
}

// Wide enough for every number without rounding.
long double exactly(const Value& number) {
  if (const auto truth = number.boolean()) return *truth;
  if (const auto small = number.integer()) return static_cast<long double>(*small);
  if (const auto large = number.unsignedInteger()) return static_cast<long double>(*large);
  return *number.real();
}

}  // namespace

bool Value::equalLeaf(const Value& other) const {
  switch (kind()) {
    case Kind::Boolean:
      return boolean() == other.boolean();
    case Kind::Integer:
      return std::get<Integer>(state_) == std::get<Integer>(other.state_);
    case Kind::Real:
      return isSinglePrecision() == other.isSinglePrecision() && sameReal(*real(), *other.real());
    case Kind::Text:
      return *text() == *other.text();
    case Kind::Data:
      return *data() == *other.data();
    case Kind::Date:
      return sameReal(date()->seconds, other.date()->seconds);
    case Kind::Uid:
      return *uid() == *other.uid();
    default:
      return true;
  }
}

bool equalByValue(const Value& a, const Value& b) {
  if (!a.isNumber() || !b.isNumber()) return a == b;
  const long double x = exactly(a), y = exactly(b);
  return x == y || (std::isnan(x) && std::isnan(y));
}

}  // namespace plist
