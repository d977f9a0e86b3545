#pragma once

#include <string>
#include <variant>
#include <vector>

#include "host/refusal.h"
#include "platform/plist/value.h"

// What a user, or the system around the application, may ask of it: one closed set, performed by
// Application::perform, which alone decides what is allowed now.
namespace host {

// A row by its id, or by its index in the page.
using RowReference = std::variant<std::string, int>;

struct Launch {
  std::string page{};  // a class; empty: the bundle's first page
};
struct Open {  // pushes a page as a link row would, opened from a row of these properties
  std::string page;
  plist::Dictionary row{};
};
struct Back {};
struct Tap {
  RowReference row;
};
struct Set {  // moves the row's control, edits its text or picks a value of its choices
  RowReference row;
  plist::Value value;
  bool held = false;  // the control is still held: a drag, which ends with another request
};
struct WayOut {  // turns the switch that dims this row, as its user would
  RowReference row;
};
struct Release {};  // of a control that was held
struct Scroll {     // the screen shows the entries from `first` on, and a scroll event follows
  int first = 0;
  int entries = 0;  // so many from now on; 0: as many as before
};
struct Resize {  // the screen shows so many entries; of a new page too, until it says otherwise
  int entries = 0;
};
struct Select {  // taps a row of a table page
  int section = 0, index = 0;
};
struct Drag {  // moves the slider of that tag on a table page; `release` also lets go of it
  int tag = 0;
  double value = 0;
  bool release = false;
};
struct Bar {};
struct Press {
  std::variant<std::string, int> button;  // by title, or by index
};
struct Pick {
  int row = 0;
};
struct Activate {};  // the application returns to the foreground
struct Layout {};
struct Reload {};
struct Call {  // runs the shown page's operation of that selector; Nothing is null
  std::string selector;
  std::vector<plist::Value> arguments{};
};

using Request = std::variant<Launch, Open, Back, Tap, Set, Release, WayOut, Scroll, Resize, Select,
                             Drag, Bar, Press, Pick, Activate, Layout, Reload, Call>;

template <class... Kinds>
bool isOneOf(const Request& request) {
  return (std::holds_alternative<Kinds>(request) || ...);
}

}  // namespace host
