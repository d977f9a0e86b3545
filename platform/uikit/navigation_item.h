#pragma once

#include <memory>
#include <string>

#include "platform/foundation/object.h"

namespace uikit {

// The system's bar buttons, by their kind; those that are used here.
enum class BarButtonSystemItem { Compose = 7 };

// A button in the bar above a page.
class BarButtonItem : public foundation::Object {
 public:
  // initWithBarButtonSystemItem:target:action:
  BarButtonItem(BarButtonSystemItem systemItem, std::weak_ptr<foundation::Object> target,
                std::string action)
      : systemItem(systemItem), target(std::move(target)), action(std::move(action)) {}
  std::string_view className() const override { return "UIBarButtonItem"; }

  const BarButtonSystemItem systemItem;
  const std::weak_ptr<foundation::Object> target;
  const std::string action;  // a selector of the target
};

// What a page shows in that bar.
struct NavigationItem {
  std::shared_ptr<BarButtonItem> rightBarButtonItem;  // null: none
};

}  // namespace uikit
