#pragma once

#include <memory>
#include <string_view>

namespace foundation {

struct Notification;

// What the platform calls an object: it has a class name, and it can perform the
// operation of a selector. Objects are held by shared pointers, so that deferred work can keep its
// page alive.
class Object : public std::enable_shared_from_this<Object> {
 public:
  virtual ~Object() = default;
  virtual std::string_view className() const = 0;
  // Runs the operation that `selector` names, if the object has it. Here: it has none.
  virtual void performForNotification(std::string_view selector, const Notification& notification);
};

}  // namespace foundation
