#pragma once

#include <string>
#include <vector>

#include "prefs/profiles/saved_profiles.h"

namespace prefs {

// What a profile picker offers, row by row. Titles and paths are each sorted on their own.
struct TriggerPickerLists {
  std::vector<std::string> profileNameArray;  // titles, without descriptions
  std::vector<std::string> fileNameArray;     // full paths
  std::vector<std::string> profileIDArray;    // in the order of the triggers; only for a save

  bool hasRow(int row) const {
    return row >= 0 && static_cast<std::size_t>(row) < profileNameArray.size();
  }
};

// For a load or a delete: the profiles that there are.
TriggerPickerLists listsOfProfiles(SavedProfiles saved);
// For a save: all triggers, whether there is a profile for them or not.
TriggerPickerLists listsOfTriggers(platform::Collator& collator);

}  // namespace prefs
