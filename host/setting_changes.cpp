#include <algorithm>

#include "host/application.h"
#include "host/color_choice.h"
#include "host/describe.h"
#include "host/named.h"
#include "host/settings.h"
#include "host/typed_value.h"
#include "platform/foundation/text.h"
#include "prefs/core/names.h"
#include "prefs/core/preference_store.h"

namespace host {
namespace {

using platform::Done;

bool hasChoices(const RowView& row) {
  const auto* link = std::get_if<LinkView>(&row.control);
  return (link && link->choices) || std::holds_alternative<SegmentsView>(row.control);
}

// The default as the row's control would give it: a switch gives booleans, a slider reals.
plist::Value defaultOf(const RowView& row) {
  if (std::holds_alternative<SwitchView>(row.control))
    return plist::Value(foundation::boolValue(row.standard));
  const auto number = row.standard.number();
  if (std::holds_alternative<SliderView>(row.control) && number) return plist::Value(*number);
  return row.standard;
}

}  // namespace

// A page that shows defaults in place of what is stored dims the wrong rows.
Attempt<Done> Settings::readable() {
  const auto read = environment_.preferences.refresh(prefs::kDomain);
  if (!read) return host::failureOf(Source::Settings, read.error());
  return Done{};
}

Failure Settings::dimmed(const std::string& key) {
  const auto setting = find(key);
  if (!setting) return setting.error();
  const auto opened = open(setting->page->name);
  if (!opened) return opened.error();
  Application& application = **opened;
  const std::string id(setting->id());
  Failure failure = failureOf(application.perform(Set{id, {}}).error());
  const auto whyNot = describeRow(*application.shownList(), **application.row(id)).whyNot;
  if (whyNot && whyNot->helps)
    failure.problem.words += "; \"quorvantis set " + whyNot->by +
                             (whyNot->switchOn ? " on" : " off") + "\" makes it usable";
  return failure;
}

Attempt<bool> Settings::setOne(const std::string& key, const std::string& text) {
  const auto setting = find(key);
  if (!setting) return setting.error();
  const auto opened = open(setting->page->name);
  if (!opened) return opened.error();
  Application& application = **opened;
  const auto row = application.row(std::string(setting->id()));
  if (!row) return failureOf(row.error());
  const RowView view = describeRow(*application.shownList(), **row);
  if (!view.usable) return false;  // whatever the text
  const bool isShown = namesShownValue(view, text);
  if (leadsToColorPicker(setting->text("detail"))) {
    if (isShown) return true;
    const auto chosen = chooseColor(application, view.id, text);
    if (!chosen) return failureOf(chosen.error());
    return true;
  }
  if (view.standardShown == kUnset && text == kUnset) {
    application.shownList()->userChanged(**row, view.standard);
    return true;
  }
  const auto value = typedValue(application, view, text);
  if (!value) return value.error();
  const auto changed = application.perform(Set{view.id, *value});
  // What is shown already though it isn't among the choices stays.
  if (changed || (isShown && hasChoices(view))) return true;
  return failureOf(changed.error());
}

// What is dimmed is tried again after the others, and with it what follows for its key.
Attempt<Done> Settings::setAll(std::vector<KeyAndText> texts) {
  while (!texts.empty()) {
    std::vector<KeyAndText> later;
    for (const KeyAndText& text : texts) {
      const bool waits = std::ranges::find(later, text.first, &KeyAndText::first) != later.end();
      const auto done = waits ? false : setOne(text.first, text.second);
      if (!done) return done.error();
      if (!*done) later.push_back(text);
    }
    if (later.size() == texts.size()) return dimmed(later.front().first);
    texts = std::move(later);
  }
  return Done{};
}

Attempt<Settings::Problems> Settings::set(const std::vector<KeyAndText>& texts) {
  if (const auto read = readable(); !read) return read.error();
  return perform([&] { return setAll(texts); });
}

Attempt<std::vector<SettingView>> Settings::toReset(const Scope& scope) {
  std::vector<SettingView> found;
  for (const std::string& key : scope.keys) {
    auto setting = describe(key);
    if (!setting) return setting.error();
    const RowView& row = setting->row;
    if (row.whyNot) return dimmed(key);
    if (row.key.empty() || row.standard.isNothing())
      return failure(Source::Settings, Failure::Refused, "\"" + row.id + "\" has no default");
    found.push_back(std::move(*setting));
  }
  if (!scope.page.empty() || scope.all) {
    const auto page = scope.all ? std::string() : pageNamed(environment_.bundle, scope.page);
    if (!page) return failureOf(page.error());
    const auto all = list();
    if (!all) return all.error();
    for (const SettingView& setting : *all)
      if (scope.all || setting.pageClass == *page) found.push_back(setting);
  }
  std::erase_if(found, [](const SettingView& setting) {
    return !setting.row.changed || setting.row.standard.isNothing();
  });
  return found;
}

// A page's rules dim rows for its user; a row that is dimmed has a default all the same.
Attempt<Done> Settings::resetAll(const std::vector<SettingView>& settings) {
  for (const auto& [pageClass, title, row] : settings) {
    const auto application = open(pageClass);
    if (!application) return application.error();
    if (row.kind == RowKind::Color) {
      const std::string color = row.standard.text() ? *row.standard.text() : "";
      const auto chosen = chooseColor(**application, row.id, color);
      if (!chosen) return failureOf(chosen.error());
      continue;
    }
    const auto specifier = (*application)->row(row.id);
    if (!specifier) return failureOf(specifier.error());
    (*application)->shownList()->userChanged(**specifier, defaultOf(row));
  }
  return Done{};
}

Attempt<Settings::Problems> Settings::reset(const Scope& scope) {
  if (const auto read = readable(); !read) return read.error();
  const auto settings = toReset(scope);
  if (!settings) return settings.error();
  return perform([&] { return resetAll(*settings); });
}

// It is done, looked at and dropped.
Attempt<std::vector<Settings::Difference>> Settings::changesOfReset(const Scope& scope) {
  if (const auto read = readable(); !read) return read.error();
  const auto settings = toReset(scope);
  if (!settings) return settings.error();
  foundation::Preferences& preferences = environment_.preferences;
  const plist::Dictionary before = prefs::wholeDomainRead(preferences);
  preferences.hold();
  notifications_.hold();
  const auto done = resetAll(*settings);
  const plist::Dictionary after = prefs::wholeDomainRead(preferences);
  preferences.drop();
  notifications_.drop();
  if (!done) return done.error();
  return prefs::differences(before, after);
}

Attempt<Settings::Problems> Settings::perform(const Change& change) {
  foundation::Preferences& preferences = environment_.preferences;
  preferences.hold();
  notifications_.hold();
  if (const auto changed = change(); !changed) {
    preferences.drop();
    notifications_.drop();
    return changed.error();
  }
  const auto stored = preferences.release();
  if (stored || stored.error().kind == platform::ErrorKind::Unconfirmed)
    notifications_.release();
  else
    notifications_.drop();
  if (!stored) return host::failureOf(Source::Settings, stored.error());
  return takeProblems_();
}

}  // namespace host
