#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foundation/object.h"

namespace foundation {

struct Notification {
  std::string name;
  const Object* object = nullptr;  // who posted it, if it says so
};

// The in-process centre: delivers by name, at once, in the order of registration. An observer that
// registered twice is called twice; one removal takes both.
//
// Observers are owned only while they are called. One that is held by a shared pointer when it
// registers and is destroyed without being removed is called no more; any other has to be removed
// before it is destroyed.
class NotificationCenter {
 public:
  // `object` null: from any poster.
  void addObserver(Object& observer, std::string_view selector, std::string_view name,
                   const Object* object);
  void removeObserver(Object& observer);  // all its registrations
  // Those under this name; with an object, of them only those for that poster.
  void removeObserver(Object& observer, std::string_view name, const Object* object);
  // An observer that is removed while the post is under way is not called any more; one that is
  // added meanwhile is not called yet.
  void postNotificationName(std::string_view name, const Object* object);

  // Sees every post before the observers do.
  void setWitness(std::function<void(const Notification&)> witness);

 private:
  struct Registration;
  template <class Condition>
  void removeIf(Condition condition);

  std::vector<std::shared_ptr<Registration>> registrations_;
  std::function<void(const Notification&)> witness_;
};

}  // namespace foundation
