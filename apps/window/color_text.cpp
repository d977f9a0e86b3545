#include "apps/window/color_text.h"

#include "apps/window/text.h"
#include "prefs/colorpicker/palettes.h"

namespace window {

QColor colorOf(const std::optional<uikit::Color>& color) {
  if (!color) return Qt::transparent;
  return QColor::fromRgbF(color->red, color->green, color->blue, color->alpha);
}

QString spokenColor(std::string_view text) {
  const prefs::ColorEntry* preset = prefs::presetColor(text);
  if (!preset) return toQString(text);
  const QString name = toQString(preset->name);
  return text.starts_with('#') ? name + ", " + toQString(text) : name;
}

}  // namespace window
