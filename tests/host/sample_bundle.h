#pragma once

#include <string>
#include <vector>

#include "host/application.h"
#include "prefs/pages/DependentListController.h"
#include "tests/support/environment.h"
#include "tests/support/sample_lists.h"

// A bundle of three pages: "First" has a row of each kind, "Second" is led to, "Table" is a table
// of 20 rows of which the last holds a slider.
namespace sample {

// What the pages went through, in order, as "First viewDidLoad".
inline std::vector<std::string> events;

class ListPage : public prefs::DependentListController {
 public:
  using DependentListController::DependentListController;

  void loadView() override { note("loadView"); }
  void viewDidLoad() override;
  void viewWillAppear(bool animated) override;
  void viewWillDisappear(bool animated) override;
  void scrollViewDidScroll(uikit::View* view) override;

  plist::Array numbers(preferences::PSSpecifier*) { return choiceValues; }
  plist::Array names(preferences::PSSpecifier*);
  void act() { note("act"); }
  void actFor(preferences::PSSpecifier* sender) { note("actFor " + sender->identifier()); }
  void setThenReload(const plist::Value& value, preferences::PSSpecifier* specifier);
  plist::Value echo(const plist::Value& value, foundation::Object* object);
  void present();
  std::span<const prefs::DependencyRule> rules() const override;

  plist::Array choiceValues{1, 2};

  const preferences::Operations& operations() const override { return ownOperations; }
  static const preferences::Operations ownOperations;

 protected:
  void note(const std::string& what) { events.push_back(std::string(className()) + " " + what); }
};

class First : public ListPage {
 public:
  using ListPage::ListPage;
  std::string_view className() const override { return "First"; }
};

class Second : public ListPage {
 public:
  using ListPage::ListPage;
  ~Second() override { note("dealloc"); }
  std::string_view className() const override { return "Second"; }
};

class Broken : public ListPage {
 public:
  using ListPage::ListPage;
  std::string_view className() const override { return "Broken"; }
};

inline constexpr int kSliderTag = 31;
inline constexpr int kTableRows = 20;

class Table : public preferences::PSViewController, public uikit::TableViewSource {
 public:
  using PSViewController::PSViewController;
  std::string_view className() const override { return "Table"; }
  void loadView() override;
  uikit::TableView* table() const override { return table_.get(); }

  int numberOfSectionsInTableView(uikit::TableView&) override { return 2; }
  int tableViewNumberOfRowsInSection(uikit::TableView&, int section) override;
  std::shared_ptr<uikit::TableViewCell> tableViewCellForRowAtIndexPath(
      uikit::TableView& table, uikit::IndexPath path) override;
  void tableViewDidSelectRowAtIndexPath(uikit::TableView& table, uikit::IndexPath path) override;

  std::vector<uikit::IndexPath> selected, made;
  int dragged = 0, released = 0;

 private:
  std::shared_ptr<uikit::TableView> table_;
};

class Device : public testing_support::TestDevice {
 public:
  Device();

 private:
  static const preferences::Bundle& bundle();
};

// A Settings application with "First" on screen, which shows `viewport` entries.
class Settings : public Device {
 public:
  explicit Settings(int viewport = 100) : application(environment, viewport) {
    static_cast<void>(application.perform(host::Launch{}));
    events.clear();
  }

  host::Application application;

  preferences::PSSpecifier& row(const std::string& id) { return **application.row(id); }
  plist::Value stored(std::string_view key) {
    return preferences.copyAppValue(key, kDomain).value_or(plist::Value());
  }
  Table& table() { return dynamic_cast<Table&>(*application.shownPage()); }
};

template <class T>
std::optional<host::RefusalCode> refusalOf(const host::Outcome<T>& outcome) {
  if (outcome) return std::nullopt;
  return outcome.error().code;
}

}  // namespace sample
