#pragma once

#include <memory>

#include "platform/uikit/controls.h"
#include "platform/uikit/table_view.h"

// The views of the picker's table: the cells, all under one reuse identifier, and the slider panel
// of the custom row.
namespace prefs {

// A new one: name above a smaller color text, no highlight.
std::shared_ptr<uikit::TableViewCell> makeSwatchCell();
// One that waits for reuse, else a new one.
std::shared_ptr<uikit::TableViewCell> dequeueSwatchCell(uikit::TableView& table);

// Removes what an earlier use left: texts, image, border width, slider panel. The tag stays, and
// so does the tick.
void clearSwatchCell(uikit::TableViewCell& cell);

// A border of one point around the swatch, for colors that the page's white would swallow.
void addSwatchBorder(uikit::TableViewCell& cell);

struct SliderActions {
  uikit::Control::Action valueChanged;
  uikit::Control::Action touchUp;  // inside or outside
};

// The view (kSliderPanelTag) of the custom row that holds a red, a green and a blue slider from 0
// to 255 at the components of the color. On a tablet it is wider.
std::shared_ptr<uikit::View> makeSliderPanel(const uikit::Color& color, uikit::Idiom idiom,
                                             const SliderActions& actions);

// Where a slider stands for a component from 0 to 1.
inline float sliderValueOf(double component) {
  return static_cast<float>(component * 255.0);
}

}  // namespace prefs
