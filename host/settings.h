#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/deferred_notifications.h"
#include "host/problem.h"
#include "host/scene.h"
#include "host/setting_lookup.h"
#include "platform/foundation/main_queue.h"
#include "platform/preferences/environment.h"
#include "prefs/profiles/profile_snapshot.h"

namespace preferences {
class PSSpecifier;
}

namespace host {

class Application;

// A row that holds a setting, and the page that it is on.
struct SettingView {
  std::string pageClass, pageTitle;
  RowView row;

  bool operator==(const SettingView&) const = default;
};

// The settings by their keys and pages, without a user at a screen: pages are opened, and rows are
// changed, as the user would. Pages can be named by class or title, and what isn't known is refused
// with what could be meant.
class Settings {
 public:
  using Problems = std::vector<Problem>;
  using Difference = prefs::Difference;

  // `clock`: the environment's main queue. `notifications`: what the environment posts to.
  // `takeProblems` gives what the store has reported since it was last called.
  Settings(preferences::Environment& environment, foundation::ManualQueue& clock,
           DeferredNotifications& notifications, std::function<Problems()> takeProblems)
      : environment_(environment),
        clock_(clock),
        notifications_(notifications),
        takeProblems_(std::move(takeProblems)) {}

  // One page, opened alone, with all its rows on screen and its rules applied.
  Attempt<PageView> page(std::string_view name);
  Attempt<std::vector<PageView>> pages();  // all of the bundle, in its order

  // What the row of that key shows: what is stored, else the row's default. No page is opened for a
  // row without a getter of its own.
  Attempt<plist::Value> value(std::string_view key);
  Attempt<ChoiceList> choices(std::string_view key);
  Attempt<SettingView> describe(std::string_view key);
  Attempt<std::vector<SettingView>> list();  // the first row of each key, in the order of the pages

  // The row of a key, and the pages that were opened for that and hold it; null without a row.
  using Pages = std::map<std::string, std::shared_ptr<Application>, std::less<>>;
  const preferences::PSSpecifier* row(std::string_view key, Pages& pages);

  // Changes the rows of these keys in this order, each through its own setter; a row that is dimmed
  // then comes after the others, which may turn its switch. All are stored, with one change of the
  // file, and then announced, or none is. The text is read by typedValue(), for a
  // color by chooseColor(). Gives what was reported though it is stored.
  using KeyAndText = std::pair<std::string, std::string>;
  Attempt<Problems> set(const std::vector<KeyAndText>& texts);

  // Which rows are to go back to their defaults: those of these keys, all of that page, or all.
  // Only a row that is named by its key is refused when it is dimmed or has no default.
  struct Scope {
    std::vector<std::string> keys{};
    std::string page{};
    bool all = false;
  };
  // Likewise all or none, through each row's own setter; rows that show their default already stay
  // as they are.
  Attempt<Problems> reset(const Scope& scope);
  Attempt<std::vector<Difference>> changesOfReset(const Scope& scope);

 private:
  using Change = std::function<Attempt<platform::Done>()>;

  Failure noSetting(std::string_view key) const;
  Attempt<Setting> find(std::string_view key) const;
  Attempt<std::unique_ptr<Application>> open(std::string_view pageClass);
  Attempt<platform::Done> readable();

  Failure dimmed(const std::string& key);  // of a row that is, with the way out if there is one
  Attempt<platform::Done> setAll(std::vector<KeyAndText> texts);
  // False: the row is dimmed, and stays as it is.
  Attempt<bool> setOne(const std::string& key, const std::string& text);
  Attempt<std::vector<SettingView>> toReset(const Scope& scope);
  Attempt<platform::Done> resetAll(const std::vector<SettingView>& settings);
  Attempt<Problems> perform(const Change& change);

  preferences::Environment& environment_;
  foundation::ManualQueue& clock_;
  DeferredNotifications& notifications_;
  std::function<Problems()> takeProblems_;
};

}  // namespace host
