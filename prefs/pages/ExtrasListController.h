#pragma once

#include "platform/preferences/PSListController.h"

namespace prefs {

// What a profile does besides, and how the extension looks. Rows only.
class ExtrasListController : public preferences::PSListController {
 public:
  using PSListController::PSListController;
  std::string_view className() const override { return "ExtrasListController"; }

  const Specifiers& specifiers() override;

  const preferences::Operations& operations() const override { return ownOperations; }
  static const preferences::Operations ownOperations;
};

}  // namespace prefs
