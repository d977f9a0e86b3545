#include "host/typed_value.h"

#include <algorithm>

#include "host/closest.h"
#include "host/text.h"

namespace host {
namespace {

constexpr std::string_view kNull = "null";  // how a row without any value is printed

struct SwitchWord {
  std::string_view word;
  bool on;
};
constexpr SwitchWord kSwitchWords[] = {{"true", true}, {"false", false}, {"on", true},
                                       {"off", false}, {"yes", true},    {"no", false},
                                       {"1", true},    {"0", false}};

class Reading {
 public:
  Reading(Application& application, const RowView& row, const std::string& text)
      : application_(application), row_(row), text_(text) {}

  Attempt<plist::Value> operator()(const SwitchView& view) const {
    for (const auto& [word, on] : kSwitchWords)
      if (equalInAnyCase(word, text_)) return plist::Value(on);
    if (namesShownValue(row_, text_)) return plist::Value(view.on);
    return refused("takes true or false (on or off, yes or no)");
  }
  Attempt<plist::Value> operator()(const SliderView& view) const {
    if (const auto number = numberIn<double>(text_)) return plist::Value(*number);
    return refused("takes a number from " + numberText(view.minimum) + " to " +
                   numberText(view.maximum) + withoutUnit());
  }
  Attempt<plist::Value> operator()(const SegmentsView&) const { return choice(); }
  Attempt<plist::Value> operator()(const LinkView& link) const {
    return link.choices ? choice() : text();
  }
  Attempt<plist::Value> operator()(const auto&) const { return text(); }

 private:
  // Of "40 %". What is written in another way ("0x10", "5,5") is not the number that it begins
  // with.
  std::string withoutUnit() const {
    const std::size_t end = std::min(text_.find_first_not_of("+-.0123456789"), text_.size());
    const std::string number = text_.substr(0, end), unit = text_.substr(end);
    const bool isUnit =
        unit.find_first_of("xX,") != 0 && unit.find_first_of("0123456789") == std::string::npos;
    return isUnit && numberIn<double>(number) ? "; did you mean \"" + number + "\"?" : "";
  }

  Failure refused(const std::string& what) const {
    return {Failure::Refused, {.source = Source::Settings, .words = "\"" + row_.id + "\" " + what}};
  }

  Attempt<plist::Value> text() const {
    if (!isUtf8(text_)) return refused("takes text in UTF-8");
    return plist::Value(text_);
  }

  Attempt<plist::Value> choice() const {
    const auto choices = application_.choices(row_.id);
    if (!choices) return refused("has no choices");
    const auto& [values, titles] = **choices;
    for (const plist::Value& value : values)
      if (namingText(value) == text_) return value;
    if (namesShownValue(row_, text_)) return row_.value;
    if (const auto index = indexNamed(text_, titles)) return values[*index];
    std::vector<std::string> names = titles;
    for (const plist::Value& value : values) names.push_back(namingText(value).value_or(""));
    return refused("has no choice \"" + text_ + "\"; quorvantis choices " + row_.id +
                   " lists them" + didYouMean(asTitle(titles), names));
  }

  // What a switch would take, where the choices have the same meaning: "no" is "Off".
  std::string asTitle(const std::vector<std::string>& titles) const {
    const auto word = std::ranges::find_if(
        kSwitchWords, [&](const SwitchWord& each) { return equalInAnyCase(each.word, text_); });
    if (word == std::end(kSwitchWords)) return text_;
    const std::string title = word->on ? "On" : "Off";
    return std::ranges::find(titles, title) == titles.end() ? text_ : title;
  }

  Application& application_;
  const RowView& row_;
  const std::string& text_;
};

}  // namespace

bool namesShownValue(const RowView& row, std::string_view text) {
  return row.value.isNothing() ? text == kNull : namingText(row.value) == text;
}

Attempt<plist::Value> typedValue(Application& application, const RowView& row,
                                 const std::string& text) {
  return std::visit(Reading(application, row, text), row.control);
}

}  // namespace host
