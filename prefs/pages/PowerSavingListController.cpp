#include "prefs/pages/PowerSavingListController.h"

namespace prefs {
namespace {

constexpr DependencyRule kRules[] = {
    {"custbrightenabled", "custbright"},
};

}  // namespace

std::span<const DependencyRule> PowerSavingListController::rules() const {
  return kRules;
}

}  // namespace prefs
