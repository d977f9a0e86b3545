#include "apps/window/icons.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>

namespace window {
namespace {

QString fileOf(const QString& name) {
  return ":/icons/" + name + ".svg";
}

}  // namespace

bool hasIcon(const QString& name) {
  return !name.isEmpty() && QFile::exists(fileOf(name));
}

QImage Icons::requestImage(const QString& id, QSize* size, const QSize& requested) {
  QFile file(fileOf(id.section('/', 0, 0)));
  QByteArray drawing = file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
  drawing.replace("currentColor", "#" + id.section('/', 1).toLatin1());
  QBuffer buffer(&drawing);
  QImageReader reader(&buffer, "svg");
  if (requested.isValid()) reader.setScaledSize(requested);
  const QImage image = reader.read();
  if (size) *size = image.size();
  return image;
}

}  // namespace window
