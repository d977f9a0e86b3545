#include "tests/support/sample_bundle.h"

#include "platform/plist/binary.h"
#include "platform/uikit/alert_controller.h"

namespace sample {

using plist::Array;
using plist::Dictionary;
using plist::Value;
using preferences::PSSpecifier;

namespace {

using First = NamedPage<"First">;
using Second = NamedPage<"Second">;
using Sample = NamedPage<"Sample">;
using Long = NamedPage<"Long">;
using Broken = NamedPage<"Broken">;

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

Value manyRows() {
  Array rows{group("Many rows")};
  for (int i = 0; i < 60; ++i) {
    const std::string id = "row" + std::to_string(i), label = "Row " + std::to_string(i);
    rows.push_back(stored("PSSwitchCell", id.c_str(), label.c_str(), false));
  }
  return list("Long", std::move(rows));
}

}  // namespace

Value firstList() {
  return list(
      "First Page",
      {
          plainRow("PSGroupCell", "group"),
          row("PSSwitchCell", "switch", {{"default", false}, {"PostNotification", "changed"}}),
          row("PSSliderCell", "slider", {{"min", 0.5}, {"max", 100.0}, {"default", 50.0}}),
          row("PSLinkListCell", "list",
              {{"valuesDataSource", "numbers:"}, {"titlesDataSource", "names:"}, {"default", 2}}),
          row("PSSegmentCell", "segment",
              {{"validValues", Array{0, 1}}, {"validTitles", Array{"Off", "On"}}}),
          row("PSEditTextCell", "text"),
          row("PSSwitchCell", "dimmed", {{"enabled", false}}),
          row("PSSwitchCell", "reloading", {{"set", "setThenReload:forSpecifier:"}}),
          plainRow("PSLinkCell", "link", {{"detail", "Second"}}),
          plainRow("PSLinkCell", "nowhere", {{"detail", "Nowhere"}}),
          plainRow("PSLinkCell", "table", {{"detail", "Table"}}),
          plainRow("PSButtonCell", "button", {{"action", "act"}}),
          plainRow("PSButtonCell", "buttonfor", {{"action", "actFor:"}}),
          plainRow("PSButtonCell", "alert", {{"action", "present"}}),
          row("PSSwitchCell", "on", {{"default", 1}}),
          row("PSEditTextCell", "loud",
              {{"placeholder", "type"}, {"get", "shout:"}, {"default", "hey"}}),
          row("PSSwitchCell", "negated", {{"negate", true}, {"default", false}}),
          row("PSSwitchCell", "own", {{"set", "setValue:forSpecifier:"}}),
          plainRow("PSSwitchCell", "unstored", {{"default", true}}),
      });
}

Value everyKindOfRow() {
  return list(
      "Sample",
      {
          group("Switches and a slider",
                "The level counts only while the custom level is switched on."),
          stored("PSSwitchCell", "custom", "Custom level", false,
                 {{"set", "setValue:forSpecifier:"}}),
          stored(
              "PSSliderCell", "level", "Level", 50.0,
              {{"min", 0}, {"max", 100}, {"showValue", true}, {"set", "setValue:forSpecifier:"}}),
          stored("PSSwitchCell", "stubborn", "Stays as it is", false,
                 {{"set", "refuse:specifier:"}}),
          stored("PSSwitchCell", "off", "Not available on this device", true, {{"enabled", false}}),
          group("Choices"),
          stored("PSLinkListCell", "tone", "Tone", 2,
                 choices({1, 2, 3},
                         {"Low", "Middle", "A very long title that no narrow window holds"})),
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
          labelled("PSLinkCell", "long", "A long page", {{"detail", "Long"}}),
          labelled("PSLinkCell", "broken", "A page that can't be shown", {{"detail", "Broken"}}),
          labelled("PSButtonCell", "press", "Press me", {{"action", "press:"}}),
          labelled("PSButtonCell", "delete", "Delete everything",
                   {{"action", "press:"}, {"isDestructive", true}}),
          group("Reading only"),
          stored("PSTitleValueCell", "pressed", "Pressed", "no"),
          labelled(
              "PSStaticTextCell", "words",
              "Plain text, which may be long enough to need several lines in a narrow window."),
          labelled("PSSpinnerCell", "wait", "Looking for devices"),
          group("", "A group without rows has its footer all the same."),
          group(""),
          labelled("PSGiantCell", "giant", "Giant"),
          labelled("PSListItemCell", "item", "An item of a list"),
      });
}

const preferences::Operations ListPage::ownOperations{
    []() -> preferences::OperationTable {
      return {
          {"numbers:", &ListPage::numbers},
          {"names:", &ListPage::names},
          {"act", &ListPage::act},
          {"actFor:", &ListPage::actFor},
          {"act:with:", &ListPage::actWith},
          {"setValue:forSpecifier:", &ListPage::setValueForSpecifier},
          {"setThenReload:forSpecifier:", &ListPage::setThenReload},
          {"refuse:specifier:", &ListPage::refuse},
          {"shout:", &ListPage::shout},
          {"echo:object:", &ListPage::echo},
          {"press:", &ListPage::press},
          {"present", &ListPage::present},
          {"manyValues:", &ListPage::manyValues},
          {"manyTitles:", &ListPage::manyTitles},
          {"none:", &ListPage::none},
      };
    },
    &PSListController::ownOperations};

void ListPage::viewDidLoad() {
  note("viewDidLoad from " + (specifier() ? specifier()->identifier() : std::string("nowhere")));
  PSListController::viewDidLoad();
}

void ListPage::viewWillAppear(bool animated) {
  note("viewWillAppear");
  PSListController::viewWillAppear(animated);
  bool built = false;
  for (const auto& row : specifiers()) built |= row->isBuilt();
  note(built ? "has cells" : "has no cells");
  auto self = std::static_pointer_cast<ListPage>(shared_from_this());
  environment().mainQueue.after(std::chrono::milliseconds(100), [self] { self->evaluate(); });
}

void ListPage::viewWillDisappear(bool animated) {
  note(animated ? "viewWillDisappear" : "viewWillDisappear at once");
  PSListController::viewWillDisappear(animated);
}

void ListPage::scrollViewDidScroll(uikit::View*) {
  note("scrolled, last row " + std::string(specifiers().back()->isBuilt() ? "built" : "not built"));
}

void ListPage::evaluate() {
  PSSpecifier* governing = specifierForID("custom");
  PSSpecifier* governed = specifierForID("level");
  if (!governing || !governing->control() || !governed->cellObject()) return;
  const bool on = governing->control()->isOn();
  governed->cellObject()->setUserInteractionEnabled(on);
  governed->cellObject()->setAlpha(on ? 1.0 : 0.3f);
}

Array ListPage::numbers(PSSpecifier*) {
  ++asked;
  readForBoth([this] { return ++read; });
  if (whenAsked) whenAsked(*this);
  return choiceValues;
}

Array ListPage::names(PSSpecifier*) {
  if (readsApart)
    readForBoth([this] { return std::to_string(++read); });
  else
    readForBoth([this] { return ++read; });
  if (!choiceTitles.empty()) return choiceTitles;
  Array names;
  for (const auto& value : choiceValues)
    names.push_back("number " + std::to_string(*value.integer()));
  return names;
}

void ListPage::actWith(const Value& first, foundation::Object* second) {
  if (first.isNothing() && !second) note("act with nil twice");
}

void ListPage::setValueForSpecifier(const Value& value, PSSpecifier* specifier) {
  ++setterCalls;
  setPreferenceValueSpecifier(value, specifier);
  reloadSpecifier(specifier);
  evaluate();
}

void ListPage::setThenReload(const Value& value, PSSpecifier* specifier) {
  setPreferenceValueSpecifier(value, specifier);
  reloadSpecifiers();
}

Value ListPage::shout(PSSpecifier* specifier) {
  return *readPreferenceValue(specifier).text() + "!";
}

Value ListPage::echo(const Value& value, foundation::Object* object) {
  return Array{value, object ? std::string(object->className()) : "nil"};
}

void ListPage::press(PSSpecifier*) {
  PSSpecifier* pressed = specifierForID("pressed");
  setPreferenceValueSpecifier("yes", pressed);
  reloadSpecifier(pressed);
}

void ListPage::present() {
  auto alert =
      std::make_shared<uikit::AlertController>("Title", "Message", uikit::AlertStyle::Alert);
  alert->addAction({"Ok", uikit::ButtonRole::Default, [this] { note("Ok pressed"); }});
  environment().screen->present(alert);
}

Array ListPage::manyValues(PSSpecifier*) {
  Array values;
  for (int i = 0; i < 10000; ++i) values.emplace_back(i);
  return values;
}

Array ListPage::manyTitles(PSSpecifier*) {
  Array titles;
  for (int i = 0; i < 10000; ++i) titles.emplace_back("Entry " + std::to_string(i));
  return titles;
}

void Table::loadView() {
  table_ = std::make_shared<uikit::TableView>();
  table_->source = this;
}

int Table::tableViewNumberOfRowsInSection(uikit::TableView&, int section) {
  return section == 0 ? 5 : kTableRows - 5;
}

std::shared_ptr<uikit::TableViewCell> Table::tableViewCellForRowAtIndexPath(uikit::TableView&,
                                                                            uikit::IndexPath path) {
  made.push_back(path);
  auto cell = std::make_shared<uikit::TableViewCell>(uikit::CellStyle::Default, "cell");
  if (path != uikit::IndexPath{1, kTableRows - 6}) return cell;
  auto slider = std::make_shared<uikit::Slider>();
  slider->tag = kSliderTag;
  slider->setRange(0, 255);
  slider->addAction(uikit::event::kValueChanged, [this](uikit::Control&) { ++dragged; });
  slider->addAction(uikit::event::kTouchUpInside, [this](uikit::Control&) { ++released; });
  cell->addSubview(slider);
  return cell;
}

void Table::tableViewDidSelectRowAtIndexPath(uikit::TableView&, uikit::IndexPath path) {
  selected.push_back(path);
}

const preferences::Bundle& bundle() {
  static const auto first = *plist::writeBinary(firstList());
  static const auto second =
      *plist::writeBinary(list("Second Page", {row("PSSwitchCell", "switch")}));
  static const auto every = *plist::writeBinary(everyKindOfRow());
  static const auto many = *plist::writeBinary(manyRows());
  static const auto broken =
      *plist::writeBinary(list("Broken", {labelled("PSNoSuchCell", "x", "X")}));
  static const preferences::PageClass pages[] = {
      pageClass<First>("First", "First"),    pageClass<Second>("Second", "Second"),
      pageClass<Sample>("Sample", "Sample"), pageClass<Long>("Long", "Long"),
      pageClass<Broken>("Broken", "Broken"), pageClass<Table>("Table", {}),
  };
  static const preferences::ListResource lists[] = {
      {"First", first}, {"Second", second}, {"Sample", every}, {"Long", many}, {"Broken", broken}};
  static const preferences::Bundle sample{"First", pages, {}, lists};
  return sample;
}

}  // namespace sample
