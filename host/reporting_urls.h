#pragma once

#include <functional>
#include <string>
#include <utility>

#include "platform/services.h"
#include "services/services.h"

namespace host {

// The machine's URLs. When one can't be opened that is reported, with the
// library that is missing for it.
class ReportingUrls : public platform::Urls {
 public:
  ReportingUrls(platform::Urls& next, platform::Report report)
      : next_(next), report_(std::move(report)) {}

  bool canOpen(std::string_view url) override { return next_.canOpen(url); }
  bool open(std::string_view url) override {
    if (next_.open(url)) return true;
    const auto& desktop = services::find<platform::Urls>();
    platform::Error error{.what = "can't open " + std::string(url)};
    report_(desktop ? error : std::move(error).because(desktop.error()));
    return false;
  }

 private:
  platform::Urls& next_;
  platform::Report report_;
};

}  // namespace host
