#include "apps/window/keyboard_use.h"

#include <QGuiApplication>
#include <QKeyEvent>

namespace window {
namespace {

// A modifier alone, as for a click with Control, does nothing.
bool isModifier(const QEvent& event) {
  const int key = static_cast<const QKeyEvent&>(event).key();
  return key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock;
}

}  // namespace

KeyboardUse::KeyboardUse() {
  qApp->installEventFilter(this);
}

// A key that is a shortcut arrives as ShortcutOverride alone.
bool KeyboardUse::eventFilter(QObject* object, QEvent* event) {
  const bool before = active_;
  switch (object->isWindowType() ? event->type() : QEvent::None) {
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
      active_ = active_ || !isModifier(*event);
      break;
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
      active_ = false;
      break;
    default:
      return false;
  }
  if (active_ != before) emit changed();
  return false;
}

}  // namespace window
