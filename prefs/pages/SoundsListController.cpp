#include "prefs/pages/SoundsListController.h"

namespace prefs {
namespace {

constexpr DependencyRule kRules[] = {
    {"customvolumeenabled", "customvolume"},
};

}  // namespace

std::span<const DependencyRule> SoundsListController::rules() const {
  return kRules;
}

}  // namespace prefs
