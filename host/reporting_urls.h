#pragma once

#include <functional>
#include <string>
#include <utility>

#include "platform/services.h"
#include "services/services.h"

namespace host {

// The machine's URLs. When one can't be opened the user hears of it, and of a library that is
// missing for it.
class ReportingUrls : public platform::Urls {
 public:
  using Problem = std::function<void(const std::string& message)>;

  ReportingUrls(platform::Urls& next, Problem problem)
      : next_(next), problem_(std::move(problem)) {}

  bool canOpen(std::string_view url) override { return next_.canOpen(url); }
  bool open(std::string_view url) override {
    if (next_.open(url)) return true;
    const auto& desktop = services::find<platform::Urls>();
    problem_("can't open " + std::string(url) + (desktop ? "" : ": " + desktop.error().message()));
    return false;
  }

 private:
  platform::Urls& next_;
  Problem problem_;
};

}  // namespace host
