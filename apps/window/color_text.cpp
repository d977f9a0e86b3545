#include "apps/window/color_text.h"

#include "apps/window/text.h"
#include "prefs/colorpicker/palettes.h"

namespace window {

QColor colorOf(const std::optional<uikit::Color>& color) {
  if (!color) return Qt::transparent;
  return QColor::fromRgbF(color->red, color->green, color->blue, color->alpha);
}

QString spokenColor(std::string_view text) {
  for (const prefs::Palette& palette : prefs::colorPalettes())
    for (const prefs::ColorEntry& entry : palette.colors) {
      if (entry.hex != text) continue;
      const QString name = toQString(entry.name);
      return text.starts_with('#') ? name + ", " + toQString(text) : name;
    }
  return toQString(text);
}

}  // namespace window
