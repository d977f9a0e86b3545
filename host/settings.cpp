#include "host/settings.h"

#include <limits>

#include "host/application.h"
#include "host/color_choice.h"
#include "host/describe.h"
#include "host/text.h"
#include "platform/preferences/row_value.h"
#include "prefs/core/preference_store.h"

namespace host {
namespace {

// How long after it appears a page applies its rules.
constexpr auto kRulesApplied = std::chrono::milliseconds(100);

Failure failure(Failure::Reason reason, std::string words) {
  return {reason, {.source = Source::Settings, .words = std::move(words)}};
}

Failure failureOf(const Refusal& refusal) {
  const bool unknown = refusal.code == RefusalCode::NoPage || refusal.code == RefusalCode::NoRow;
  return failure(unknown ? Failure::NotFound : Failure::Refused, refusal.message);
}

Failure refused(std::string_view row, const std::string& what) {
  return failure(Failure::Refused, "\"" + std::string(row) + "\" " + what);
}

// The value that a text stands for, by the kind of the row's control.
class Reading {
 public:
  Reading(Application& application, const RowView& row, const std::string& text)
      : application_(application), row_(row), text_(text) {}

  Attempt<plist::Value> operator()(const SwitchView&) const {
    if (text_ != "true" && text_ != "false") return refused(row_.id, "takes true or false");
    return plist::Value(text_ == "true");
  }
  Attempt<plist::Value> operator()(const SliderView&) const {
    const auto number = numberIn<double>(text_);
    if (!number) return refused(row_.id, "takes a number");
    return plist::Value(*number);
  }
  Attempt<plist::Value> operator()(const SegmentsView&) const { return choice(); }
  Attempt<plist::Value> operator()(const LinkView& link) const {
    return link.choices ? choice() : text();
  }
  Attempt<plist::Value> operator()(const auto&) const { return text(); }

 private:
  Attempt<plist::Value> text() const {
    if (!isUtf8(text_)) return refused(row_.id, "takes text in UTF-8");
    return plist::Value(text_);
  }
  Attempt<plist::Value> choice() const {
    const auto choices = application_.choices(row_.id);
    if (!choices) return failureOf(choices.error());
    for (const plist::Value& value : (*choices)->values)
      if (namingText(value) == text_) return value;
    return refused(
        row_.id, "has no choice \"" + text_ + "\"; quorvantis choices " + row_.id + " lists them");
  }

  Application& application_;
  const RowView& row_;
  const std::string& text_;
};

}  // namespace

Attempt<Setting> Settings::find(std::string_view key) const {
  if (auto found = findSetting(environment_.bundle, key)) return std::move(*found);
  return failure(Failure::NotFound, "no setting \"" + std::string(key) + "\"");
}

Attempt<std::unique_ptr<Application>> Settings::open(std::string_view pageClass) {
  auto application = std::make_unique<Application>(environment_, std::numeric_limits<int>::max());
  const auto launched = application->perform(Launch{std::string(pageClass)});
  if (!launched) return failureOf(launched.error());
  clock_.advance(kRulesApplied);
  const auto* list = application->shownList();
  if (list && !list->loadError().empty()) return failure(Failure::Failed, list->loadError());
  return application;
}

Attempt<PageView> Settings::page(std::string_view pageClass) {
  const auto application = open(pageClass);
  if (!application) return application.error();
  return describe(**application).pages.back();
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
  const auto choices = (*application)->choices(std::string(setting->id()));
  if (!choices) return failureOf(choices.error());
  return *choices;
}

Attempt<Settings::Problems> Settings::set(std::string_view key, const std::string& text) {
  const auto setting = find(key);
  if (!setting) return setting.error();
  const auto opened = open(setting->page->name);
  if (!opened) return opened.error();
  Application& application = **opened;
  const auto row = application.row(std::string(setting->id()));
  if (!row) return failureOf(row.error());
  const RowView view = describeRow(*application.shownList(), **row);
  if (leadsToColorPicker(setting->text("detail")))
    return change([&]() -> Attempt<platform::Done> {
      const auto chosen = chooseColor(application, view.id, text);
      if (!chosen) return failureOf(chosen.error());
      return platform::Done{};
    });
  // A dimmed row is refused as such, whatever the text.
  if (!view.usable) return failureOf(application.perform(Set{view.id, {}}).error());
  const auto value = std::visit(Reading(application, view, text), view.control);
  if (!value) return value.error();
  return change([&]() -> Attempt<platform::Done> {
    const auto changed = application.perform(Set{view.id, *value});
    if (!changed) return failureOf(changed.error());
    return platform::Done{};
  });
}

// The pages ignore what the store says, so what it reported and what is in it show whether the
// change is there.
Attempt<Settings::Problems> Settings::change(
    const std::function<Attempt<platform::Done>()>& change) {
  foundation::Preferences& preferences = environment_.preferences;
  const plist::Value before = prefs::wholeDomainRead(preferences);
  Problems problems = takeProblems_();
  if (const auto changed = change(); !changed) return changed.error();
  const auto flushed = preferences.synchronize();
  if (!flushed) return failure(Failure::Failed, flushed.error().message());
  if (auto during = takeProblems_(); !during.empty()) problems = std::move(during);
  if (!problems.empty() && plist::Value(prefs::wholeDomainRead(preferences)) == before)
    return Failure{Failure::Failed, problems.front()};
  return problems;
}

}  // namespace host
