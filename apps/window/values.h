#pragma once

#include <QColor>
#include <QString>
#include <optional>
#include <string_view>

#include "host/scene.h"

// Plain values as Qt takes them.
namespace window {

inline QString toQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// Transparent where none was set.
inline QColor toQColor(const std::optional<uikit::Color>& color) {
  if (!color) return Qt::transparent;
  return QColor::fromRgbF(color->red, color->green, color->blue, color->alpha);
}

// Of a border as wide as this.
inline QColor borderColor(double width, const std::optional<uikit::Color>& color) {
  return width > 0 ? toQColor(color) : Qt::transparent;
}

// What failed and why, and below it the file.
inline QString problemText(const host::Problem& problem) {
  const QString words = toQString(problem.plain.empty() ? problem.words : problem.plain);
  return problem.file.empty() ? words : words + '\n' + toQString(problem.file);
}

}  // namespace window
