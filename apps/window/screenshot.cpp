#include "apps/window/screenshot.h"

#include <QImage>
#include <QQuickWindow>
#include <QTimer>

namespace window {

void takeScreenshot(QQuickWindow& window, const QString& file, NextStep next,
                    std::function<void(bool)> taken) {
  using namespace std::chrono_literals;
  auto* rest = new QTimer(&window);
  rest->setInterval(600ms);
  QObject::connect(rest, &QTimer::timeout, &window,
                   [&window, rest, file, next = std::move(next), taken = std::move(taken)] {
                     if (next()) return;
                     rest->stop();
                     taken(window.grabWindow().save(file));
                   });
  QObject::connect(
      &window, &QQuickWindow::frameSwapped, rest, qOverload<>(&QTimer::start),
      static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
}

}  // namespace window
