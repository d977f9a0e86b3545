#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/foundation/object.h"
#include "platform/plist/value.h"
#include "platform/preferences/cell_type.h"
#include "platform/preferences/choices.h"

namespace uikit {
class Control;
}

namespace preferences {

class PSListController;
class PSTableCell;

// One row of a page, as its list describes it, and, once the row is built, its cell and control.
class PSSpecifier : public foundation::Object {
 public:
  PSSpecifier(CellType type, plist::Dictionary properties);
  std::string_view className() const override { return "PSSpecifier"; }

  CellType cellType() const { return type_; }
  const std::string& name() const;        // "label"
  const std::string& identifier() const;  // "id", else "key", else "label"

  const plist::Dictionary& properties() const { return properties_; }
  // Any property of the list, and "value" once the row has been read. Nothing when absent.
  const plist::Value& propertyForKey(std::string_view key) const;
  void setPropertyForKey(plist::Value value, std::string_view key);
  // The text of a property; empty when it is absent or not text.
  std::string_view textForKey(std::string_view key) const;
  bool boolForKey(std::string_view key, bool otherwise) const;

  PSTableCell* cellObject() const { return cell_.get(); }  // null before the row is built
  uikit::Control* control() const;                         // null when the row has none
  bool isBuilt() const { return cell_ != nullptr; }
  void setCellObject(std::shared_ptr<PSTableCell> cell) { cell_ = std::move(cell); }

  // The page that the row's selectors are sent to.
  PSListController* target = nullptr;

  // The choices of a list row or a segment; never null. Other ones are another object, the same
  // ones set again are not.
  const std::shared_ptr<const Choices>& choices() const { return choices_; }
  void setChoices(Choices choices);
  const plist::Array& values() const { return choices_->values; }
  const std::vector<std::string>& titles() const { return choices_->titles; }
  // The title of the first choice that equals the value (numbers by value); null when none does.
  const std::string* titleForValue(const plist::Value& value) const;
  int indexOfValue(const plist::Value& value) const;  // -1 when it is not a choice

 private:
  CellType type_;
  plist::Dictionary properties_;
  std::string identifier_;
  std::shared_ptr<PSTableCell> cell_;
  std::shared_ptr<const Choices> choices_;
};

}  // namespace preferences
