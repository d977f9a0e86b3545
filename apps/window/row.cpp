#include "apps/window/row.h"

#include <algorithm>

#include "apps/window/icons.h"
#include "apps/window/values.h"
#include "host/text.h"

namespace window {
namespace {

int inputHintsOf(const host::TextView& text) {
  switch (text.keyboard) {
    case host::Keyboard::Digits:
      return Qt::ImhNoPredictiveText | Qt::ImhDigitsOnly;
    case host::Keyboard::Number:
      return Qt::ImhNoPredictiveText | Qt::ImhFormattedNumbersOnly;
    case host::Keyboard::Url:
      return Qt::ImhNoPredictiveText | Qt::ImhUrlCharactersOnly;
    case host::Keyboard::Email:
      return Qt::ImhNoPredictiveText | Qt::ImhEmailCharactersOnly;
    case host::Keyboard::Plain:
      return text.correction ? Qt::ImhNone : Qt::ImhNoPredictiveText;
  }
  return Qt::ImhNone;
}

void take(const host::ControlLook& look, Row& row) {
  row.tint = toQColor(look.tint);
  row.background = toQColor(look.background);
  row.cornerRadius = look.cornerRadius.value_or(-1);
}

// What the control of a row that isn't built yet will show.
bool comingOn(const plist::Value& value) {
  return value.boolean().value_or(value.number().value_or(0) != 0);
}

double comingNumber(const plist::Value& value, const host::SliderView& view) {
  return std::clamp<double>(value.number().value_or(view.minimum), view.minimum,
                            std::max(view.minimum, view.maximum));
}

int comingSegment(const plist::Value& value, const preferences::Choices& choices) {
  const auto found = std::ranges::find_if(
      choices.values, [&](const plist::Value& choice) { return equalByValue(choice, value); });
  return found == choices.values.end() ? -1 : static_cast<int>(found - choices.values.begin());
}

// What each kind of control adds to its row.
struct TakeControl {
  Row& row;
  const host::RowView& from;

  void operator()(std::monostate) const {}
  void operator()(const host::SwitchView& view) const {
    take(view.look, row);
    row.on = from.built ? view.on : comingOn(from.value);
    row.onTint = toQColor(view.onTint);
    row.value.clear();
  }
  void operator()(const host::SliderView& view) const {
    take(view.look, row);
    row.minimum = view.minimum;
    row.maximum = view.maximum;
    row.number = from.built ? view.value : comingNumber(from.value, view);
    row.continuous = view.continuous;
    row.stops = view.stops;
    if (view.minimumTrackTint) row.tint = toQColor(view.minimumTrackTint);
    row.value = view.showsValue ? Row::numberText(row.number) : QString();
  }
  void operator()(const host::SegmentsView& view) const {
    take(view.look, row);
    if (view.choices)
      for (const std::string& title : view.choices->titles) row.titles << toQString(title);
    row.selected =
        from.built || !view.choices ? view.selected : comingSegment(from.value, *view.choices);
    row.spoken = row.titles.value(row.selected);
    row.value.clear();
  }
  void operator()(const host::TextView& view) const {
    take(view.look, row);
    row.value =
        from.built ? toQString(view.text) : toQString(from.value.text() ? *from.value.text() : "");
    row.placeholder = toQString(view.placeholder);
    row.secret = view.secret;
    row.inputHints = inputHintsOf(view);
  }
  void operator()(const host::ColorView& view) const {
    row.spoken = row.value;
    row.value = view.label.hidden ? QString() : toQString(view.label.text.value_or(""));
    if (view.swatch.hidden) return;
    row.swatch = toQColor(view.swatch.color);
    row.border = borderColor(view.swatch.borderWidth, view.swatch.borderColor);
  }
  void operator()(const host::LinkView&) const { row.opens = true; }
};

}  // namespace

QString Row::numberText(double number) {
  return toQString(host::numberText(number));
}

QString Row::icon() const {
  const QString name = toQString(id);
  return hasIcon(name) ? name : QString();
}

Row::Row(const host::RowView& view)
    : kind(view.kind),
      id(view.id),
      label(toQString(view.label)),
      value(toQString(view.shown)),
      reason(view.whyNot ? toQString(view.whyNot->words()) : QString()),
      wayOut(view.whyNot ? toQString(view.whyNot->wayOut()) : QString()),
      key(toQString(view.key)),
      shown(toQString(view.shown)),
      standard(toQString(view.standardShown)),
      changed(view.changed),
      resettable(view.changed && view.usable && !view.standard.isNothing()),
      height(view.height),
      built(view.built),
      usable(view.usable),
      opacity(view.alpha),
      ticked(view.ticked),
      destructive(view.destructive) {
  std::visit(TakeControl{*this, view}, view.control);
}

}  // namespace window
