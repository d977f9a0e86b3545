#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace window {

inline QString toQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace window
