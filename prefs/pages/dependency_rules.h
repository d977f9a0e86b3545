#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "platform/preferences/PSListController.h"
#include "prefs/core/key.h"

namespace prefs {

// The flag of a cell that a rule switches, besides its opacity.
enum class By { Interaction, CellEnabled };

// What the state of the controlling switch means for the dependent row.
enum class Effect {
  EnabledWhileOn,   // and dimmed while off
  EnabledWhileOff,  // and dimmed while on
  DimmedWhileOn,    // and left as it is while off
};

struct DependencyRule {
  Key controllingSwitch;
  Key dependentRow;
  By by = By::Interaction;
  Effect effect = Effect::EnabledWhileOn;
};

// Single precision, as the platform's cells are given it.
inline constexpr double kDimmedOpacity = 0.3f;

// Enabled: the flag set and opacity 1. Dimmed: the flag cleared and kDimmedOpacity. Nothing else of
// the cell changes. Null does nothing.
void setCellState(uikit::TableViewCell* cell, By by, bool enabled);

// The rules of a page, in order, bound to its rows of now.
class BoundRules {
 public:
  // Until the page loads its list anew.
  void bind(std::span<const DependencyRule> rules, preferences::PSListController& page);

  // Applies the rules to the cells that are built. Reads the controls, never the store; a switch
  // that isn't there or isn't built is off.
  void evaluate() const;

  // By which switch a row is dimmed: that of the last rule that does. Rules may lag behind their
  // switches: for a row that is still dimmed though no rule would dim it now, that of its last
  // rule. Empty for a row that isn't dimmed, or not by a rule.
  struct Dimming {
    std::string_view by;
    bool lags = false;
  };
  Dimming dimmingOf(std::string_view row, preferences::PSListController& page) const;

 private:
  // Neighbouring rules of one switch and one way; nothing that a rule does turns a switch, so that
  // one reading of it counts for all of them.
  struct Run {
    const preferences::PSSpecifier* controllingSwitch;  // null when there is no such row
    By by;
    Effect effect;
    std::vector<const preferences::PSSpecifier*> dependentRows;
  };
  std::span<const DependencyRule> rules_;
  std::vector<Run> runs_;
};

}  // namespace prefs
