#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "platform/foundation/object.h"
#include "platform/uikit/color.h"
#include "platform/uikit/geometry.h"

namespace uikit {

// What of a view's layer is used here. What was never set is empty.
struct Layer {
  std::optional<double> borderWidth;
  std::optional<Color> borderColor;
  std::optional<double> cornerRadius;
};

// A rectangle on screen that holds other views.
class View : public foundation::Object {
 public:
  View() = default;
  View(const View&) = delete;
  ~View() override;
  std::string_view className() const override { return "UIView"; }

  Rect frame;
  int tag = 0;
  bool hidden = false;
  bool opaque = true;  // nothing below shows through
  std::optional<Color> backgroundColor;
  Layer layer;

  bool userInteractionEnabled() const { return userInteractionEnabled_; }
  void setUserInteractionEnabled(bool enabled) { userInteractionEnabled_ = enabled; }
  double alpha() const { return alpha_; }
  void setAlpha(double alpha) { alpha_ = alpha; }

  const std::vector<std::shared_ptr<View>>& subviews() const { return subviews_; }
  void addSubview(std::shared_ptr<View> view);
  void removeFromSuperview();
  // This view or the first one below it, depth first, that carries the tag; null when none does.
  View* viewWithTag(int wanted);

 private:
  bool userInteractionEnabled_ = true;
  double alpha_ = 1;
  View* superview_ = nullptr;
  std::vector<std::shared_ptr<View>> subviews_;
};

}  // namespace uikit
