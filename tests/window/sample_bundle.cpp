#include "tests/window/sample_bundle.h"

#include "platform/preferences/PSListController.h"

namespace sample {
namespace {

using plist::Array;
using plist::Dictionary;
using plist::Value;
using preferences::Operations;
using preferences::PSListController;
using preferences::PSSpecifier;

// Rules as the bundle's own pages have them: a switch that governs a slider, looked at after each
// change and a moment after the page appears.
class SampleListController : public PSListController {
 public:
  using PSListController::PSListController;
  std::string_view className() const override { return "SampleListController"; }
  const Operations& operations() const override { return ownOperations; }
  static const Operations ownOperations;

  void viewWillAppear(bool animated) override {
    PSListController::viewWillAppear(animated);
    auto self = std::static_pointer_cast<SampleListController>(shared_from_this());
    environment().mainQueue.after(std::chrono::milliseconds(100), [self] { self->evaluate(); });
  }

 private:
  void setValueForSpecifier(const Value& value, PSSpecifier* specifier) {
    setPreferenceValueSpecifier(value, specifier);
    reloadSpecifier(specifier);
    evaluate();
  }
  // Stores nothing and shows again what is stored.
  void refuse(const Value&, PSSpecifier* specifier) { reloadSpecifier(specifier); }
  void evaluate() {
    PSSpecifier* governing = specifierForID("custom");
    PSSpecifier* governed = specifierForID("level");
    if (!governing || !governing->control() || !governed->cellObject()) return;
    bool on = static_cast<uikit::Switch*>(governing->control())->isOn();
    governed->cellObject()->setUserInteractionEnabled(on);
    governed->cellObject()->setAlpha(on ? 1.0 : 0.3f);
  }
  void press(PSSpecifier*) {
    PSSpecifier* pressed = specifierForID("pressed");
    setPreferenceValueSpecifier(Value("yes"), pressed);
    reloadSpecifier(pressed);
  }
  Array manyValues(PSSpecifier*) {
    Array values;
    for (int i = 0; i < 10000; ++i) values.emplace_back(i);
    return values;
  }
  Array manyTitles(PSSpecifier*) {
    Array titles;
    for (int i = 0; i < 10000; ++i) titles.emplace_back("Entry " + std::to_string(i));
    return titles;
  }
  Array none(PSSpecifier*) { return {}; }

