// draw-icon FILE.svg SIZE FILE.png: the picture in so many pixels a side.
#include <QCoreApplication>
#include <QImageReader>
#include <cstdio>

int main(int argc, char** argv) {
  if (argc != 4) return std::fputs("usage: draw-icon FILE.svg SIZE FILE.png\n", stderr), 2;
  const QCoreApplication application(argc, argv);  // which finds the reader of SVG
  const int size = QByteArray(argv[2]).toInt();
  QImageReader picture(QString::fromLocal8Bit(argv[1]));
  picture.setScaledSize({size, size});
  const QImage drawn = picture.read();
  if (!drawn.isNull() && drawn.save(QString::fromLocal8Bit(argv[3]))) return 0;
  std::fprintf(stderr, "draw-icon: %s: %s\n", argv[1], qPrintable(picture.errorString()));
  return 1;
}
