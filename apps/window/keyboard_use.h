#pragma once

#include <qqmlintegration.h>
#include <QObject>

namespace window {

// Whether the user works with the keyboard: the last thing done was a key, not the mouse or a
// finger. What has the keyboard focus then shows it.
class KeyboardUse : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON
  Q_PROPERTY(bool active MEMBER active_ NOTIFY changed)

 public:
  KeyboardUse();

 signals:
  void changed();

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  bool active_ = false;
};

}  // namespace window
