#include "prefs/colorpicker/slider_panel.h"

#include "prefs/colorpicker/view_tags.h"

namespace prefs {
namespace {

struct Component {
  int tag;
  double y;
  uikit::Color tint;
  double uikit::Color::*part;
};
constexpr Component kComponents[] = {
    {kRedSliderTag, 20, {1, 0, 0, 1}, &uikit::Color::red},
    {kGreenSliderTag, 60, {0, 1, 0, 1}, &uikit::Color::green},
    {kBlueSliderTag, 100, {0, 0, 1, 1}, &uikit::Color::blue},
};
constexpr uikit::Color kClear{0, 0, 0, 0};

std::shared_ptr<uikit::Slider> makeSlider(const Component& component, const uikit::Color& color,
                                          double width, const SliderActions& actions) {
  using namespace uikit::event;
  auto slider = std::make_shared<uikit::Slider>();
  slider->frame = {0, component.y, width, 10};
  slider->addAction(kValueChanged, actions.valueChanged);
  slider->addAction(kTouchUpInside | kTouchUpOutside, actions.touchUp);
  slider->backgroundColor = kClear;
  slider->setRange(0, 255);
  slider->continuous = true;
  slider->minimumTrackTintColor = slider->thumbTintColor = component.tint;
  slider->setValue(sliderValueOf(color.*component.part));
  slider->tag = component.tag;
  return slider;
}

}  // namespace

std::shared_ptr<uikit::View> makeSliderPanel(const uikit::Color& color, uikit::Idiom idiom,
                                             const SliderActions& actions) {
  const bool tablet = idiom == uikit::Idiom::Tablet;
  auto panel = std::make_shared<uikit::View>();
  panel->frame = {160, 0, tablet ? 300.0 : 220.0, 130};
  panel->tag = kSliderPanelTag;
  for (const Component& component : kComponents)
    panel->addSubview(makeSlider(component, color, tablet ? 250 : 170, actions));
  return panel;
}

}  // namespace prefs
