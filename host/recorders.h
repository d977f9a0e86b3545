#pragma once

#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/services.h"

namespace host {

// URLs that are written down and not opened. Which schemes have an application is the machine's
// answer until it is set.
class RecordedUrls : public platform::Urls {
 public:
  explicit RecordedUrls(platform::Urls& machine) : machine_(machine) {}

  bool canOpen(std::string_view url) override {
    if (!schemes_) return machine_.canOpen(url);
    return schemes_->contains(url.substr(0, url.find(':')));
  }
  bool open(std::string_view url) override { return opened_.emplace_back(url), true; }

  void setSchemes(std::set<std::string, std::less<>> schemes) { schemes_ = std::move(schemes); }
  std::vector<std::string> take() { return std::exchange(opened_, {}); }

 private:
  platform::Urls& machine_;
  std::optional<std::set<std::string, std::less<>>> schemes_;
  std::vector<std::string> opened_;
};

// Sounds that are recorded and not played.
class RecordedSounds : public platform::SystemSounds {
 public:
  void play(const std::optional<std::string>& url) override { played_.push_back(url); }
  std::vector<std::optional<std::string>> take() { return std::exchange(played_, {}); }

 private:
  std::vector<std::optional<std::string>> played_;
};

}  // namespace host
