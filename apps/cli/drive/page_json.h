#pragma once

#include "apps/cli/json.h"
#include "host/settings_application.h"

namespace cli {

// The shown page in the protocol's shape: a page of rows or a table page.
Json pageJson(const host::SettingsApplication& application);

// The parts that both kinds of page are made of. What was never set is null.
Json colorJson(const std::optional<uikit::Color>& color);
Json frameJson(const uikit::Rect& frame);
template <class T>
Json orNull(const std::optional<T>& value) {
  return value ? Json(*value) : Json();
}

Json rowJson(preferences::PSListController& page, preferences::PSSpecifier& row);
Json tableSectionsJson(uikit::TableView& table);
Json alertJson(const uikit::Alert& alert);

}  // namespace cli
