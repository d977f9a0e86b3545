#include "prefs/colorpicker/picker_views.h"

#include "prefs/colorpicker/color_values.h"
#include "prefs/colorpicker/view_tags.h"

namespace prefs {
namespace {

constexpr std::string_view kIdentifier = "ColorSwatchCell";

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

std::shared_ptr<uikit::TableViewCell> makeSwatchCell() {
  auto cell =
      std::make_shared<uikit::TableViewCell>(uikit::CellStyle::Subtitle, std::string(kIdentifier));
  cell->opaque = true;
  cell->selectionStyle = uikit::SelectionStyle::None;
  cell->accessory = uikit::Accessory::None;
  cell->textLabel.fontSize = 14;
  cell->textLabel.textColor = uikit::Color{0, 0, 0, 1};
  cell->detailTextLabel.fontSize = 10;
  cell->detailTextLabel.textColor = uikit::Color{0.7, 0.7, 0.7, 1};
  return cell;
}

std::shared_ptr<uikit::TableViewCell> dequeueSwatchCell(uikit::TableView& table) {
  auto waiting = table.dequeueReusableCellWithIdentifier(kIdentifier);
  return waiting ? waiting : makeSwatchCell();
}

void clearSwatchCell(uikit::TableViewCell& cell) {
  cell.textLabel.text.reset();
  cell.detailTextLabel.text.reset();
  cell.imageView.image.reset();
  cell.imageView.layer.borderWidth = 0;
  cell.setUserInteractionEnabled(true);
  cell.textLabel.enabled = true;
  if (uikit::View* panel = cell.viewWithTag(kSliderPanelTag)) panel->removeFromSuperview();
}

void addSwatchBorder(uikit::TableViewCell& cell) {
  cell.imageView.layer.borderColor = kBorderColor;
  cell.imageView.layer.borderWidth = 1;
}

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
