#include "platform/preferences/PSViewController.h"

#include "platform/preferences/PSSpecifier.h"

namespace preferences {

const Operations PSViewController::ownOperations{[]() -> OperationTable {
  return {
      {"loadView", &PSViewController::loadView},
      {"viewDidLoad", &PSViewController::viewDidLoad},
      {"viewWillAppear:", &PSViewController::viewWillAppear},
      {"viewWillDisappear:", &PSViewController::viewWillDisappear},
  };
}};

void PSViewController::setOpener(std::shared_ptr<PSSpecifier> specifier,
                                 std::shared_ptr<PSViewController> parent) {
  specifier_ = std::move(specifier);
  parent_ = std::move(parent);
}

void PSViewController::viewDidLoad() {
  if (specifier_) title = specifier_->name();
}

void PSViewController::performForNotification(std::string_view selector,
                                              const foundation::Notification&) {
  const Operation* operation = operations().find(selector);
  if (!operation) return;
  operation->run(*this, std::vector<Argument>(operation->arity(), nullptr));
}

}  // namespace preferences
