#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "host/refusal.h"
#include "host/row_change.h"
#include "platform/preferences/PSListController.h"
#include "platform/preferences/environment.h"
#include "platform/uikit/table_view.h"

namespace host {

// A row by its id, or by its index in the page.
using RowReference = std::variant<std::string, int>;

// The Settings application without a face: it makes pages, shows one at a time, makes the rows that
// are on screen, and does what the user does to them. The window and the command line are two faces
// of it.
//
// A page is created by its class's name, given the row that opened it, loaded (loadView,
// viewDidLoad) and then shown: the page before it is told that it disappears, it that it appears;
// only then are its rows made. Whatever other processes have stored is seen when a page is created
// or reloaded and when the application becomes active.
//
// While an alert is on screen the page below it can't be operated: open, back, tap, set, scroll,
// select, drag and tapBarButton are refused as Modal before anything else is looked at.
class SettingsApplication {
 public:
  // `viewport`: how many entries the screen shows; rows come to life when they are among them.
  SettingsApplication(preferences::Environment& environment, int viewport);
  ~SettingsApplication();
  SettingsApplication(const SettingsApplication&) = delete;
  SettingsApplication& operator=(const SettingsApplication&) = delete;

  // Starts anew with the bundle's first page, or with another page in its place.
  void launch();
  Outcome<Done> launch(std::string_view pageClass);

  // Pushes a page as a link row would, opened from a row of these properties.
  Outcome<Done> open(std::string_view pageClass, plist::Dictionary rowProperties);
  // The shown page goes and is destroyed; the one below is shown again and laid out.
  Outcome<Done> back();

  // Pages from the first to the shown one. Empty before a launch.
  const std::vector<std::shared_ptr<preferences::PSViewController>>& pages() const {
    return pages_;
  }
  preferences::PSViewController* shownPage() const;
  preferences::PSListController* shownList() const;  // null when the shown page has no row list
  uikit::TableView* shownTable() const;              // null when the shown page is no table

  Outcome<preferences::PSSpecifier*> row(const RowReference& reference) const;
  // A row that leads somewhere pushes its page, a row of choices its choices, a button runs its
  // action; any other row does nothing. Checked like a set.
  Outcome<Done> tap(const RowReference& reference);
  // Moves the row's control, edits its text or picks a value of its choices. Checked in this order:
  // the row exists, is built, is usable, can take the value (changeRow says which).
  Outcome<Done> set(const RowReference& reference, const plist::Value& value);

  struct Choices {
    plist::Array values;
    std::vector<std::string> titles;
  };
  // What the row's data sources yield now; BadRequest for a row that has no choices.
  Outcome<Choices> choices(const RowReference& reference);

  // The screen shows the entries from `first` on, which must exist; never less than a screenful
  // while there is one. A scroll event follows.
  Outcome<Done> scroll(int first);
  int firstShown() const;
  void setViewport(int entries);
  // Both at once, so that what stays on screen stays built.
  Outcome<Done> show(int first, int count);

  Outcome<Done> select(int section, int index);  // taps a row of a table page
  // Moves the slider of that tag on a table page, within its range; `release` also lets go of it.
  Outcome<Done> drag(int tag, double value, bool release);

  // The right one; BadRequest where the shown page has none.
  Outcome<Done> tapBarButton();

  // Those on screen, the topmost last.
  std::span<const std::shared_ptr<uikit::Alert>> alerts() const;
  // Presses the button of that title on the topmost alert, which goes before its action runs.
  Outcome<Done> press(std::string_view button);
  Outcome<Done> press(int button);
  // Turns the picker of the topmost alert; BadValue where there is no such row.
  Outcome<Done> pick(int row);

  void activate();         // the application returns to the foreground
  void layout();           // lays the shown page out again
  Outcome<Done> reload();  // rebuilds the rows of the shown page, or the cells of its table
  // Runs the shown page's operation of that selector. A text that is a row's id stands for that row
  // where the operation takes an object.
  Outcome<preferences::Argument> call(std::string_view selector,
                                      std::span<const preferences::Argument> arguments);

  // Makes the rows that are on screen, as every request does; for what happened without one.
  void buildVisibleRows();

  // Called after anything on screen may have changed.
  void setObserver(std::function<void()> changed) { changed_ = std::move(changed); }

 private:
  using Page = std::shared_ptr<preferences::PSViewController>;
  using Row = std::shared_ptr<preferences::PSSpecifier>;

  Outcome<Page> load(std::string_view pageClass, Row opener, Page parent);
  Outcome<Done> push(std::string_view pageClass, Row opener);
  Outcome<Row> operableRow(const RowReference& reference) const;
  void send(std::string_view selector, foundation::Object& target, foundation::Object& sender);
  std::optional<Refusal> refusedForAlert() const;
  uikit::Alert* topmostAlert() const;
  std::optional<preferences::Argument> run(const preferences::Operation& operation,
                                           std::span<const preferences::Argument> arguments);
  int entries() const;
  int lastFirst() const;
  std::vector<uikit::TableViewCell*> cells() const;  // those that the shown page has made
  void layOutRows();
  void fitToScreen();  // cells as wide as the screen

  preferences::Environment& environment_;
  int viewport_;
  std::vector<Page> pages_;
  std::vector<int> firstRows_;  // of each page, the first entry on screen
  std::function<void()> changed_;
};

}  // namespace host
