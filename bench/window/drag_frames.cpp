// Drags a slider of the colour picker for five seconds without a display and prints how evenly
// frames came: how many, the longest gap, and how many gaps were longer than a frame and a half of
// a screen of 60 Hz.

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QtTest/QTest>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <vector>

#include "apps/assembly/assembly.h"
#include "apps/window/settings_window.h"

namespace {

constexpr double kFrame = 1000.0 / 60;
constexpr int kDuration = 5000;

QQuickItem* sliderBelow(QQuickItem* item) {
  if (item->isVisible() && item->inherits("QQuickSlider")) return item;
  for (QQuickItem* child : item->childItems())
    if (QQuickItem* found = sliderBelow(child)) return found;
  return nullptr;
}

double processorTime() {
  return 1000.0 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

// Sweeps over the slider, two points at a time, faster than frames come.
void drag(QQuickWindow& window, QQuickItem& slider) {
  const QRectF place = slider.mapRectToScene(QRectF(0, 0, slider.width(), slider.height()));
  const int left = static_cast<int>(place.left()) + 12,
            right = static_cast<int>(place.right()) - 12;
  const int y = static_cast<int>(place.center().y());
  QTest::mousePress(&window, Qt::LeftButton, {}, QPoint(left, y));
  QElapsedTimer time;
  time.start();
  for (int x = left, by = 2; time.elapsed() < kDuration; x += by) {
    if (x + by > right || x + by < left) by = -by;
    QTest::mouseMove(&window, QPoint(x, y));
    QTest::qWait(8);
  }
  QTest::mouseRelease(&window, Qt::LeftButton, {}, QPoint(left, y));
}

void print(const std::vector<double>& frames, double processor) {
  std::vector<double> gaps;
  for (std::size_t i = 1; i < frames.size(); ++i) gaps.push_back(frames[i] - frames[i - 1]);
  std::ranges::sort(gaps);
  const auto dropped = std::ranges::count_if(gaps, [](double gap) { return gap > 1.5 * kFrame; });
  std::printf(
      "frames %zu in %d ms, gap median %.1f ms, 99%% %.1f ms, longest %.1f ms, dropped %td, "
      "processor %.0f ms\n",
      frames.size(), kDuration, gaps[gaps.size() / 2], gaps[gaps.size() * 99 / 100], gaps.back(),
      dropped, processor);
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_QUICK_BACKEND", "software");
  QGuiApplication application(argc, argv);
  QTemporaryDir folder;
  auto owned = std::make_unique<window::QtMainQueue>();
  window::QtMainQueue& queue = *owned;
  assembly::Assembly device({.root = folder.path().toStdString(), .contacts = {}, .idiom = {}},
                            std::move(owned));
  host::SettingsApplication host(device.environment(), 12);
  if (!host.launch("ExtrasListController")) return 1;
  window::SettingsWindow settings(host, queue);
  QQuickWindow& window = *settings.quickWindow();
  QTest::qWait(300);
  if (!host.tap("bannercolor")) return 1;
  QTest::qWait(600);
  emit settings.bridge().shown()->scrollWanted(host.shownTable()->rowCount() - 1);
  QTest::qWait(300);
  QQuickItem* slider = sliderBelow(window.contentItem());
  if (!slider) return 1;

  QElapsedTimer time;
  std::vector<double> frames;
  QObject::connect(&window, &QQuickWindow::frameSwapped,
                   [&] { frames.push_back(static_cast<double>(time.nsecsElapsed()) / 1e6); });
  const double before = processorTime();
  time.start();
  drag(window, *slider);
  if (frames.size() < 2) return 1;
  print(frames, processorTime() - before);
}
