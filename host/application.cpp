#include "host/application.h"

#include <algorithm>

#include "host/describe.h"
#include "host/setting_lookup.h"
#include "platform/uikit/geometry.h"
#include "prefs/keys.h"
#include "prefs/profiles/ProfilesListController.h"

namespace host {
namespace {

using preferences::PSListController;
using preferences::PSSpecifier;

// Whether the user does it to the shown page itself.
bool touchesPage(const Request& request) {
  return isOneOf<Open, Back, Tap, Set, WayOut, Scroll, Select, Drag, Bar>(request);
}

// Whether it is refused while the settings can't be read. What an alert does is refused where it is
// done.
bool needsSettings(const Request& request) {
  return isOneOf<Set, WayOut, Select, Drag, Bar>(request);
}

// The row that the user operates; null for a request that operates none.
const RowReference* operatedRow(const Request& request) {
  if (auto* tap = std::get_if<Tap>(&request)) return &tap->row;
  if (auto* set = std::get_if<Set>(&request)) return &set->row;
  return nullptr;
}

}  // namespace

Application::Application(preferences::Environment& environment, int viewport, int atLeast)
    : environment_(environment), viewport_(std::max(viewport, 1)), atLeast_(atLeast) {}

Application::~Application() {
  while (!pages_.empty()) pages_.pop_back();
}

Outcome<plist::Value> Application::perform(const Request& request) {
  if (const auto refused = refusal(request)) return *refused;
  reported_.clear();
  const std::vector before(alerts().begin(), alerts().end());
  record_.begin(request, [&] { return labelOf(request); });
  auto result = std::visit([this](const auto& each) { return run(each); }, request);
  record_.end(request);
  noteFailures(before);
  if (result) buildVisibleRows();
  return result;
}

// A page of choices or colors is about the row that opened it.
std::string Application::labelOf(const Request& request) const {
  const auto onPage = [&](const std::string& label) {
    const auto* page = environment_.bundle.pageClass(shownPage()->className());
    const std::string title = page ? titleOf(environment_.bundle, *page) : std::string();
    return title.empty() ? label : label + " (" + title + ")";
  };
  if (const RowReference* operated = operatedRow(request)) return onPage((*row(*operated))->name());
  if (const auto* wayOut = std::get_if<WayOut>(&request)) {
    const auto dimmed = row(wayOut->row);
    const auto whyNot = dimmed ? describeRow(*shownList(), **dimmed).whyNot : std::nullopt;
    return whyNot ? onPage(whyNot->label) : std::string();
  }
  const preferences::PSViewController* page = shownPage();
  if (!page) return {};
  const PSSpecifier* opener = page->specifier();
  // A chosen contact is stored in the row of the recipient.
  if (opener && std::string_view(opener->identifier()) == prefs::key::adressbook)
    if (auto* list = dynamic_cast<PSListController*>(page->parent()))
      if (auto* recipient = list->specifierForID(prefs::key::msgrecipient)) opener = recipient;
  return shownTable() && opener && !opener->name().empty() ? opener->name() : page->title;
}

std::optional<Refusal> Application::refusal(const Request& request) const {
  if (touchesPage(request) && topmostAlert())
    return Refusal{RefusalCode::Modal, "an alert is on screen"};
  if (damage_ && (needsSettings(request) || opensProfileManager(request)))
    return Refusal{RefusalCode::Disabled,
                   "nothing can be changed while the settings can't be read"};
  const RowReference* row = operatedRow(request);
  return row ? rowRefusal(*row) : std::nullopt;
}

// The buttons of that page do nothing else.
bool Application::opensProfileManager(const Request& request) const {
  const auto* tap = std::get_if<Tap>(&request);
  if (!tap || !dynamic_cast<prefs::ProfilesListController*>(shownPage())) return false;
  const auto found = row(tap->row);
  return found && (*found)->cellType() == preferences::CellType::PSButtonCell;
}

preferences::PSViewController* Application::shownPage() const {
  return pages_.empty() ? nullptr : pages_.back().get();
}

PSListController* Application::shownList() const {
  return dynamic_cast<PSListController*>(shownPage());
}

uikit::TableView* Application::shownTable() const {
  return pages_.empty() ? nullptr : shownPage()->table();
}

int Application::entries() const {
  if (PSListController* page = shownList()) return static_cast<int>(page->specifiers().size());
  uikit::TableView* table = shownTable();
  return table ? table->rowCount() : 0;
}

int Application::lastFirst() const {
  return std::max(entries() - viewport_, 0);
}

int Application::firstShown() const {
  return firstRows_.empty() ? 0 : firstRows_.back();
}

void Application::buildVisibleRows() {
  if (!pages_.empty()) {
    int& first = firstRows_.back();
    first = std::min(first, lastFirst());
    const int left = entries() - first;
    if (PSListController* page = shownList()) {
      for (int i = first; i < first + std::min(std::max(viewport_, atLeast_), left); ++i)
        if (PSSpecifier& row = *page->specifiers()[i]; !row.isBuilt()) page->buildRow(row);
    } else if (uikit::TableView* table = shownTable()) {
      table->show(first, std::min(viewport_, left));
    }
    fitToScreen();
  }
  if (changed_) changed_();
}

std::vector<uikit::TableViewCell*> Application::cells() const {
  std::vector<uikit::TableViewCell*> made;
  if (PSListController* page = shownList()) {
    for (const Row& row : page->specifiers()) made.push_back(row->cellObject());
  } else if (uikit::TableView* table = shownTable()) {
    for (int i = firstShown(); i < std::min(firstShown() + viewport_, entries()); ++i)
      made.push_back(table->cellForRowAtIndexPath(table->pathOfRow(i)));
  }
  std::erase(made, nullptr);
  return made;
}

void Application::layOutRows() {
  for (uikit::TableViewCell* cell : cells()) cell->layoutSubviews();
}

void Application::fitToScreen() {
  const double width = uikit::applicationFrame(environment_.idiom).width;
  for (uikit::TableViewCell* cell : cells()) {
    if (cell->frame.width == width) continue;
    cell->frame.width = width;
    cell->layoutSubviews();
  }
}

void Application::noteFailures(const std::vector<std::shared_ptr<uikit::Alert>>& before) {
  std::map<std::uint64_t, std::vector<Problem>> shown;
  for (const auto& alert : alerts()) {
    const bool isNew = std::ranges::find(before, alert) == before.end();
    if (auto failures = isNew ? reported_ : failuresOf(alert); !failures.empty())
      shown[numberOf(alert)] = std::move(failures);
  }
  failures_ = std::move(shown);
}

std::vector<Problem> Application::failuresOf(const std::shared_ptr<uikit::Alert>& alert) const {
  const auto found = failures_.find(numberOf(alert));
  return found == failures_.end() ? std::vector<Problem>() : found->second;
}

void Application::report(Problem problem) {
  problem = onMachine(std::move(problem), environment_.root);
  reported_.push_back(problem);
  if (std::ranges::find(problems_, problem) != problems_.end()) return;
  problems_.push_back(std::move(problem));
  if (changed_) changed_();
}

void Application::dismiss(const Problem& problem) {
  if (std::erase(problems_, problem) > 0 && changed_) changed_();
}

void Application::withdraw(const Problem& gone) {
  const Problem problem = onMachine(gone, environment_.root);
  for (auto& [alert, failures] : failures_) std::erase(failures, problem);
  dismiss(problem);
}

}  // namespace host
