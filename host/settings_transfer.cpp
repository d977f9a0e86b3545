#include "host/settings_transfer.h"

#include <algorithm>

#include "host/closest.h"
#include "host/color_choice.h"
#include "host/profile_import.h"
#include "host/text.h"
#include "prefs/core/names.h"
#include "prefs/core/preference_store.h"

namespace host {
namespace {

using platform::Done;

// The choice that is that number or text; null where none is. No choice is a boolean.
const plist::Value* choiceOf(const preferences::Choices& choices, const plist::Value& value) {
  if (value.boolean()) return nullptr;
  const auto found = std::ranges::find_if(
      choices.values, [&](const plist::Value& each) { return plist::equalByValue(each, value); });
  return found == choices.values.end() ? nullptr : &*found;
}

// What is wrong with a value for a row; empty where the row can take it.
struct WhatIsWrong {
  const RowView& row;
  const plist::Value& value;

  std::string operator()(const SwitchView&) const {
    return value.isNumber() ? "" : "must be true or false";
  }
  std::string operator()(const SliderView& slider) const {
    const auto number = value.boolean() ? std::nullopt : value.number();
    if (number && *number >= slider.minimum && *number <= slider.maximum) return "";
    return "must be a number from " + numberText(slider.minimum) + " to " +
           numberText(slider.maximum);
  }
  std::string operator()(const SegmentsView& segments) const { return choice(*segments.choices); }
  std::string operator()(const LinkView& link) const {
    return link.choices ? choice(*link.choices) : "takes no value";
  }
  std::string operator()(const ColorView&) const {
    return value.text() && isColorText(*value.text()) ? "" : "must be none or #RRGGBB";
  }
  std::string operator()(const TextView& text) const {
    if (!value.text()) return "must be text";
    if (isTypable(*value.text(), text.lines)) return "";
    return text.lines ? "must be text without control characters"
                      : "must be one line of text without control characters";
  }
  std::string operator()(std::monostate) const { return "takes no value"; }

  std::string choice(const preferences::Choices& choices) const {
    return choiceOf(choices, value) ? "" : "is not one of the choices";
  }
};

const preferences::Choices* choicesOf(const RowView& row) {
  if (const auto* segments = std::get_if<SegmentsView>(&row.control))
    return segments->choices.get();
  const auto* link = std::get_if<LinkView>(&row.control);
  return link ? link->choices.get() : nullptr;
}

std::string whatIsWrong(const RowView& row, const plist::Value& value) {
  const bool foreign = choicesOf(row) && value.boolean();
  if (!foreign && plist::equalByValue(value, row.standard)) return "";
  return std::visit(WhatIsWrong{row, value}, row.control);
}

// A choice's number becomes the choice's own value.
Attempt<plist::Dictionary> check(const std::vector<SettingView>& known,
                                 const plist::Dictionary& values) {
  std::vector<std::string> keys;
  for (const SettingView& each : known) keys.push_back(each.row.key);
  plist::Dictionary checked;
  std::string refused;
  for (const auto& [key, value] : values) {
    const auto setting = std::ranges::find(known, key, [](auto& each) { return each.row.key; });
    const bool isKnown = setting != known.end();
    if (isKnown && value == setting->row.value) {
      checked.set(key, value);
      continue;
    }
    const std::string wrong =
        isKnown ? whatIsWrong(setting->row, value) : "is not a setting" + didYouMean(key, keys);
    if (!wrong.empty()) refused += (refused.empty() ? "\"" : "; \"") + key + "\" " + wrong;
    const auto* choices = isKnown ? choicesOf(setting->row) : nullptr;
    const plist::Value* choice = choices ? choiceOf(*choices, value) : nullptr;
    checked.set(key, choice ? *choice : value);
  }
  if (!refused.empty()) return failure(Source::Settings, Failure::Refused, refused);
  return checked;
}

Attempt<plist::Dictionary> readValues(Settings& settings, preferences::Environment& environment,
                                      plist::Bytes bytes) {
  auto list = readPropertyList(bytes, environment.xml);
  if (!list) return failure(Source::Settings, Failure::Failed, list.error().message());
  if (!list->dictionary())
    return failure(Source::Settings, Failure::Refused, "not settings: no dictionary");
  if (list->dictionary()->find(kArchiver) || isProfile(*list->dictionary()))
    return failure(Source::Settings, Failure::Refused,
                   "a profile, not settings; \"quorvantis profile import\" takes it, \"quorvantis "
                   "profile load\" then makes its values the settings");
  if (const auto readable = environment.preferences.refresh(prefs::kDomain); !readable)
    return failureOf(Source::Settings, readable.error());
  const auto known = settings.list();
  if (!known) return known.error();
  return check(*known, *list->dictionary());
}

}  // namespace

Attempt<Export> exportSettings(Settings& settings, preferences::Environment& environment) {
  if (const auto readable = environment.preferences.refresh(prefs::kDomain); !readable)
    return failureOf(Source::Settings, readable.error());
  const auto known = settings.list();
  if (!known) return known.error();
  plist::Dictionary values;
  Export exported;
  for (const auto& [pageClass, title, row] : *known) {
    values.set(row.key, row.value);
    if (!row.value.isNothing() && !whatIsWrong(row, row.value).empty())
      exported.refused.push_back(row.key);
  }
  auto xml = environment.xml.write(*plist::storable(values));
  if (!xml) return failure(Source::Settings, Failure::Failed, xml.error().message());
  exported.xml = std::move(*xml);
  return exported;
}

Attempt<Done> importSettings(Settings& settings, preferences::Environment& environment,
                             plist::Bytes bytes) {
  const auto values = readValues(settings, environment, bytes);
  if (!values) return values.error();
  const auto stored = prefs::wholeDomainWrite(environment.preferences, *values);
  if (!stored) return failureOf(Source::Settings, stored.error());
  environment.darwinCenter.post(prefs::kPrefsNotification);
  environment.defaultCenter.postNotificationName(prefs::kReloadSpecifiersNotification, nullptr);
  if (const auto finished = environment.preferences.finish(); !finished)
    return failureOf(Source::Settings, finished.error());
  return Done{};
}

Attempt<std::vector<Settings::Difference>> changesOfImport(Settings& settings,
                                                           preferences::Environment& environment,
                                                           plist::Bytes bytes) {
  const auto values = readValues(settings, environment, bytes);
  if (!values) return values.error();
  const plist::Dictionary domain = prefs::wholeDomainRead(environment.preferences);
  plist::Dictionary after = domain;
  for (const auto& [key, value] : *values) after.set(key, value);
  return prefs::differences(domain, after);
}

}  // namespace host
