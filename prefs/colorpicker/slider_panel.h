#pragma once

#include <memory>

#include "platform/uikit/controls.h"

namespace prefs {

struct SliderActions {
  uikit::Control::Action valueChanged;
  uikit::Control::Action touchUp;  // inside or outside
};

// The view (kSliderPanelTag) of the custom row that holds a red, a green and a blue slider from 0
// to 255 at the components of the colour. On a tablet it is wider.
std::shared_ptr<uikit::View> makeSliderPanel(const uikit::Color& color, uikit::Idiom idiom,
                                             const SliderActions& actions);

// Where a slider stands for a component from 0 to 1.
inline float sliderValueOf(double component) {
  return static_cast<float>(component * 255.0);
}

}  // namespace prefs
