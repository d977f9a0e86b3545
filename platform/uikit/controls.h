#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/uikit/view.h"

namespace uikit {

// What the user does to a control; they add up to a set.
namespace event {
inline constexpr unsigned kTouchUpInside = 0x40;
inline constexpr unsigned kTouchUpOutside = 0x80;
inline constexpr unsigned kValueChanged = 0x1000;
}  // namespace event

// A view that the user operates. A color that was never set is the platform's own.
class Control : public View {
 public:
  std::string_view className() const override { return "UIControl"; }
  bool isOn() const { return on_; }  // only a switch is ever on
  std::optional<Color> tintColor;

  // The action is called for each of these events, in the order in which actions were added.
  using Action = std::function<void(Control& sender)>;
  void addAction(unsigned events, Action action) {
    actions_.push_back({events, std::move(action)});
  }
  void sendActions(unsigned events);

 protected:
  bool on_ = false;

 private:
  struct Registration {
    unsigned events;
    Action action;
  };
  std::vector<Registration> actions_;
};

class Switch : public Control {
 public:
  std::string_view className() const override { return "UISwitch"; }
  void setOn(bool on) { on_ = on; }
  std::optional<Color> onTintColor;
};

// Single precision, as the platform's; a value outside the range is brought to its end.
class Slider : public Control {
 public:
  std::string_view className() const override { return "UISlider"; }
  float minimumValue() const { return minimum_; }
  float maximumValue() const { return maximum_; }
  void setRange(float minimum, float maximum);
  float value() const { return value_; }
  void setValue(float value);
  bool continuous = true;  // reports each step of a drag, else its end
  // What the user does. The program's own setValue calls no action.
  void drag(float value);
  void endTracking();
  std::optional<Color> minimumTrackTintColor;
  std::optional<Color> thumbTintColor;

 private:
  float minimum_ = 0, maximum_ = 1, value_ = 0;
};

class SegmentedControl : public Control {
 public:
  std::string_view className() const override { return "UISegmentedControl"; }
  std::vector<std::string> titles;
  int selectedSegmentIndex = -1;  // -1: none
};

class TextField : public Control {
 public:
  std::string_view className() const override { return "UITextField"; }
  std::string text;
  std::string placeholder;
};

}  // namespace uikit