  friend class preferences::Operations;
};

const Operations SampleListController::ownOperations{
    []() -> preferences::OperationTable {
      return {
          {"setValue:forSpecifier:", &SampleListController::setValueForSpecifier},
          {"refuse:specifier:", &SampleListController::refuse},
          {"press:", &SampleListController::press},
          {"manyValues:", &SampleListController::manyValues},
          {"manyTitles:", &SampleListController::manyTitles},
          {"none:", &SampleListController::none},
      };
    },
    &PSListController::ownOperations};

class LongListController : public PSListController {
 public:
  using PSListController::PSListController;
  std::string_view className() const override { return "LongListController"; }
};

class BrokenListController : public PSListController {
 public:
  using PSListController::PSListController;
  std::string_view className() const override { return "BrokenListController"; }
};

constexpr preferences::PageClass kPages[] = {
    pageClass<SampleListController>("SampleListController", "SampleListController"),
    pageClass<LongListController>("LongListController", "LongListController"),
    pageClass<BrokenListController>("BrokenListController", "BrokenListController"),
};

Value labelled(const char* cell, const char* id, const char* label, Dictionary more = {}) {
  more.set("label", label);
  return plainRow(cell, id, more);
}

Value stored(const char* cell, const char* id, const char* label, Value standard,
             Dictionary more = {}) {
  more.set("label", label);
  more.set("default", std::move(standard));
  return row(cell, id, std::move(more));
}

Value group(const char* label, const char* footer = "") {
  return Dictionary{{"cell", "PSGroupCell"}, {"label", label}, {"footerText", footer}};
}

Dictionary choices(Array values, Array titles) {
  return {{"detail", "PSListItemsController"},
          {"validValues", std::move(values)},
          {"validTitles", std::move(titles)}};
}

Array everyRow() {
  return {
      group("Switches and a slider",
            "The level counts only while the custom level is switched on."),
      stored("PSSwitchCell", "custom", "Custom level", false, {{"set", "setValue:forSpecifier:"}}),
      stored("PSSliderCell", "level", "Level", 50.0,
             {{"min", 0}, {"max", 100}, {"showValue", true}, {"set", "setValue:forSpecifier:"}}),
      stored("PSSwitchCell", "stubborn", "Stays as it is", false, {{"set", "refuse:specifier:"}}),
      stored("PSSwitchCell", "off", "Not available on this device", true, {{"enabled", false}}),
      group("Choices"),
      stored(
          "PSLinkListCell", "tone", "Tone", 2,
          choices({1, 2, 3}, {"Low", "Middle", "A very long title that no narrow window holds"})),
      stored("PSLinkListCell", "many", "One of very many entries", 5000,
             {{"detail", "PSListItemsController"},
              {"valuesDataSource", "manyValues:"},
              {"titlesDataSource", "manyTitles:"}}),
      stored("PSLinkListCell", "nothing", "No entries at all", Value(),
             {{"detail", "PSListItemsController"},
              {"valuesDataSource", "none:"},
              {"titlesDataSource", "none:"}}),
      stored("PSSegmentCell", "when", "When", "above",
             choices({"above", "at", "below"}, {"Above", "Exactly at", "Below"})),
      stored("PSSegmentCell", "bare", "", 1, choices({1, 2}, {"First", "Second"})),
      group("Text"),
      stored("PSEditTextCell", "name", "Name", "", {{"placeholder", "Somebody"}}),
      stored("PSEditTextCell", "alone", "", "", {{"placeholder", "A text without label"}}),
      stored("PSSecureEditTextCell", "secret", "Password", "secret"),
      stored("PSEditTextViewCell", "message", "", "Several lines\nof text"),
      group("Pages and actions", "Nothing here can break anything."),
      labelled("PSLinkCell", "long", "A long page", {{"detail", "LongListController"}}),
      labelled("PSLinkCell", "broken", "A page that can't be shown",
               {{"detail", "BrokenListController"}}),
      labelled("PSButtonCell", "press", "Press me", {{"action", "press:"}}),
      labelled("PSButtonCell", "delete", "Delete everything",
               {{"action", "press:"}, {"isDestructive", true}}),
      group("Reading only"),
      stored("PSTitleValueCell", "pressed", "Pressed", "no"),
      labelled("PSStaticTextCell", "words",
               "Plain text, which may be long enough to need several lines in a narrow window."),
      labelled("PSSpinnerCell", "wait", "Looking for devices"),
      group("", "A group without rows has its footer all the same."),
      group(""),
      labelled("PSGiantCell", "giant", "Giant"),
      labelled("PSListItemCell", "item", "An item of a list"),
  };
}

Array manyRows() {
  Array rows{group("Many rows")};
  for (int i = 0; i < 60; ++i) {
    std::string id = "row" + std::to_string(i), label = "Row " + std::to_string(i);
    rows.push_back(stored("PSSwitchCell", id.c_str(), label.c_str(), false));
  }
  return rows;
}

std::vector<std::uint8_t> bytesOf(const char* title, Array items) {
  return *plist::writeBinary(list(title, std::move(items)));
}

}  // namespace

const preferences::Bundle& bundle() {
  static const auto sampleList = bytesOf("Sample", everyRow());
  static const auto longList = bytesOf("Long", manyRows());
  static const auto brokenList = bytesOf("Broken", {labelled("PSNoSuchCell", "x", "X")});
  static const preferences::ListResource lists[] = {{"SampleListController", sampleList},
                                                    {"LongListController", longList},
                                                    {"BrokenListController", brokenList}};
  static const preferences::Bundle sample{"SampleListController", kPages, {}, lists};
  return sample;
}

}  // namespace sample
