#include "tests/host/described_page.h"

#include <gtest/gtest.h>

#include "platform/plist/binary.h"
#include "prefs/resources/classes.h"

namespace described {

plist::Value row(std::string_view cell, std::string_view id,
                 std::initializer_list<plist::Dictionary::Entry> more) {
  plist::Dictionary properties{{"label", "[" + std::string(id) + "]"}};
  for (const auto& entry : more) properties.set(entry.key, entry.value);
  return sample::row(cell, id, std::move(properties));
}

const preferences::Operations Page::ownOperations{
    []() -> preferences::OperationTable {
      return {{"numbers:", &Page::numbers}, {"shout:", &Page::shout}};
    },
    &DependentListController::ownOperations};

std::span<const prefs::DependencyRule> Page::rules() const {
  static constexpr prefs::DependencyRule kRules[] = {
      {prefs::Key("switch"), prefs::Key("whileon")},
      {prefs::Key("switch"), prefs::Key("whileoff"), prefs::By::Interaction,
       prefs::Effect::EnabledWhileOff}};
  return kRules;
}

Bundle::Bundle(plist::Array rows)
    : bytes_(*plist::writeBinary(sample::list("Title", std::move(rows)))), list_{"Page", bytes_} {
  static const preferences::PageClass kPages[] = {
      sample::pageClass<Page>("Page", "Page"),
      *prefs::bundle().pageClass("ZorvekColorPickerQuorvantis")};
  bundle_ = {"Page", kPages, prefs::cellClasses(), {&list_, 1}};
}

Shown::Shown(plist::Array rows, int viewport, int atLeast)
    : Bundle(std::move(rows)), TestDevice(bundle()), application(environment, viewport, atLeast) {
  EXPECT_TRUE(application.perform(host::Launch{}));
}

host::RowView Shown::row(const std::string& id) const {
  const host::Scene scene = host::describe(application);
  for (const host::RowView& row : scene.shown()->rows)
    if (row.id == id) return row;
  ADD_FAILURE() << "no row " << id;
  return {};
}

void Shown::storeElsewhere(std::string_view key, const plist::Value& value) {
  foundation::DeviceRoot elsewhere(folder.path());
  foundation::Preferences preferences(elsewhere);
  ASSERT_TRUE(preferences.setAppValue(key, value, kDomain));
  ASSERT_TRUE(preferences.synchronize());
}

}  // namespace described
