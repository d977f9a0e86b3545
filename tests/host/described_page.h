#pragma once

#include "host/application.h"
#include "host/describe.h"
#include "prefs/pages/DependentListController.h"
#include "prefs/resources/bundle.h"
#include "tests/support/environment.h"
#include "tests/support/sample_lists.h"

// An application on a page whose list a test writes itself.
namespace described {

using sample::kDomain;

// A row of that cell; its id and key are `id`, its label is the id in brackets.
plist::Value row(std::string_view cell, std::string_view id,
                 std::initializer_list<plist::Dictionary::Entry> more = {});

// Row "whileon" is dimmed while row "switch" is off, row "whileoff" while it is on.
class Page : public prefs::DependentListController {
 public:
  using DependentListController::DependentListController;
  std::string_view className() const override { return "Page"; }
  std::span<const prefs::DependencyRule> rules() const override;
  plist::Array numbers(preferences::PSSpecifier*) { return values; }
  plist::Value shout(preferences::PSSpecifier* row) {
    return *readPreferenceValue(row).text() + "!";
  }

  plist::Array values{1, 2};

  const preferences::Operations& operations() const override { return ownOperations; }
  static const preferences::Operations ownOperations;
};

class Bundle {
 public:
  explicit Bundle(plist::Array rows);
  const preferences::Bundle& bundle() const { return bundle_; }

 private:
  std::vector<std::uint8_t> bytes_;
  preferences::ListResource list_;
  preferences::Bundle bundle_;
};

// The page is launched, and its rules aren't applied yet.
class Shown : private Bundle, public testing_support::TestDevice {
 public:
  explicit Shown(plist::Array rows, int viewport = 100, int atLeast = 0);

  host::Application application;

  host::RowView row(const std::string& id) const;
  template <class View>
  View control(const std::string& id) const {
    return std::get<View>(row(id).control);
  }
  preferences::PSSpecifier& specifier(const std::string& id) { return **application.row(id); }
  Page& page() { return dynamic_cast<Page&>(*application.shownPage()); }
  void applyRules() { queue.advance(std::chrono::milliseconds(100)); }
  // As another process would.
  void storeElsewhere(std::string_view key, const plist::Value& value);
};

}  // namespace described
