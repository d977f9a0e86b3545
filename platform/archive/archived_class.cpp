#include "platform/archive/archived_class.h"

#include <array>

namespace archive {
namespace {

using Names = std::string_view[];

constexpr Names kDictionary = {"NSDictionary", "NSObject"};
constexpr Names kMutableDictionary = {"NSMutableDictionary", "NSDictionary", "NSObject"};
constexpr Names kArray = {"NSArray", "NSObject"};
constexpr Names kMutableArray = {"NSMutableArray", "NSArray", "NSObject"};
constexpr Names kSet = {"NSSet", "NSObject"};
constexpr Names kMutableSet = {"NSMutableSet", "NSSet", "NSObject"};
constexpr Names kString = {"NSString", "NSObject"};
constexpr Names kMutableString = {"NSMutableString", "NSString", "NSObject"};
constexpr Names kData = {"NSData", "NSObject"};
constexpr Names kMutableData = {"NSMutableData", "NSData", "NSObject"};
constexpr Names kDate = {"NSDate", "NSObject"};
constexpr Names kNull = {"NSNull", "NSObject"};

// By shape, immutable and mutable.
constexpr std::array<ArchivedClass, 14> kClasses = {{
    {kDictionary, Shape::Dictionary},
    {kMutableDictionary, Shape::Dictionary},
    {kArray, Shape::Array},
    {kMutableArray, Shape::Array},
    {kSet, Shape::Set},
    {kMutableSet, Shape::Set},
    {kString, Shape::Text},
    {kMutableString, Shape::Text},
    {kData, Shape::Data},
    {kMutableData, Shape::Data},
    {kDate, Shape::Date},
    {kDate, Shape::Date},
    {kNull, Shape::Null},
    {kNull, Shape::Null},
}};

}  // namespace

std::optional<Shape> shapeOfClass(const plist::Object& name) {
  for (const ArchivedClass& known : kClasses)
    if (name.is(known.name())) return known.shape;
  return {};
}

const ArchivedClass& classFor(Shape shape, bool isMutable) {
  return kClasses[2 * static_cast<std::size_t>(shape) + isMutable];
}

}  // namespace archive
