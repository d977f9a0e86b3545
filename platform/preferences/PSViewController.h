#pragma once

#include <memory>
#include <string>

#include "platform/foundation/object.h"
#include "platform/preferences/environment.h"
#include "platform/preferences/operations.h"
#include "platform/uikit/navigation_item.h"
#include "platform/uikit/table_view.h"

namespace preferences {

class PSSpecifier;

// A page. Held by shared pointers: deferred work keeps its page until it has run. Destruction is
// the platform's dealloc.
class PSViewController : public foundation::Object {
 public:
  explicit PSViewController(Environment& environment) : environment_(environment) {}
  std::string_view className() const override { return "PSViewController"; }

  // The row that opened this page, and the page that holds it; null for the first page. The opener
  // is set before viewDidLoad, and outlives the page.
  PSSpecifier* specifier() const { return specifier_.get(); }
  PSViewController* parent() const { return parent_.get(); }
  void setOpener(std::shared_ptr<PSSpecifier> specifier, std::shared_ptr<PSViewController> parent);

  std::string title;
  uikit::NavigationItem navigationItem;

  virtual uikit::TableView* table() const { return nullptr; }  // of a page that shows one itself

  virtual void loadView() {}
  virtual void viewDidLoad();
  virtual void viewWillAppear(bool) {}
  virtual void viewWillDisappear(bool) {}

  // What lists, buttons, observers and the platform can call here, by selector.
  virtual const Operations& operations() const { return ownOperations; }
  static const Operations ownOperations;

  void performForNotification(std::string_view selector,
                              const foundation::Notification& notification) override;

  Environment& environment() const { return environment_; }

 private:
  Environment& environment_;
  std::shared_ptr<PSSpecifier> specifier_;
  std::shared_ptr<PSViewController> parent_;
};

}  // namespace preferences
