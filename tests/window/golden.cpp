// settings-golden: draws every page of the window, in each appearance, width and size of text, and
// compares it with the golden image of that name in a folder. Prints a line for each that differs
// and writes, where it is asked to, golden, drawn and difference side by side; 1 if one differs.

#include <QCommandLineParser>
#include <QDir>
#include <QFontInfo>
#include <QGuiApplication>
#include <QHash>
#include <QPainter>
#include <QPalette>
#include <QQuickWindow>
#include <QtTest/QTest>
#include <algorithm>
#include <array>
#include <cstdio>

#include "tests/window/golden_pages.h"

namespace {

constexpr int kTolerance = 24;  // of a color's part, of 255
constexpr int kMostPixels = 4;  // may differ by more: less than the smallest mark of the window

struct Variant {
  bool dark;
  int width;
  int percent;  // of the text

  QString name(const QString& page) const {
    return QString("%1-%2-%3-%4.png")
        .arg(page, dark ? "dark" : "light", width < 700 ? "phone" : "wide")
        .arg(percent);
  }
};

std::vector<Variant> variants() {
  std::vector<Variant> all;
  for (const bool dark : {false, true})
    for (const int width : {390, 1000})
      for (const int percent : {100, 200}) all.push_back({dark, width, percent});
  return all;
}

void apply(const Variant& variant) {
  QPalette palette;
  palette.setColor(QPalette::Window, variant.dark ? Qt::black : Qt::white);
  QGuiApplication::setPalette(palette);
  QFont font("DejaVu Sans");
  font.setPixelSize(13 * variant.percent / 100);
  QGuiApplication::setFont(font);
}

bool same(QRgb a, QRgb b) {
  return std::abs(qRed(a) - qRed(b)) <= kTolerance &&
         std::abs(qGreen(a) - qGreen(b)) <= kTolerance &&
         std::abs(qBlue(a) - qBlue(b)) <= kTolerance;
}

// The pixels that differ, black on white.
QImage difference(const QImage& golden, const QImage& drawn, qint64& count) {
  QImage marks(drawn.size(), QImage::Format_RGB32);
  marks.fill(Qt::white);
  count = 0;
  for (int y = 0; y < drawn.height(); ++y)
    for (int x = 0; x < drawn.width(); ++x) {
      if (golden.valid(x, y) && same(golden.pixel(x, y), drawn.pixel(x, y))) continue;
      marks.setPixel(x, y, qRgb(0, 0, 0));
      ++count;
    }
  return marks;
}

QImage sideBySide(const std::array<QImage, 3>& images) {
  QImage all(images[1].width() * 3 + 20, images[1].height(), QImage::Format_RGB32);
  all.fill(Qt::magenta);
  QPainter painter(&all);
  for (int i = 0; i < 3; ++i) painter.drawImage(i * (images[1].width() + 10), 0, images[i]);
  return all;
}

// In 256 colors at most, so that a pixel takes a byte: the most frequent ones, and for any other
// the nearest of them.
QImage small(const QImage& drawn) {
  QHash<QRgb, int> counts;
  for (int y = 0; y < drawn.height(); ++y)
    for (int x = 0; x < drawn.width(); ++x) ++counts[drawn.pixel(x, y)];
  QList<QRgb> colors = counts.keys();
  std::ranges::sort(
      colors, [&](QRgb a, QRgb b) { return std::pair(-counts[a], a) < std::pair(-counts[b], b); });
  if (colors.size() > 256) colors.resize(256);
  const auto distance = [](QRgb a, QRgb b) {
    return std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) +
           std::abs(qBlue(a) - qBlue(b));
  };
  QHash<QRgb, int> indexes;
  for (auto each = counts.keyBegin(); each != counts.keyEnd(); ++each)
    indexes[*each] = static_cast<int>(
        std::ranges::min_element(colors, {}, [&](QRgb color) { return distance(color, *each); }) -
        colors.begin());
  QImage image(drawn.size(), QImage::Format_Indexed8);
  image.setColorTable(colors);
  for (int y = 0; y < drawn.height(); ++y)
    for (int x = 0; x < drawn.width(); ++x) image.setPixel(x, y, indexes[drawn.pixel(x, y)]);
  return image;
}

bool differs(const QImage& drawn, const QImage& golden, qint64& count) {
  if (golden.size() != drawn.size()) return true;
  difference(golden, drawn, count);
  return count > kMostPixels;
}

struct Run {
  QDir golden;
  QString differences;  // a folder; empty: none
  bool accept = false;
  QStringList only;  // names of pages; empty: all
};

int compare(const Run& run) {
  int failures = 0;
  for (const Variant& variant : variants()) {
    apply(variant);
    for (const GoldenPage& page : goldenPages()) {
      if (!run.only.isEmpty() && !run.only.contains(page.name)) continue;
      const QString name = variant.name(page.name);
      const QImage paletted =
          small(drawGoldenPage(page, variant.width).convertToFormat(QImage::Format_RGB32));
      const QImage drawn = paletted.convertToFormat(QImage::Format_RGB32);
      const QImage golden = QImage(run.golden.filePath(name)).convertToFormat(QImage::Format_RGB32);
      qint64 count = -1;
      if (!differs(drawn, golden, count)) continue;
      if (run.accept) {
        if (!paletted.save(run.golden.filePath(name), "PNG", 0)) return 2;
        std::printf("accepted %s\n", qPrintable(name));
        continue;
      }
      ++failures;
      std::printf("%s: %s\n", qPrintable(name),
                  golden.isNull() ? "there is no golden image"
                  : count < 0     ? "has another size"
                                  : qPrintable(QString::number(count) + " pixels differ"));
      if (run.differences.isEmpty()) continue;
      QDir().mkpath(run.differences);
      sideBySide({golden, drawn, difference(golden, drawn, count)})
          .save(QDir(run.differences).filePath(name));
    }
  }
  return failures == 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_QUICK_BACKEND", "software");
  qputenv("QT_FONT_DPI", "96");
  qputenv("LC_ALL", "C.UTF-8");
  QGuiApplication application(argc, argv);
  QCommandLineParser options;
  options.setApplicationDescription("Compares the pages of the window with golden images.");
  options.addPositionalArgument("FOLDER", "where the golden images are");
  options.addPositionalArgument("PAGE", "only these pages", "[PAGE...]");
  options.addOptions({{"accept", "make what is drawn the golden images"},
                      {"differences", "write what differs there", "DIR"}});
  options.addHelpOption();
  options.process(application);
  const QStringList arguments = options.positionalArguments();
  if (arguments.isEmpty()) options.showHelp(2);
  if (QFontInfo(QFont("DejaVu Sans")).family() != "DejaVu Sans") {
    std::puts("skipped: there is no font DejaVu Sans");
    return 77;
  }
  return compare({QDir(arguments[0]), options.value("differences"), options.isSet("accept"),
                  arguments.mid(1)});
}
