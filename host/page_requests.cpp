#include <algorithm>

#include "host/application.h"
#include "prefs/core/names.h"

namespace host {
namespace {

using preferences::Argument;
using preferences::Operation;
using preferences::PSListController;
using preferences::PSSpecifier;

// A request's argument; Nothing stands for null.
Argument argumentOf(const plist::Value& value) {
  return value.isNothing() ? Argument(nullptr) : Argument(value);
}

// Tries each way of reading the texts that name rows, as text first.
std::optional<Argument> runOn(preferences::PSViewController& page, PSListController* list,
                              const Operation& operation,
                              const std::vector<plist::Value>& arguments) {
  std::vector<Argument> given;
  std::ranges::transform(arguments, std::back_inserter(given), argumentOf);
  std::vector<std::shared_ptr<foundation::Object>> rows(arguments.size());
  std::vector<std::size_t> ambiguous;
  for (std::size_t i = 0; list && i < arguments.size(); ++i) {
    PSSpecifier* row = arguments[i].text() ? list->specifierForID(*arguments[i].text()) : nullptr;
    if (!row) continue;
    rows[i] = row->shared_from_this();
    ambiguous.push_back(i);
  }
  for (std::size_t asRows = 0; asRows < std::size_t{1} << ambiguous.size(); ++asRows) {
    std::vector<Argument> read = given;
    for (std::size_t bit = 0; bit < ambiguous.size(); ++bit)
      if (asRows >> bit & 1) read[ambiguous[bit]] = rows[ambiguous[bit]].get();
    if (auto result = operation.run(page, read)) return result;
  }
  return std::nullopt;
}

}  // namespace

// An action takes its sender or nothing.
void Application::send(std::string_view selector, foundation::Object& target,
                       foundation::Object& sender) {
  auto* page = dynamic_cast<preferences::PSViewController*>(&target);
  const Operation* action = page ? page->operations().find(selector) : nullptr;
  if (!action) return;
  const Argument arguments[] = {&sender};
  action->run(target, std::span(arguments, std::min<std::size_t>(action->arity(), 1)));
}

Application::Result Application::run(const Activate&) {
  static_cast<void>(environment_.preferences.synchronize());
  environment_.defaultCenter.postNotificationName(prefs::kDidBecomeActiveNotification, nullptr);
  return plist::Value();
}

Application::Result Application::run(const Layout&) {
  if (pages_.empty()) return noPage();
  layOutRows();
  return plist::Value();
}

// Rebuilds the rows of a list, or the cells of a table.
Application::Result Application::run(const Reload&) {
  if (pages_.empty()) return noPage();
  static_cast<void>(environment_.preferences.synchronize());
  if (PSListController* page = shownList())
    page->reloadSpecifiers();
  else if (uikit::TableView* table = shownTable())
    table->reloadData();
  return plist::Value();
}

// A text that is a row's id stands for that row where the operation takes an object.
Application::Result Application::run(const Call& request) {
  if (pages_.empty()) return noPage();
  const Operation* operation = shownPage()->operations().find(request.selector);
  const std::string name = "\"" + request.selector + "\"";
  if (!operation)
    return Refusal{RefusalCode::BadRequest, "the shown page has no operation " + name};
  if (operation->arity() != request.arguments.size())
    return Refusal{RefusalCode::BadRequest,
                   name + " takes " + std::to_string(operation->arity()) + " arguments"};
  const Page page = pages_.back();
  const auto result = runOn(*page, shownList(), *operation, request.arguments);
  if (!result) return Refusal{RefusalCode::BadRequest, name + " can't take these arguments"};
  return preferences::valueIn(*result).value_or(plist::Value());
}

}  // namespace host
