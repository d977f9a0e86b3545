#pragma once

#include <functional>
#include <string>

#include "platform/services.h"

// The services as the host is given them: nothing is loaded before the first call that needs it.
// What a missing module means for a caller that ignores failures stands beside each.
namespace services {

// Plain ASCII is compared without loading anything where compareAscii knows the order. Without ICU
// all else is in the order of its bytes, and `report` is called once with the reason.
class UserCollator : public platform::Collator {
 public:
  explicit UserCollator(platform::Report report = {});
  int compare(std::string_view a, std::string_view b) override;
  std::optional<platform::SortKeys> sortKeys(const std::vector<std::string_view>& texts) override;

 private:
  bool asciiOrderKnown_;
  platform::Report report_;
};

// Without the module posts are dropped, as they are without a bus.
class SessionNotificationCenter : public platform::DarwinNotificationCenter {
 public:
  void post(std::string_view name) override;
};

// Without the module no URL has an application.
class DesktopUrls : public platform::Urls {
 public:
  bool canOpen(std::string_view url) override;
  bool open(std::string_view url) override;
};

// Property lists in XML. Without the module every call fails with the reason.
class LazyXml : public platform::XmlPropertyLists {
 public:
  platform::Result<plist::Value> read(plist::Bytes bytes) override;
  platform::Result<std::vector<std::uint8_t>> write(const plist::Value& value) override;
};

}  // namespace services
