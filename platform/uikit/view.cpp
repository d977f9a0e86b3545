#include "platform/uikit/view.h"

#include <utility>

namespace uikit {

View::~View() {
  for (const auto& view : subviews_) view->superview_ = nullptr;
}

void View::addSubview(std::shared_ptr<View> view) {
  view->removeFromSuperview();
  view->superview_ = this;
  subviews_.push_back(std::move(view));
}

void View::removeFromSuperview() {
  if (!superview_) return;
  auto& siblings = std::exchange(superview_, nullptr)->subviews_;
  // Last, since it may free this view.
  std::erase_if(siblings, [this](const auto& view) { return view.get() == this; });
}

View* View::viewWithTag(int wanted) {
  if (tag == wanted) return this;
  for (const auto& view : subviews_)
    if (View* found = view->viewWithTag(wanted)) return found;
  return nullptr;
}

}  // namespace uikit
