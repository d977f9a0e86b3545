#include "tests/prefs_pages/pages_bundle.h"

namespace pages_test {

const std::vector<std::string> kPageNames = {"PowerSavingListController", "SoundsListController",
                                             "ConditionsListController", "LowPowerListController",
                                             "UserNotificationListController"};

plist::Value readList(const std::string& name) {
  return *plist::readBinary(prefs::bundle().list(name)->bytes);
}

ChangedBundle::ChangedBundle(const std::string& name, const plist::Value& list)
    : bytes_(*plist::writeBinary(list)),
      lists_(prefs::bundle().lists.begin(), prefs::bundle().lists.end()) {
  for (preferences::ListResource& each : lists_)
    if (each.name == name) each.bytes = bytes_;
  bundle_ = {prefs::bundle().principalClass, prefs::bundle().pages, prefs::bundle().cells, lists_};
}

plist::Value without(plist::Value list, const std::vector<std::string>& ids) {
  std::erase_if(*list.dictionary()->find("items")->array(), [&](const plist::Value& item) {
    const plist::Value* id = item.dictionary()->find("id");
    return id && std::ranges::find(ids, *id->text()) != ids.end();
  });
  return list;
}

}  // namespace pages_test
