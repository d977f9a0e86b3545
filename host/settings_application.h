#pragma once

#include "host/application.h"
#include "host/describe.h"

namespace host {

// The application by its former operations, until the window and the command line are ported to
// Application::perform and describe.
class SettingsApplication : public Application {
 public:
  using Application::Application;

  struct Choices {
    plist::Array values;
    std::vector<std::string> titles;
  };

  void launch() { static_cast<void>(perform(Launch{})); }
  Outcome<Done> launch(std::string_view page) { return ask(Launch{std::string(page)}); }
  Outcome<Done> open(std::string_view page, plist::Dictionary row) {
    return ask(Open{std::string(page), std::move(row)});
  }
  Outcome<Done> back() { return ask(Back{}); }
  Outcome<Done> tap(const RowReference& row) { return ask(Tap{row}); }
  Outcome<Done> set(const RowReference& row, const plist::Value& value) {
    return ask(Set{row, value});
  }
  Outcome<Choices> choices(const RowReference& row) {
    const auto found = Application::choices(row);
    if (!found) return found.error();
    return Choices{(*found)->values, (*found)->titles};
  }
  Outcome<Done> scroll(int first) { return ask(Scroll{first}); }
  void setViewport(int entries) { static_cast<void>(perform(Resize{entries})); }
  Outcome<Done> show(int first, int count) { return ask(Scroll{first, count}); }
  Outcome<Done> select(int section, int index) { return ask(Select{section, index}); }
  Outcome<Done> drag(int tag, double value, bool release) { return ask(Drag{tag, value, release}); }
  Outcome<Done> tapBarButton() { return ask(Bar{}); }
  Outcome<Done> press(std::string_view button) { return ask(Press{std::string(button)}); }
  Outcome<Done> press(int button) { return ask(Press{button}); }
  Outcome<Done> pick(int row) { return ask(Pick{row}); }
  void activate() { static_cast<void>(perform(Activate{})); }
  void layout() { static_cast<void>(perform(Layout{})); }
  Outcome<Done> reload() { return ask(Reload{}); }

 private:
  Outcome<Done> ask(Request request) {
    if (const auto done = perform(request); !done) return done.error();
    return Done{};
  }
};

inline bool isUsable(const preferences::PSSpecifier& row) {
  const preferences::PSTableCell* cell = row.cellObject();
  return !cell || (cell->userInteractionEnabled() && cell->enabled());
}

}  // namespace host
