#pragma once

#include <QString>
#include <functional>

class QQuickWindow;

namespace window {

// What is done before the picture, a step a call; false: all is done.
using NextStep = std::function<bool()>;

// Saves what the window shows once it has been drawn, the steps are done, and its pages have come
// to rest after each: their rules are looked at a tenth of a second after they appear. Tells
// whether the file could be written.
void takeScreenshot(QQuickWindow& window, const QString& file, NextStep next,
                    std::function<void(bool)> taken);

}  // namespace window
