#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "host/problem.h"
#include "platform/plist/value.h"
#include "platform/preferences/choices.h"
#include "platform/uikit/color.h"
#include "platform/uikit/geometry.h"

// What the Settings application shows, as plain values: made by describe(), compared by ==, drawn
// by a window, printed by the command line, written as JSON. Lengths are points, numbers of colors
// fractions. What was never set is empty.
namespace host {

// How a control is painted beyond the platform's own look.
struct ControlLook {
  std::optional<uikit::Color> tint, background;
  std::optional<double> cornerRadius;
  bool operator==(const ControlLook&) const = default;
};

struct SwitchView {
  bool on = false;
  std::optional<uikit::Color> onTint;
  ControlLook look;
  bool operator==(const SwitchView&) const = default;
};

struct SliderView {
  float value = 0, minimum = 0, maximum = 1;
  bool continuous = false;  // reports each step of a drag, else its end
  bool showsValue = false;  // beside the slider
  int stops = 0;            // snaps to so many steps; 0: to none
  std::optional<uikit::Color> minimumTrackTint;
  ControlLook look;
  bool operator==(const SliderView&) const = default;
};

// Values and titles, paired by index; shared with the row and compared by address, so that a list
// of many thousands costs nothing. Other choices are another object.
using ChoiceList = std::shared_ptr<const preferences::Choices>;

struct SegmentsView {
  ChoiceList choices;
  int selected = -1;  // -1: none
  ControlLook look;
  bool operator==(const SegmentsView&) const = default;
};

enum class Keyboard { Plain, Digits, Number, Url, Email };

struct TextView {
  std::string text, placeholder;
  bool secret = false;
  bool lines = false;  // may hold more than one
  Keyboard keyboard = Keyboard::Plain;
  bool correction = true;
  ControlLook look;
  bool operator==(const TextView&) const = default;
};

// A row that stands for a color: a swatch, or the word that is stored in place of one.
struct ColorView {
  struct Swatch {
    bool hidden = true;
    std::optional<uikit::Color> color;
    uikit::Rect frame;
    double borderWidth = 0;
    std::optional<uikit::Color> borderColor;
    bool operator==(const Swatch&) const = default;
  };
  struct Label {
    bool hidden = true;
    std::optional<std::string> text;
    uikit::Rect frame;
    bool operator==(const Label&) const = default;
  };
  Swatch swatch;
  Label label;
  bool operator==(const ColorView&) const = default;
};

// A row that leads to another page.
struct LinkView {
  std::string page;    // the class; may be empty
  ChoiceList choices;  // null unless the page is a list of choices
  bool operator==(const LinkView&) const = default;
};

using ControlView = std::variant<std::monostate, SwitchView, SliderView, SegmentsView, TextView,
                                 ColorView, LinkView>;

// What draws a row.
enum class RowKind {
  Group,
  Link,
  Button,
  Switch,
  Slider,
  Segments,
  Text,
  LongText,
  Value,
  Static,
  Spinner,
  Giant,
  Color,
};

// Why a row can't be operated.
struct WhyNot {
  std::string by{};       // the id of the switch that dims the row; empty where no rule does
  std::string label{};    // of that switch
  bool lags = false;      // that switch has been turned since: the page has to be opened again
  bool switchOn = false;  // turning it on would help, else turning it off
  bool helps = false;     // that switch can be turned now, and isn't to be waited for
  std::string instead{};  // words in place of those that follow
  bool operator==(const WhyNot&) const = default;

  // "dimmed: switch on Flash LED first", "dimmed: switch off …", "dimmed until you come back to
  // this page", "dimmed".
  std::string words() const;
  // "Switch on Flash LED", "Switch off …"; empty where that is of no help.
  std::string wayOut() const;
};

// One row of a page of rows. A row that isn't built yet has no state of a cell, and of its control
// only what the list says: range, choices, placeholder.
struct RowView {
  std::string id, label, key;
  RowKind kind = RowKind::Value;
  std::string cellType, cellClass;  // as the list names them; the class may be empty
  // What the cell was made from, and its control shows: the stored value, else the row's default,
  // or what the control says once it has been moved. A stored value that no such control can show
  // (a number beyond the range, a text under a switch) is itself, so that nobody is misled about
  // the store. Of a row that isn't built, what it would be made from.
  plist::Value value;
  // The same, human-readable: a choice's title, "on", "System Blue, #007AFF", "None". Empty for
  // Nothing.
  std::string shown;
  plist::Value standard;  // the row's default, as its control would show it; Nothing without one
  std::string standardShown;  // the same, human-readable
  bool changed = false;       // it is a setting, and shows something else than its default
  std::string footer;         // of a group
  double height = 0;          // 0: the face's own
  bool destructive = false;

