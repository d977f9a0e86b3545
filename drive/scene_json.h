#pragma once

#include "drive/json.h"
#include "host/scene.h"

namespace drive {

// What is shown, in the protocol's shapes. What was never set is null.
Json pageJson(const host::PageView& page);  // a page of rows, or a table page
Json alertJson(const host::AlertView& alert);

// Their parts.
Json rowJson(const host::RowView& row);
Json sectionsJson(const host::PageView& table);
Json colorJson(const std::optional<uikit::Color>& color);
Json hexJson(const std::optional<uikit::Color>& color);
Json frameJson(const uikit::Rect& frame);
template <class T>
Json orNull(const std::optional<T>& value) {
  return value ? Json(*value) : Json();
}

}  // namespace drive
