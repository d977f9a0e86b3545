#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "platform/preferences/PSListController.h"
#include "platform/uikit/table_view.h"
#include "tests/support/sample_lists.h"

// A settings bundle of six pages. "First", the principal one, has a row of each kind that stores
// something or does something, and "Sample" one of every kind that can be drawn; both lead to
// others. "Second" has one row, "Long" more than any screen holds, "Broken" a list that can't be
// read, "Table" 20 rows of a table of which the last holds a slider.
namespace sample {

// What the pages went through, in order, as "First viewDidLoad".
inline std::vector<std::string> events;

class ListPage : public preferences::PSListController {
 public:
  using PSListController::PSListController;

  void loadView() override { note("loadView"); }
  void viewDidLoad() override;
  void viewWillAppear(bool animated) override;  // 0.1 s later row "custom" governs row "level"
  void viewWillDisappear(bool animated) override;
  void scrollViewDidScroll(uikit::View* view) override;

  plist::Array numbers(preferences::PSSpecifier*);
  plist::Array names(preferences::PSSpecifier*);  // "number 1" for 1, or choiceTitles
  void act() { note("act"); }
  void actFor(preferences::PSSpecifier* sender) {
    note("actFor " + (sender ? sender->identifier() : "nobody"));
  }
  void actWith(const plist::Value& first, foundation::Object* second);  // notes two nils
  void setValueForSpecifier(const plist::Value& value, preferences::PSSpecifier* specifier);
  void setThenReload(const plist::Value& value, preferences::PSSpecifier* specifier);
  // Stores nothing and shows again what is stored.
  void refuse(const plist::Value&, preferences::PSSpecifier* row) { reloadSpecifier(row); }
  plist::Value shout(preferences::PSSpecifier* specifier);
  plist::Value echo(const plist::Value& value, foundation::Object* object);
  void press(preferences::PSSpecifier*);  // stores "yes" in row "pressed"
  void present();                         // an alert with one button
  plist::Array manyValues(preferences::PSSpecifier*);
  plist::Array manyTitles(preferences::PSSpecifier*);
  plist::Array none(preferences::PSSpecifier*) { return {}; }

  plist::Array choiceValues{1, 2};
  plist::Array choiceTitles;
  std::function<void(ListPage&)> whenAsked;  // for the numbers
  int asked = 0, setterCalls = 0;
  int read = 0;             // what numbers and names have in common
  bool readsApart = false;  // names then reads a text

  const preferences::Operations& operations() const override { return ownOperations; }
  static const preferences::Operations ownOperations;

 protected:
  void note(const std::string& what) { events.push_back(std::string(className()) + " " + what); }

 private:
  void evaluate();
};

template <std::size_t kSize>
struct Name {
  char text[kSize];
  consteval Name(const char (&from)[kSize]) { std::copy_n(from, kSize, text); }
};

template <Name kName>
class NamedPage : public ListPage {
 public:
  using ListPage::ListPage;
  ~NamedPage() override { note("dealloc"); }
  std::string_view className() const override { return kName.text; }
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

const preferences::Bundle& bundle();
// The lists as the build would compile them.
plist::Value firstList();
plist::Value everyKindOfRow();

}  // namespace sample
