#include <algorithm>

#include "host/application.h"
#include "host/describe.h"
#include "host/text.h"
#include "platform/foundation/text.h"
#include "platform/uikit/controls.h"

namespace host {
namespace {

using plist::Value;
using preferences::PSListController;
using preferences::PSSpecifier;

// Moves the control of a built row as the user's hand does, and gives what it then says: what the
// row's page is to store. One overload a kind of control; a value that it can't take is refused.
class Move {
 public:
  Move(PSListController& page, PSSpecifier& row, const Value& value)
      : page_(page), row_(row), value_(value) {}

  Outcome<Value> operator()(const SwitchView&) const {
    const auto on = value_.boolean();
    if (!on) return refused("takes true or false");
    control<uikit::Switch>().setOn(*on);
    return Value(*on);
  }

  Outcome<Value> operator()(const SliderView&) const {
    const auto number = value_.boolean() ? std::nullopt : value_.number();
    if (!number) return refused("takes a number");
    auto& slider = control<uikit::Slider>();
    const double minimum = row_.propertyForKey("min").number().value_or(slider.minimumValue());
    const double maximum = row_.propertyForKey("max").number().value_or(slider.maximumValue());
    if (!(*number >= minimum && *number <= maximum))
      return refused("takes a number from " + foundation::descriptionOf(minimum) + " to " +
                     foundation::descriptionOf(maximum));
    slider.setValue(static_cast<float>(*number));
    return Value(*number);
  }

  Outcome<Value> operator()(const TextView& view) const {
    if (!value_.text()) return refused("takes text");
    if (!isTypable(*value_.text(), view.lines))
      return refused(view.lines ? "takes text without control characters"
                                : "takes one line of text without control characters");
    control<uikit::TextField>().text = *value_.text();
    return value_;
  }

  Outcome<Value> operator()(const SegmentsView&) const {
    const int index = row_.indexOfValue(value_);
    if (index < 0) return noSuchChoice();
    control<uikit::SegmentedControl>().selectedSegmentIndex = index;
    return row_.values()[index];
  }

  // A list of choices is opened before one is picked, and asked for at each opening.
  Outcome<Value> operator()(const LinkView& view) const {
    if (!view.choices) return takesNone();
    page_.loadChoices(row_);
    const int index = row_.indexOfValue(value_);
    if (index < 0) return noSuchChoice();
    return row_.values()[index];
  }

  Outcome<Value> operator()(const ColorView&) const { return takesNone(); }
  Outcome<Value> operator()(std::monostate) const { return takesNone(); }

 private:
  template <class Control>
  Control& control() const {
    return static_cast<Control&>(*row_.control());
  }
  Refusal refused(const std::string& what) const {
    return {RefusalCode::BadValue, "\"" + row_.identifier() + "\" " + what};
  }
  Refusal noSuchChoice() const { return refused("has no such choice"); }
  Refusal takesNone() const { return refused("takes no value"); }

  PSListController& page_;
  PSSpecifier& row_;
  const Value& value_;
};

}  // namespace

Outcome<PSSpecifier*> Application::row(const RowReference& reference) const {
  PSListController* page = shownList();
  if (!page) return Refusal{RefusalCode::NoRow, "the shown page has no rows of a list"};
  if (auto* id = std::get_if<std::string>(&reference)) {
    if (PSSpecifier* found = page->specifierForID(*id)) return found;
    return Refusal{RefusalCode::NoRow, "no row \"" + *id + "\""};
  }
  const int index = std::get<int>(reference);
  if (index >= 0 && index < entries()) return page->specifiers()[index].get();
  return Refusal{RefusalCode::NoRow, "no row " + std::to_string(index)};
}

Application::Row Application::sharedRow(const RowReference& reference) const {
  return std::static_pointer_cast<PSSpecifier>((*row(reference))->shared_from_this());
}

std::optional<Refusal> Application::rowRefusal(const RowReference& reference) const {
  const auto found = row(reference);
  if (!found) return found.error();
  const RowView row = describeRow(*shownList(), **found);
  const std::string name = "row \"" + row.id + "\" is ";
  if (!row.built) return Refusal{RefusalCode::NotBuilt, name + "off screen"};
  if (row.usable) return std::nullopt;
  std::string reason = name + "dimmed";
  if (!row.whyNot->by.empty()) reason += " by \"" + row.whyNot->by + "\"";
  if (row.whyNot->lags) reason += " until its rules are applied again";
  return Refusal{RefusalCode::Disabled, reason};
}

// The row and its control outlive a setter that reloads them.
Application::Result Application::run(const Set& request) {
  PSListController& page = *shownList();
  const Row row = sharedRow(request.row);
  const auto cell = row->isBuilt() ? row->cellObject()->shared_from_this() : nullptr;
  const ControlView control = describeRow(page, *row).control;
  const auto moved = std::visit(Move(page, *row, request.value), control);
  if (!moved) return moved.error();
  page.userChanged(*row, *moved);
  return Value();
}

// The switch may be off screen.
Application::Result Application::run(const WayOut& request) {
  PSListController* page = shownList();
  const auto found = row(request.row);
  if (!found) return found.error();
  const auto whyNot = describeRow(*page, **found).whyNot;
  if (!whyNot || !whyNot->helps)
    return Refusal{RefusalCode::BadRequest,
                   "no switch helps row \"" + (*found)->identifier() + "\" now"};
  PSSpecifier& by = *page->specifierForID(whyNot->by);
  if (!by.isBuilt()) page->buildRow(by);
  return run(Set{whyNot->by, whyNot->switchOn});
}

Application::Result Application::run(const Release&) {
  return Value();
}

Outcome<std::shared_ptr<const preferences::Choices>> Application::choices(
    const RowReference& reference) {
  const auto found = row(reference);
  if (!found) return found.error();
  PSSpecifier& row = **found;
  if (!preferences::hasChoices(row.cellType()))
    return Refusal{RefusalCode::BadRequest, "row \"" + row.identifier() + "\" has no choices"};
  shownList()->loadChoices(row);
  return row.choices();
}

}  // namespace host
