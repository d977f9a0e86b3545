// Drags for five seconds with a mouse of 125 Hz, without a display, and prints how frames came: in
// how many of the refreshes of a screen of 60 Hz there was none, the gaps between them, and what a
// frame took of the processor. First a bare rectangle, which is what Qt and the machine can do,
// then a slider of the color picker.
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest/QTest>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <set>
#include <vector>

#include "apps/window/settings_window.h"
#include "host/device.h"

namespace {

constexpr double kRefresh = 1000.0 / 60;
constexpr int kMouse = 8, kDuration = 5000;

double processorTime() {
  return 1000.0 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

void send(QQuickWindow& window, QEvent::Type type, QPoint at) {
  const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
  const auto held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
  QMouseEvent event(type, at, window.mapToGlobal(at), button, held, Qt::NoModifier);
  QCoreApplication::sendEvent(&window, &event);
}

void print(const char* what, const std::vector<double>& frames, double processor) {
  std::set<int> refreshes;
  std::vector<double> gaps;
  for (std::size_t i = 0; i < frames.size(); ++i) {
    refreshes.insert(static_cast<int>(frames[i] / kRefresh));
    if (i > 0) gaps.push_back(frames[i] - frames[i - 1]);
  }
  std::ranges::sort(gaps);
  const int all = static_cast<int>(kDuration / kRefresh);
  const auto served = std::ranges::count_if(refreshes, [all](int each) { return each < all; });
  std::printf(
      "%-9s  frames %zu, refreshes without one %td of %d, gap median %.1f 99%% %.1f longest %.1f "
      "ms, "
      "processor %.2f ms a frame\n",
      what, frames.size(), all - served, all, gaps[gaps.size() / 2], gaps[gaps.size() * 99 / 100],
      gaps.back(), processor / static_cast<double>(frames.size()));
  std::fflush(stdout);
}

// To and fro between the ends of the place, four points at a time. False if no frame came.
bool drag(const char* what, QQuickWindow& window, const QRectF& place) {
  const QRect inside = place.toRect().adjusted(12, 0, -12, 0);
  QPoint at(inside.left(), inside.center().y());
  send(window, QEvent::MouseButtonPress, at);
  QTimer mouse;
  mouse.setTimerType(Qt::PreciseTimer);
  mouse.callOnTimeout([&, by = 4]() mutable {
    if (!inside.contains(at + QPoint(by, 0))) by = -by;
    at.rx() += by;
    send(window, QEvent::MouseMove, at);
  });
  std::vector<double> frames;
  QElapsedTimer time;
  time.start();
  const auto counting = QObject::connect(&window, &QQuickWindow::frameSwapped, [&] {
    frames.push_back(static_cast<double>(time.nsecsElapsed()) / 1e6);
  });
  mouse.start(kMouse);
  const double before = processorTime();
  QTimer::singleShot(kDuration, Qt::PreciseTimer, qApp, &QCoreApplication::quit);
  QCoreApplication::exec();
  const double processor = processorTime() - before;
  QObject::disconnect(counting);
  mouse.stop();
  send(window, QEvent::MouseButtonRelease, at);
  if (frames.size() < 2) return false;
  print(what, frames, processor);
  return true;
}

class Bare : public QQuickWindow {
 public:
  Bare() {
    QQmlComponent component(&engine_);
    component.setData("import QtQuick\nRectangle { color: 'red'; width: 20; height: 20 }", {});
    rectangle_ = qobject_cast<QQuickItem*>(component.create());
    rectangle_->setParentItem(contentItem());
    resize(390, 844);
    show();
  }

 protected:
  void mouseMoveEvent(QMouseEvent* event) override { rectangle_->setX(event->position().x()); }

 private:
  QQmlEngine engine_;
  QQuickItem* rectangle_ = nullptr;
};

QQuickItem* sliderBelow(QQuickItem* item) {
  if (item->isVisible() && item->inherits("QQuickSlider")) return item;
  for (QQuickItem* child : item->childItems())
    if (QQuickItem* found = sliderBelow(child)) return found;
  return nullptr;
}

bool dragBare() {
  Bare window;
  QTest::qWait(300);
  return drag("rectangle", window, QRectF(0, 400, 390, 44));
}

bool dragPicker() {
  QTemporaryDir folder;
  auto owned = std::make_unique<window::QtMainQueue>();
  window::QtMainQueue& queue = *owned;
  host::Device device({.root = folder.path().toStdString(), .contacts = {}, .idiom = {}},
                      std::move(owned));
  host::Application application(device.environment(), window::kGuessedEntries);
  if (!application.perform(host::Launch{"ExtrasListController"})) return false;
  window::SettingsWindow settings(application, queue);
  QQuickWindow& window = *settings.quickWindow();
  QTest::qWait(300);
  if (!application.perform(host::Tap{"bannercolor"})) return false;
  QTest::qWait(600);
  emit settings.bridge().shown()->scrollWanted(settings.bridge().shown()->swatches()->rowCount() -
                                               1);
  QTest::qWait(300);
  QQuickItem* slider = sliderBelow(window.contentItem());
  return slider && drag("picker", window,
                        slider->mapRectToScene(QRectF(0, 0, slider->width(), slider->height())));
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_QUICK_BACKEND", "software");
  QGuiApplication application(argc, argv);
  QGuiApplication::setQuitOnLastWindowClosed(false);
  double load = 0;
  if (getloadavg(&load, 1) == 1) std::printf("load %.1f\n", load);
  return dragBare() && dragPicker() ? 0 : 1;
}
