#include "tests/host/sample_bundle.h"

#include "platform/uikit/alert_controller.h"

namespace sample {
namespace {

plist::Value firstList() {
  const plist::Array items{
      plainRow("PSGroupCell", "group"),
      row("PSSwitchCell", "switch", {{"default", false}, {"PostNotification", "changed"}}),
      row("PSSliderCell", "slider", {{"min", 0.5}, {"max", 100.0}, {"default", 50.0}}),
      row("PSLinkListCell", "list",
          {{"valuesDataSource", "numbers:"}, {"titlesDataSource", "names:"}, {"default", 2}}),
      row("PSSegmentCell", "segment",
          {{"validValues", plist::Array{0, 1}}, {"validTitles", plist::Array{"Off", "On"}}}),
      row("PSEditTextCell", "text"),
      row("PSSwitchCell", "dimmed", {{"enabled", false}}),
      row("PSSwitchCell", "reloading", {{"set", "setThenReload:forSpecifier:"}}),
      plainRow("PSLinkCell", "link", {{"detail", "Second"}}),
      plainRow("PSLinkCell", "nowhere", {{"detail", "Nowhere"}}),
      plainRow("PSLinkCell", "table", {{"detail", "Table"}}),
      plainRow("PSButtonCell", "button", {{"action", "act"}}),
      plainRow("PSButtonCell", "buttonfor", {{"action", "actFor:"}}),
      plainRow("PSButtonCell", "alert", {{"action", "present"}}),
  };
  return list("First Page", items);
}

plist::Value secondList() {
  return list("Second Page", {row("PSSwitchCell", "switch")});
}

}  // namespace

const preferences::Operations ListPage::ownOperations{
    []() -> preferences::OperationTable {
      return {
          {"numbers:", &ListPage::numbers},
          {"names:", &ListPage::names},
          {"act", &ListPage::act},
          {"actFor:", &ListPage::actFor},
          {"setThenReload:forSpecifier:", &ListPage::setThenReload},
          {"echo:object:", &ListPage::echo},
          {"present", &ListPage::present},
      };
    },
    &DependentListController::ownOperations};

void ListPage::viewDidLoad() {
  note("viewDidLoad from " + (specifier() ? specifier()->identifier() : std::string("nowhere")));
  DependentListController::viewDidLoad();
}

void ListPage::viewWillAppear(bool animated) {
  note("viewWillAppear");
  DependentListController::viewWillAppear(animated);
  bool built = false;
  for (const auto& row : specifiers()) built |= row->isBuilt();
  note(built ? "has cells" : "has no cells");
}

void ListPage::viewWillDisappear(bool animated) {
  note(animated ? "viewWillDisappear" : "viewWillDisappear at once");
  DependentListController::viewWillDisappear(animated);
}

void ListPage::scrollViewDidScroll(uikit::View*) {
  note("scrolled, last row " + std::string(specifiers().back()->isBuilt() ? "built" : "not built"));
}

plist::Array ListPage::names(preferences::PSSpecifier*) {
  plist::Array names;
  for (const auto& value : choiceValues)
    names.push_back("number " + std::to_string(*value.integer()));
  return names;
}

void ListPage::setThenReload(const plist::Value& value, preferences::PSSpecifier* specifier) {
  setPreferenceValueSpecifier(value, specifier);
  reloadSpecifiers();
}

plist::Value ListPage::echo(const plist::Value& value, foundation::Object* object) {
  return plist::Array{value, object ? std::string(object->className()) : "nil"};
}

void ListPage::present() {
  auto alert =
      std::make_shared<uikit::AlertController>("Title", "Message", uikit::AlertStyle::Alert);
  alert->addAction({"Ok", uikit::ButtonRole::Default, [this] { note("Ok pressed"); }});
  environment().screen->present(alert);
}

std::span<const prefs::DependencyRule> ListPage::rules() const {
  static constexpr prefs::DependencyRule kRules[] = {{prefs::Key("switch"), prefs::Key("dimmed")}};
  return kRules;
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

const preferences::Bundle& Device::bundle() {
  static const auto kFirst = *plist::writeBinary(firstList());
  static const auto kSecond = *plist::writeBinary(secondList());
  static const std::uint8_t kBroken[] = {'b', 'r', 'o', 'k', 'e', 'n'};
  static const preferences::PageClass kPages[] = {
      pageClass<First>("First", "First"),
      pageClass<Second>("Second", "Second"),
      pageClass<Broken>("Broken", "Broken"),
      pageClass<Table>("Table", {}),
  };
  static const preferences::ListResource kLists[] = {
      {"First", kFirst}, {"Second", kSecond}, {"Broken", kBroken}};
  static const preferences::Bundle kBundle{"First", kPages, {}, kLists};
  return kBundle;
}

Device::Device() : TestDevice(bundle()) {
  events.clear();
}

}  // namespace sample
