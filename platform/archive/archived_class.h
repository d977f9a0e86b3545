#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "platform/plist/binary_objects.h"

namespace archive {

// What the instances of a class are.
enum class Shape : std::uint8_t { Dictionary, Array, Set, Text, Data, Date, Null };

// A class that archives can hold instances of.
struct ArchivedClass {
  std::span<const std::string_view> names;  // its own, then its ancestors'
  Shape shape;

  std::string_view name() const { return names.front(); }
};

// Nothing for any other name.
std::optional<Shape> shapeOfClass(const plist::Object& name);

// The class that instances of this shape are archived with.
const ArchivedClass& classFor(Shape shape, bool isMutable);

}  // namespace archive
