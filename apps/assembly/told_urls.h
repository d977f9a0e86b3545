#pragma once

#include <functional>
#include <string>
#include <utility>

#include "platform/services.h"

namespace assembly {

// URLs of which the user hears when they can't be opened.
class ToldUrls : public platform::Urls {
 public:
  using Problem = std::function<void(const std::string& message)>;

  ToldUrls(platform::Urls& next, Problem problem) : next_(next), problem_(std::move(problem)) {}

  bool canOpen(std::string_view url) override { return next_.canOpen(url); }
  bool open(std::string_view url) override {
    const bool opened = next_.open(url);
    if (!opened) problem_("can't open " + std::string(url));
    return opened;
  }

 private:
  platform::Urls& next_;
  Problem problem_;
};

}  // namespace assembly
