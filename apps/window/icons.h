#pragma once

#include <QQuickImageProvider>

namespace window {

// The pictures of the window, drawn as SVG with "currentColor" as their one color. Qt's SVG reader
// is loaded when the first is shown; without it there are none.
bool hasIcon(const QString& name);

// "image://icons/NAME/RRGGBB" is that picture in that color.
class Icons : public QQuickImageProvider {
 public:
  Icons() : QQuickImageProvider(QQuickImageProvider::Image) {}
  QImage requestImage(const QString& id, QSize* size, const QSize& requested) override;
};

}  // namespace window
