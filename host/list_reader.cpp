#include "host/list_reader.h"

#include <algorithm>

#include "host/describe.h"
#include "host/notices.h"
#include "host/text.h"
#include "host/unseen_settings.h"
#include "platform/preferences/PSListItemsController.h"

namespace host {
namespace {

using preferences::CellType;
using preferences::ChoicesFor;
using preferences::PSListController;
using preferences::PSListItemsController;
using preferences::PSSpecifier;

bool isList(const PSSpecifier& row) {
  return row.cellType() == CellType::PSLinkListCell || row.cellType() == CellType::PSLinkCell;
}

// A problem of a list stands beside it, without the system's own words.
std::string sentence(const Problem& problem) {
  return capital(problem.plain.empty() ? problem.message() : problem.plain);
}

bool canBeUnset(const PSSpecifier& row) {
  return row.cellType() == CellType::PSLinkListCell &&
         row.propertyForKey("default") == plist::Value("");
}

std::shared_ptr<const preferences::Choices> withNone(const preferences::Choices& others) {
  auto choices = std::make_shared<preferences::Choices>(others);
  choices->values.insert(choices->values.begin(), plist::Value(""));
  choices->titles.insert(choices->titles.begin(), std::string(kUnset));
  return choices;
}

// Whoever shows these choices now.
void showOn(preferences::PSViewController& page, const PSSpecifier& row) {
  auto* choices = dynamic_cast<PSListItemsController*>(&page);
  if (choices && choices->specifier() == &row) choices->tableView().reloadData();
}

}  // namespace

ListReader::ListReader(Application& application, MakeSource makeSource, Post post,
                       Patience patience)
    : application_(application),
      makeSource_(std::move(makeSource)),
      post_(std::move(post)),
      patience_(patience) {
  application_.environment().choicesSource = [this](std::string_view pageClass,
                                                    const PSSpecifier& row,
                                                    ChoicesFor what) -> preferences::ChoicesAnswer {
    if (!isList(row)) return std::nullopt;
    if (const auto contacts = contactsWhenOpened(pageClass, row, what)) return contacts;
    return answer({std::string(pageClass), row.identifier()});
  };
}

ListReader::~ListReader() {
  application_.environment().choicesSource = nullptr;
}

bool ListReader::isReading(std::string_view pageClass, const PSSpecifier& row) const {
  return readings_.contains({std::string(pageClass), row.identifier()});
}

std::string ListReader::noticeOf(std::string_view pageClass, const PSSpecifier& row) const {
  const auto found = notices_.find({std::string(pageClass), row.identifier()});
  return found == notices_.end() ? std::string() : found->second;
}

ListReader::Found ListReader::read(const Row& row) const try {
  return readPage(row);
} catch (const std::exception& error) {
  return {.choices = nullptr, .notice = std::string("Can't be read: ") + error.what(), .problems{}};
}

ListReader::Found ListReader::readPage(const Row& row) const {
  const Source source = makeSource_();
  Found found;
  const auto* known = source.environment.bundle.pageClass(row.first);
  const auto page = known ? known->create(source.environment) : nullptr;
  auto* list = dynamic_cast<PSListController*>(page.get());
  PSSpecifier* asked = list ? list->specifierForID(row.second) : nullptr;
  if (!asked) return found;
  found.choices = asked->choices();
  found.notice = unreadableIn(*asked, source.environment);
  for (Problem& problem : source.takeProblems())
    if (problem.source == host::Source::Contacts)
      (found.notice += found.notice.empty() ? "" : "\n") += sentence(problem);
    else
      found.problems.push_back(std::move(problem));
  if (canBeUnset(*asked)) {
    if (asked->values().empty() && found.notice.empty()) found.notice = wayToFill(*asked);
    found.choices = withNone(*found.choices);
  }
  return found;
}

ListReader::Reading& ListReader::begin(const Row& row) {
  if (!deadline_) {
    deadline_ = Clock::now() + patience_;
    post_([this] { deadline_.reset(); });
  }
  const int number = ++begun_;
  auto found = std::async(std::launch::async | std::launch::deferred, [this, row, number] {
    Found read = this->read(row);
    post_([this, row, number] { show(row, number); });
    return read;
  });
  return readings_.insert_or_assign(row, Reading{number, std::move(found), *deadline_})
      .first->second;
}

// What is being read already is not waited for again.
preferences::ChoicesAnswer ListReader::answer(const Row& row) {
  if (arrived_ && arrived_->first == row) return arrived_->second;
  if (const auto known = readings_.find(row); known != readings_.end()) {
    if (known->second.deadline != deadline_) known->second.isOld = true;
    return nullptr;
  }
  const Reading& reading = begin(row);
  if (reading.found.wait_until(reading.deadline) == std::future_status::timeout) return nullptr;
  const Found found = take(row);
  report(found.problems);
  return found.choices;
}

ListReader::Found ListReader::take(const Row& row) {
  Found found = readings_.extract(row).mapped().found.get();
  notices_[row] = found.notice;
  return found;
}

void ListReader::report(const std::vector<Problem>& problems) {
  for (const Problem& problem : problems)
    if (std::ranges::find(reported_, problem) == reported_.end()) {
      reported_.push_back(problem);
      application_.report(problem);
    }
}

// Where there is no thread for it, now.
void ListReader::readAgain(const Row& row) {
  const Reading& reading = begin(row);
  if (reading.found.wait_for(Patience(0)) == std::future_status::deferred)
    show(row, reading.number);
}

// One that came in time has been taken.
void ListReader::show(const Row& row, int number) {
  const auto reading = readings_.find(row);
  if (reading == readings_.end() || reading->second.number != number) return;
  const bool isOld = reading->second.isOld;
  const Found found = take(row);
  arrived_.emplace(row, found.choices);
  for (const auto& page : application_.pages()) {
    auto* list = dynamic_cast<PSListController*>(page.get());
    PSSpecifier* shown =
        list && list->className() == row.first ? list->specifierForID(row.second) : nullptr;
    if (!shown) continue;
    list->loadChoices(*shown);
    if (shown->isBuilt()) list->refreshRow(*shown);
    for (const auto& other : application_.pages()) showOn(*other, *shown);
  }
  arrived_.reset();
  if (isOld) readAgain(row);
  report(found.problems);
  application_.buildVisibleRows();
}

}  // namespace host
