#pragma once

#include "platform/preferences/PSListController.h"
#include "platform/preferences/control_cells.h"
#include "tests/support/environment.h"
#include "tests/support/sample_lists.h"

// A bundle of one page with a row of each kind that stores something.
namespace sample {

class Page : public preferences::PSListController {
 public:
  using PSListController::PSListController;
  std::string_view className() const override { return "Page"; }

  plist::Array numbers(preferences::PSSpecifier*) {
    ++asked;
    if (whenAsked) whenAsked(*this);
    return numberValues;
  }
  plist::Array names(preferences::PSSpecifier*) { return {"one", "two"}; }
  void act() { ++acted; }
  void actFor(preferences::PSSpecifier* sender) { actedFor = sender; }
  void actWith(const plist::Value& first, foundation::Object* second) {
    if (first.isNothing() && !second) ++acted;
  }
  void setValueForSpecifier(const plist::Value& value, preferences::PSSpecifier* specifier) {
    ++setterCalls;
    setPreferenceValueSpecifier(value, specifier);
    reloadSpecifier(specifier);
  }
  plist::Value shout(preferences::PSSpecifier* specifier) {
    return plist::Value(*readPreferenceValue(specifier).text() + "!");
  }

  plist::Array numberValues{1, 2};
  std::function<void(Page&)> whenAsked;
  int asked = 0, acted = 0, setterCalls = 0;
  preferences::PSSpecifier* actedFor = nullptr;

  const preferences::Operations& operations() const override { return ownOperations; }
  inline static const preferences::Operations ownOperations{
      []() -> preferences::OperationTable {
        return {
            {"numbers:", &Page::numbers},  {"names:", &Page::names},
            {"act", &Page::act},           {"actFor:", &Page::actFor},
            {"act:with:", &Page::actWith}, {"setValue:forSpecifier:", &Page::setValueForSpecifier},
            {"shout:", &Page::shout},
        };
      },
      &PSListController::ownOperations};
};

inline plist::Value everyRow() {
  return list(
      "Sample",
      {
          plist::Dictionary{{"cell", "PSGroupCell"}, {"label", "Group"}},
          row("PSSwitchCell", "switch", {{"default", 1}, {"PostNotification", "changed"}}),
          row("PSSliderCell", "slider", {{"min", 0.0}, {"max", 100.0}, {"default", 50}}),
          row("PSLinkListCell", "list",
              {{"valuesDataSource", "numbers:"}, {"titlesDataSource", "names:"}, {"default", 2}}),
          row("PSSegmentCell", "segment",
              {{"validValues", plist::Array{0, 1}}, {"validTitles", plist::Array{"Off", "On"}}}),
          row("PSEditTextCell", "text",
              {{"placeholder", "type"}, {"get", "shout:"}, {"default", "hey"}}),
          row("PSSwitchCell", "negated", {{"negate", true}, {"default", false}}),
          row("PSSwitchCell", "own", {{"set", "setValue:forSpecifier:"}}),
          plist::Dictionary{{"cell", "PSButtonCell"}, {"id", "button"}, {"action", "act"}},
          plist::Dictionary{{"cell", "PSSwitchCell"}, {"id", "nowhere"}, {"default", true}},
      });
}

class Device : public testing_support::TestDevice {
 public:
  Device() : TestDevice(bundle_), bytes_(*plist::writeBinary(everyRow())) {}

  std::shared_ptr<Page> page() {
    auto made = std::make_shared<Page>(environment);
    made->viewDidLoad();
    return made;
  }

 private:
  inline static const preferences::PageClass kPages[] = {pageClass<Page>("Page", "Page")};
  std::vector<std::uint8_t> bytes_;
  preferences::ListResource lists_[1] = {{"Page", bytes_}};
  preferences::Bundle bundle_{"Page", kPages, {}, lists_};
};

}  // namespace sample
