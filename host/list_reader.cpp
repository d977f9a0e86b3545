#include "host/list_reader.h"

#include <algorithm>

#include "host/notices.h"
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
  std::string words = problem.plain.empty() ? problem.message() : problem.plain;
  if (words[0] >= 'a' && words[0] <= 'z') words[0] += 'A' - 'a';
  return words;
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

ListReader::Found ListReader::read(const Row& row) const {
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
  return found;
}

// What is being read already is not waited for again.
preferences::ChoicesAnswer ListReader::answer(const Row& row) {
  if (arrived_ && arrived_->first == row) return arrived_->second;
  if (readings_.contains(row)) return nullptr;
  Reading& reading = readings_[row];
  reading.number = ++begun_;
  reading.found = std::async(std::launch::async, [this, row, number = reading.number] {
    Found found = read(row);
    post_([this, row, number] { show(row, number); });
    return found;
  });
  if (reading.found.wait_for(patience_) == std::future_status::timeout) return nullptr;
  return take(row);
}

std::shared_ptr<const preferences::Choices> ListReader::take(const Row& row) {
  Found found = readings_.extract(row).mapped().found.get();
  notices_[row] = found.notice;
  for (const Problem& problem : found.problems)
    if (std::ranges::find(reported_, problem) == reported_.end()) {
      reported_.push_back(problem);
      application_.report(problem);
    }
  return found.choices;
}

// One that came in time has been taken.
void ListReader::show(const Row& row, int number) {
  const auto reading = readings_.find(row);
  if (reading == readings_.end() || reading->second.number != number) return;
  arrived_.emplace(row, take(row));
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
  application_.buildVisibleRows();
}

}  // namespace host
