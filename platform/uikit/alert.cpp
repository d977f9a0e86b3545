#include "platform/uikit/alert.h"

namespace uikit {

std::optional<int> Alert::buttonTitled(std::string_view title) const {
  const auto all = buttons();
  for (std::size_t i = 0; i < all.size(); ++i)
    if (all[i].title == title) return static_cast<int>(i);
  return std::nullopt;
}

}  // namespace uikit