  bool built = false;
  bool interaction = true, enabled = true;  // the two flags of a cell
  double alpha = 1;
  bool ticked = false;
  bool usable = true;  // both flags are set, or the row isn't built
  std::optional<WhyNot> whyNot;
  ControlView control;

  bool operator==(const RowView&) const = default;
};

// A slider within a row of a table.
struct PartSliderView {
  int tag = 0;
  float value = 0, minimum = 0, maximum = 1;
  uikit::Rect frame;
  std::optional<uikit::Color> tint;
  bool operator==(const PartSliderView&) const = default;
};

struct SliderPanelView {
  uikit::Rect frame;
  std::vector<PartSliderView> sliders;
  bool operator==(const SliderPanelView&) const = default;
};

// One row of a table page.
struct TableRowView {
  std::optional<std::string> title, detail;
  std::optional<uikit::Color> image;
  uikit::Size imageSize;
  double borderWidth = 0;
  std::optional<uikit::Color> borderColor;
  std::string reuseIdentifier;
  int tag = 0;
  bool ticked = false, usable = true;
  std::optional<SliderPanelView> panel;
  bool operator==(const TableRowView&) const = default;
};

struct SectionView {
  std::string title;
  int rows = 0;
  double rowHeight = 44;
  bool mixes = false;  // its row holds the color that the user mixes
  bool operator==(const SectionView&) const = default;
};

// A page on the stack. Only the shown page, the last one, is described beyond class and title.
struct PageView {
  std::uint64_t number = 0;  // the same as long as the page lives, and no other page's
  std::string pageClass, title;
  bool barButton = false;
  std::string error;  // why its list can't be shown

  // A page of rows.
  std::vector<RowView> rows;
  bool isTable = false;

  // A table page: a list of choices, or colors.
  std::vector<SectionView> sections;
  std::map<int, TableRowView> tableRows;  // those on screen, counted over all sections
  // On a page of colors all others, as they would come on screen.
  std::map<int, TableRowView> offScreen;
  ChoiceList choices;   // null on a page of colors
  int chosen = -1;      // the ticked choice; -1: none, or not a list of choices
  bool stores = false;  // choosing one of the choices changes a setting
  // The row that opened a page of colors, with the color that is chosen now.
  std::optional<RowView> opener;

  int firstShown = 0;  // the first entry on screen

  bool operator==(const PageView&) const = default;
};

enum class AlertStyle { Alert, Sheet };
enum class ButtonRole { Default, Cancel, Destructive };

struct AlertButtonView {
  std::string title;
  ButtonRole role = ButtonRole::Default;
  bool operator==(const AlertButtonView&) const = default;
};

struct AlertPickerView {
  std::vector<std::string> rows;
  int selected = -1;  // -1: it has no rows
  uikit::Rect frame;
  bool operator==(const AlertPickerView&) const = default;
};

struct AlertView {
  std::uint64_t number = 0;  // as a page's
  AlertStyle style = AlertStyle::Alert;
  std::string title, message;
  std::vector<AlertButtonView> buttons;
  int tag = 0;
  std::optional<AlertPickerView> picker;
  // What failed as it came up: its own words may promise what was not done.
  std::vector<Problem> failures;
  // Where a sheet points to: the bar button, or a row of the page; else nowhere.
  bool atBarButton = false;
  std::optional<int> atRow;
  bool operator==(const AlertView&) const = default;
};

struct Scene {
  std::vector<PageView> pages;    // the shown one last; empty before a launch
  std::vector<AlertView> alerts;  // the topmost last
  std::vector<Problem> problems;  // reported and not dismissed, each once
  // The settings can't be read: rows have no values, and nothing can be changed.
  std::optional<Problem> damage;
  bool operator==(const Scene&) const = default;

  const PageView* shown() const { return pages.empty() ? nullptr : &pages.back(); }
};

}  // namespace host
