#include "host/settings.h"

#include <algorithm>
#include <limits>

#include "host/application.h"
#include "host/closest.h"
#include "host/color_choice.h"
#include "host/describe.h"
#include "host/named.h"
#include "host/text.h"
#include "platform/preferences/row_value.h"

namespace host {
namespace {

// How long after it appears a page applies its rules.
constexpr auto kRulesApplied = std::chrono::milliseconds(100);

std::string rangeOf(const SliderView& slider) {
  return "; it takes a number from " + numberText(slider.minimum) + " to " +
         numberText(slider.maximum);
}

// As didYouMean: the keys of the rows with that label, else a key that is near, else the keys of
// the rows with a label that is near.
std::string meantKey(const preferences::Bundle& bundle, std::string_view text) {
  std::vector<std::string> labels;
  const std::vector<LabeledKey> known = labeledKeys(bundle);
  for (const LabeledKey& each : known) labels.push_back(each.label);
  const auto labeled = [&](std::string_view label) {
    std::string keys;
    for (const auto& [key, each, page] : known)
      if (!each.empty() && equalInAnyCase(each, label))
        keys += (keys.empty() ? "; did you mean \"" : " or \"") + key + "\" (" +
                titleOf(bundle, *page) + ")";
    return keys.empty() ? keys : keys + "?";
  };
  if (const std::string meant = labeled(text); !meant.empty()) return meant;
  if (const std::string meant = didYouMean(text, settingKeys(bundle)); !meant.empty()) return meant;
  const auto near = closest(text, labels);
  return near ? labeled(*near) : std::string();
}

}  // namespace

Failure Settings::noSetting(std::string_view key) const {
  return failure(Source::Settings, Failure::NotFound,
                 "no setting \"" + std::string(key) + "\"; quorvantis list lists them" +
                     meantKey(environment_.bundle, key));
}

Attempt<Setting> Settings::find(std::string_view key) const {
  if (auto found = findSetting(environment_.bundle, key)) return std::move(*found);
  return noSetting(key);
}

Attempt<std::unique_ptr<Application>> Settings::open(std::string_view pageClass) {
  auto application = std::make_unique<Application>(environment_, std::numeric_limits<int>::max());
  const auto launched = application->perform(Launch{std::string(pageClass)});
  if (!launched) return failureOf(launched.error());
  clock_.advance(kRulesApplied);
  const auto* list = application->shownList();
  if (list && !list->loadError().empty())
    return failure(Source::Settings, Failure::Failed, list->loadError());
  return application;
}

Attempt<PageView> Settings::page(std::string_view name) {
  const auto named = pageNamed(environment_.bundle, name);
  if (!named) return failureOf(named.error());
  const auto application = open(*named);
  if (!application) return application.error();
  return host::describe(**application).pages.back();
}

Attempt<std::vector<PageView>> Settings::pages() {
  std::vector<PageView> all;
  for (const preferences::PageClass& known : environment_.bundle.pages) {
    auto described = page(known.name);
    if (!described) return described.error();
    all.push_back(std::move(*described));
  }
  return all;
}

Attempt<plist::Value> Settings::value(std::string_view key) {
  const auto setting = find(key);
  if (!setting) return setting.error();
  if (setting->text("get").empty())
    return preferences::storedOrDefault(setting->row, environment_.preferences);
  const auto application = open(setting->page->name);
  if (!application) return application.error();
  const auto row = (*application)->row(std::string(setting->id()));
  if (!row) return failureOf(row.error());
  return (*application)->shownList()->valueOf(**row);
}

Attempt<ChoiceList> Settings::choices(std::string_view key) {
  const auto setting = find(key);
  if (!setting) return setting.error();
  if (leadsToColorPicker(setting->text("detail")))
    return ChoiceList(std::make_shared<preferences::Choices>(colorChoices()));
  const auto application = open(setting->page->name);
  if (!application) return application.error();
  const std::string id(setting->id());
  const auto choices = (*application)->choices(id);
  if (choices) return *choices;
  Failure failure = failureOf(choices.error());
  const auto row = (*application)->row(id);
  if (!row) return failure;
  const RowView view = describeRow(*(*application)->shownList(), **row);
  if (const auto* slider = std::get_if<SliderView>(&view.control))
    failure.problem.words += rangeOf(*slider);
  if (std::holds_alternative<SwitchView>(view.control))
    failure.problem.words += "; it takes on or off";
  if (std::holds_alternative<TextView>(view.control)) failure.problem.words += "; it takes text";
  return failure;
}

Attempt<SettingView> Settings::describe(std::string_view key) {
  const auto setting = find(key);
  if (!setting) return setting.error();
  const auto application = open(setting->page->name);
  if (!application) return application.error();
  const auto row = (*application)->row(std::string(setting->id()));
  if (!row) return failureOf(row.error());
  RowView view = describeRow(*(*application)->shownList(), **row);
  return SettingView{std::string(setting->page->name), (*application)->shownPage()->title,
                     std::move(view)};
}

const preferences::PSSpecifier* Settings::row(std::string_view key, Pages& pages) {
  const auto setting = findSetting(environment_.bundle, key);
  if (!setting) return nullptr;
  std::shared_ptr<Application>& application = pages[std::string(setting->page->name)];
  if (!application) {
    auto opened = open(setting->page->name);
    if (!opened) return nullptr;
    application = std::move(*opened);
  }
  const auto row = application->row(std::string(setting->id()));
  return row ? *row : nullptr;
}

Attempt<std::vector<SettingView>> Settings::list() {
  const auto all = pages();
  if (!all) return all.error();
  std::vector<SettingView> settings;
  for (const PageView& page : *all)
    for (const RowView& row : page.rows) {
      const auto isSame = [&](const SettingView& known) { return known.row.key == row.key; };
      if (!row.key.empty() && std::ranges::none_of(settings, isSame))
        settings.push_back({page.pageClass, page.title, row});
    }
  return settings;
}

}  // namespace host
