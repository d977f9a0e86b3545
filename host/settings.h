#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "host/problem.h"
#include "host/scene.h"
#include "host/setting_lookup.h"
#include "platform/foundation/main_queue.h"
#include "platform/preferences/environment.h"

namespace host {

class Application;

// The settings by their keys and pages, without a user at a screen: pages are opened, and rows are
// changed, as the user would.
class Settings {
 public:
  using Problems = std::vector<Problem>;

  // `clock`: the environment's main queue. `takeProblems` gives what the store has reported since
  // it was last called.
  Settings(preferences::Environment& environment, foundation::ManualQueue& clock,
           std::function<Problems()> takeProblems)
      : environment_(environment), clock_(clock), takeProblems_(std::move(takeProblems)) {}

  // One page, opened alone, with all its rows on screen and its rules applied.
  Attempt<PageView> page(std::string_view pageClass);
  Attempt<std::vector<PageView>> pages();  // all of the bundle, in its order

  // What the row of that key shows: what is stored, else the row's default. No page is opened for a
  // row without a getter of its own.
  Attempt<plist::Value> value(std::string_view key);
  Attempt<ChoiceList> choices(std::string_view key);

  // Changes the row of that key through its own setter. The text is "true" or "false" for a switch,
  // a number for a slider, the name of one of its values (see namingText) for a row of choices, a
  // color (see chooseColor), else the text itself. Gives what was reported though it is stored.
  Attempt<Problems> set(std::string_view key, const std::string& text);

 private:
  Attempt<Setting> find(std::string_view key) const;
  Attempt<std::unique_ptr<Application>> open(std::string_view pageClass);
  Attempt<Problems> change(const std::function<Attempt<platform::Done>()>& change);

  preferences::Environment& environment_;
  foundation::ManualQueue& clock_;
  std::function<Problems()> takeProblems_;
};

}  // namespace host
