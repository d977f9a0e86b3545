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
    return isTypable(*value.text(), text.lines) ? "" : "must be one line of text";
  }
  std::string operator()(std::monostate) const { return "takes no value"; }

  std::string choice(const preferences::Choices& choices) const {
    const auto isSame = [&](const plist::Value& each) { return plist::equalByValue(each, value); };
    return std::ranges::any_of(choices.values, isSame) ? "" : "is not one of the choices";
  }
};

Attempt<Done> check(const std::vector<SettingView>& known, const plist::Dictionary& values) {
  for (const auto& [key, value] : values) {
    const auto setting = std::ranges::find(known, key, [](auto& each) { return each.row.key; });
    if (setting == known.end()) {
      std::vector<std::string> keys;
      for (const SettingView& each : known) keys.push_back(each.row.key);
      return failure(Source::Settings, Failure::Refused,
                     "\"" + key + "\" is not a setting" + didYouMean(key, keys));
    }
    const RowView& row = setting->row;
    if (plist::equalByValue(value, row.standard) || value == row.value) continue;
    const std::string wrong = std::visit(WhatIsWrong{row, value}, row.control);
    if (!wrong.empty())
      return failure(Source::Settings, Failure::Refused, "\"" + key + "\" " + wrong);
  }
  return Done{};
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
  if (const auto checked = check(*known, *list->dictionary()); !checked) return checked.error();
  return std::move(*list->dictionary());
}

}  // namespace

Attempt<std::vector<std::uint8_t>> exportSettings(Settings& settings,
                                                  preferences::Environment& environment) {
  if (const auto readable = environment.preferences.refresh(prefs::kDomain); !readable)
    return failureOf(Source::Settings, readable.error());
  const auto known = settings.list();
  if (!known) return known.error();
  plist::Dictionary values;
  for (const SettingView& setting : *known) values.set(setting.row.key, setting.row.value);
  auto xml = environment.xml.write(*plist::storable(values));
  if (!xml) return failure(Source::Settings, Failure::Failed, xml.error().message());
  return std::move(*xml);
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
