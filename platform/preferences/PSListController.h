#pragma once

#include <any>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/preferences/PSSpecifier.h"
#include "platform/preferences/PSTableCell.h"
#include "platform/preferences/PSViewController.h"

namespace preferences {

// A page of rows that come from a specifier list.
class PSListController : public PSViewController {
 public:
  using Specifiers = std::vector<std::shared_ptr<PSSpecifier>>;

  using PSViewController::PSViewController;
  std::string_view className() const override { return "PSListController"; }

  // The page's rows, loaded on first use from the list that bears the class's name.
  virtual const Specifiers& specifiers();
  // The rows of a list of the bundle; a page takes its title from it unless a row opened the page.
  // A list row's data sources are asked when its choices are. An unknown or broken list gives no
  // rows and a description of what is wrong in `loadError`.
  Specifiers loadSpecifiersFromPlistNameTarget(std::string_view name, PSListController& target);
  const std::string& loadError() const { return loadError_; }

  PSSpecifier* specifierForID(std::string_view identifier);  // the first of that id, or null

  // Makes a built row's cell anew, showing the stored value.
  void reloadSpecifier(PSSpecifier* specifier);
  // Drops all rows and loads the list anew; does nothing for a data source that is being asked.
  virtual void reloadSpecifiers();

  // Stores under the row's "key" in its "defaults" and posts its "PostNotification". Without key or
  // defaults nothing is stored.
  void setPreferenceValueSpecifier(const plist::Value& value, PSSpecifier* specifier);
  // The stored value, else the row's "default", else Nothing.
  plist::Value readPreferenceValue(PSSpecifier* specifier);

  void viewDidLoad() override;

  // What the platform does for a row. Its value comes through the row's getter, a change goes
  // through its setter, where the list names one.
  plist::Value valueOf(PSSpecifier& specifier);
  void userChanged(PSSpecifier& specifier, const plist::Value& value);
  void buildRow(PSSpecifier& specifier);  // makes the cell and control of a row come on screen
  // Shows the value of now in the row's cell, which stays as it is otherwise.
  void refreshRow(PSSpecifier& specifier);
  // Asks the environment's source of choices, else the row's data sources, again.
  void loadChoices(PSSpecifier& specifier, ChoicesFor what = ChoicesFor::Opening);
  // The table scrolled.
  virtual void scrollViewDidScroll(uikit::View*) {}

  const Operations& operations() const override { return ownOperations; }
  static const Operations ownOperations;

 protected:
  std::optional<Specifiers> specifiers_;

  void loadRows() { specifiers(); }  // `specifiers` as an operation without a result

  // What read() gives. Both data sources of a row get what the first of them has read, as far as
  // they read the same type.
  template <class Read>
  auto readForBoth(Read read) {
    using Result = decltype(read());
    if (!asking_) return read();
    if (!std::any_cast<Result>(&readForBoth_)) readForBoth_ = read();
    return *std::any_cast<Result>(&readForBoth_);
  }

 private:
  foundation::Object* findSpecifier(const std::string& identifier);

  std::unordered_map<std::string_view, PSSpecifier*> byIdentifier_;
  std::string loadError_;
  bool asking_ = false;   // a data source
  std::any readForBoth_;  // while it is
};

}  // namespace preferences
