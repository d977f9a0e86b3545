#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "host/identities.h"
#include "host/problem.h"
#include "host/refusal.h"
#include "host/request.h"
#include "host/request_record.h"
#include "platform/preferences/PSListController.h"
#include "platform/preferences/environment.h"
#include "platform/uikit/table_view.h"

namespace host {

// The Settings application without a face: it makes pages, shows one at a time, makes the rows that
// are on screen, and does what it is asked. describe() says what it shows; the window and the
// command line are two faces of it.
//
// A page is created by its class's name, given the row that opened it, loaded (loadView,
// viewDidLoad) and then shown: the page before it is notified that it disappears, and it that it
// appears; only then are its rows made. Whatever other processes have stored is seen when a page is
// created or reloaded, when the application becomes active, and by `follow`.
class Application {
 public:
  using Page = std::shared_ptr<preferences::PSViewController>;

  // `viewport`: how many entries the screen shows; rows come to life when they are among them. A
  // face that learns only after a page has appeared how many fit gives the least it may turn out to
  // show: so many rows of a list are made at once, since a page applies its rules once, 0.1 s after
  // it appears, and to the rows that are there.
  Application(preferences::Environment& environment, int viewport, int atLeast = 0);
  ~Application();
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;

  // Does what is asked, or refuses and changes nothing. The value is a Call's result; Nothing for
  // what has no such form, and for every other request. Refused, in this order:
  //   as Modal, what touches the page (Open, Back, Tap, Set, WayOut, Scroll, Select, Drag, Bar)
  //   while an alert is on screen;
  //   as Disabled, what would change something while the settings can't be read;
  //   as NoRow, NotBuilt or Disabled, a Tap or Set of a row that isn't there, is off screen or is
  //   dimmed;
  //   as what the request itself can't do, NoPage before a launch among it.
  Outcome<plist::Value> perform(const Request& request);

  // From now on what a request of the user's changes enters the history, labelled after its row or
  // page; null: it doesn't. It has to outlive this.
  void record(Backups* backups) { record_.record(backups); }

  // What the row's data sources yield now; BadRequest for a row that has no choices.
  Outcome<std::shared_ptr<const preferences::Choices>> choices(const RowReference& reference);

  // Sees what other processes have changed, on every page of the stack: the values of rows, ticks
  // and colors are read anew, and where `lists` is set the choices that are read from profiles and
  // battery log. Cells stay as they are otherwise. No rule is evaluated and nothing is announced;
  // the observer isn't called.
  enum class Lists { Keep, ReadAnew };
  void follow(Lists lists = Lists::Keep);

  // Makes the rows that are on screen, as every request does; for what happened without one.
  void buildVisibleRows();

  // Called after anything on screen may have changed.
  void setObserver(std::function<void()> changed) { changed_ = std::move(changed); }

  // What must be reported to the user, once each, until it is dismissed. By the one thread that
  // performs.
  void report(Problem problem);
  void dismiss(const Problem& problem);
  void withdraw(const Problem& gone);  // it has gone: also from the alert it came with
  const std::vector<Problem>& problems() const { return problems_; }
  // Those that were reported since the latest request began.
  const std::vector<Problem>& latestProblems() const { return reported_; }
  // Those that were reported while the request was performed that brought up this alert.
  std::vector<Problem> failuresOf(const std::shared_ptr<uikit::Alert>& alert) const;
  // Why the settings can't be read, since `follow` was last called. While they can't, what would
  // change settings or profiles is refused.
  const std::optional<Problem>& damage() const { return damage_; }

  preferences::Environment& environment() const { return environment_; }

  // What describe() reads. Pages from the first to the shown one; empty before a launch.
  const std::vector<Page>& pages() const { return pages_; }
  preferences::PSViewController* shownPage() const;
  preferences::PSListController* shownList() const;  // null when the shown page has no row list
  uikit::TableView* shownTable() const;              // null when the shown page is not a table
  Outcome<preferences::PSSpecifier*> row(const RowReference& reference) const;
  int firstShown() const;
  int viewport() const { return viewport_; }
  std::span<const std::shared_ptr<uikit::Alert>> alerts() const;  // the topmost last
  // Of a page or an alert: the same as long as it lives, and no other's.
  std::uint64_t numberOf(const std::shared_ptr<const void>& thing) const {
    return identities_.numberOf(thing);
  }

 private:
  using Row = std::shared_ptr<preferences::PSSpecifier>;
  using Result = Outcome<plist::Value>;

  Result run(const Launch& request);
  Result run(const Open& request);
  Result run(const Back& request);
  Result run(const Tap& request);
  Result run(const Set& request);
  Result run(const WayOut& request);
  Result run(const Release& request);
  Result run(const Scroll& request);
  Result run(const Resize& request);
  Result run(const Select& request);
  Result run(const Drag& request);
  Result run(const Bar& request);
  Result run(const Press& request);
  Result run(const Pick& request);
  Result run(const Activate& request);
  Result run(const Layout& request);
  Result run(const Reload& request);
  Result run(const Call& request);

  std::string labelOf(const Request& request) const;
  std::optional<Refusal> refusal(const Request& request) const;
  void noteFailures(const std::vector<std::shared_ptr<uikit::Alert>>& before);
  bool opensProfileManager(const Request& request) const;
  std::optional<Refusal> rowRefusal(const RowReference& reference) const;

  Outcome<Page> load(std::string_view pageClass, Row opener, Page parent);
  Result push(std::string_view pageClass, Row opener);
  Row sharedRow(const RowReference& reference) const;  // of a row that is there
  void send(std::string_view selector, foundation::Object& target, foundation::Object& sender);
  uikit::Alert* topmostAlert() const;
  int entries() const;
  int lastFirst() const;
  std::vector<uikit::TableViewCell*> cells() const;  // those that the shown page has made
  void layOutRows();
  void fitToScreen();  // cells as wide as the screen

  preferences::Environment& environment_;
  int viewport_, atLeast_;
  std::vector<Page> pages_;
  std::vector<int> firstRows_;  // of each page, the first entry on screen
  std::vector<Problem> problems_;
  std::vector<Problem> reported_;                           // since the request began
  std::map<std::uint64_t, std::vector<Problem>> failures_;  // by the number of the alert
  std::optional<Problem> damage_;
  std::function<void()> changed_;
  mutable Identities identities_;
  RequestRecord record_;
};

}  // namespace host
