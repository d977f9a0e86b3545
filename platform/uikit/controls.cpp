#include "platform/uikit/controls.h"

#include <algorithm>

namespace uikit {

void Control::sendActions(unsigned events) {
  const auto kept = weak_from_this().lock();  // an action may take the control off its view
  for (const Registration& registration : actions_)
    if (registration.events & events) registration.action(*this);
}

void Slider::setRange(float minimum, float maximum) {
  minimum_ = minimum;
  maximum_ = std::max(minimum, maximum);
  setValue(value_);
}

void Slider::setValue(float value) {
  value_ = std::clamp(value, minimum_, maximum_);
}

void Slider::drag(float value) {
  setValue(value);
  if (continuous) sendActions(event::kValueChanged);
}

void Slider::endTracking() {
  if (!continuous) sendActions(event::kValueChanged);
  sendActions(event::kTouchUpInside);
}

}  // namespace uikit
