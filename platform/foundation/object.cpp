#include "platform/foundation/object.h"

namespace foundation {

void Object::performForNotification(std::string_view, const Notification&) {}

}  // namespace foundation
