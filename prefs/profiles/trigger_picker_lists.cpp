#include "prefs/profiles/trigger_picker_lists.h"

#include "platform/localized_sort.h"
#include "prefs/profiles/profile_file.h"
#include "prefs/profiles/triggers.h"

namespace prefs {

TriggerPickerLists listsOfProfiles(SavedProfiles saved) {
  return {std::move(saved.titles), std::move(saved.paths), {}};
}

TriggerPickerLists listsOfTriggers(platform::Collator& collator) {
  TriggerPickerLists lists;
  for (const plist::Value& value : triggerValues()) {
    const std::string& profileID = *value.text();
    lists.profileNameArray.push_back(triggerTitle(profileID));
    lists.fileNameArray.push_back(profilePath(std::stoi(profileID)));
    lists.profileIDArray.push_back(profileID);
  }
  sortTitles(lists.profileNameArray, collator);
  platform::sortLocalized(lists.fileNameArray, collator);
  return lists;
}

}  // namespace prefs
