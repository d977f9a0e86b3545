#include "platform/foundation/notification_center.h"

namespace foundation {

struct NotificationCenter::Registration {
  Object* observer;
  std::weak_ptr<Object> life;
  bool counted;  // whether `life` is known
  std::string selector, name;
  const Object* object;
  bool removed = false;

  bool destroyed() const { return counted && life.expired(); }
};

template <class Condition>
void NotificationCenter::removeIf(Condition condition) {
  std::erase_if(registrations_, [&](const std::shared_ptr<Registration>& registration) {
    if (!condition(*registration) && !registration->destroyed()) return false;
    registration->removed = true;
    return true;
  });
}

void NotificationCenter::addObserver(Object& observer, std::string_view selector,
                                     std::string_view name, const Object* object) {
  std::weak_ptr<Object> life = observer.weak_from_this();
  const bool counted = !life.expired();
  registrations_.push_back(std::make_shared<Registration>(Registration{
      &observer, std::move(life), counted, std::string(selector), std::string(name), object}));
}

void NotificationCenter::removeObserver(Object& observer) {
  removeIf([&](const Registration& one) { return one.observer == &observer; });
}

void NotificationCenter::removeObserver(Object& observer, std::string_view name,
                                        const Object* object) {
  removeIf([&](const Registration& one) {
    return one.observer == &observer && one.name == name && (!object || one.object == object);
  });
}

void NotificationCenter::postNotificationName(std::string_view name, const Object* object) {
  const Notification notification{std::string(name), object};
  if (const auto witness = witness_) witness(notification);

  // From here on only what is local: the observers may change the list, or end the centre.
  std::vector<std::shared_ptr<Registration>> called;
  for (const auto& one : registrations_) {
    if (one->name == name && (!one->object || one->object == object)) called.push_back(one);
  }
  for (const auto& one : called) {
    if (one->removed) continue;
    const std::shared_ptr<Object> alive = one->life.lock();
    if (one->counted && !alive) continue;
    one->observer->performForNotification(one->selector, notification);
  }
}

void NotificationCenter::setWitness(std::function<void(const Notification&)> witness) {
  witness_ = std::move(witness);
}

}  // namespace foundation
