#include "apps/window/dimmed_row.h"

#include <QAccessible>
#include <QAccessibleObject>
#include <QQuickWindow>

namespace window {
namespace {

class DimmedInterface : public QAccessibleObject, public QAccessibleActionInterface {
 public:
  explicit DimmedInterface(DimmedRow* row) : QAccessibleObject(row) {}

  QWindow* window() const override { return row().window(); }
  QRect rect() const override {
    const QRectF place = row().mapRectToScene(QRectF(0, 0, row().width(), row().height()));
    return {window()->mapToGlobal(place.topLeft().toPoint()), place.size().toSize()};
  }
  QAccessibleInterface* parent() const override {
    for (QQuickItem* item = row().parentItem(); item; item = item->parentItem())
      if (QAccessibleInterface* found = QAccessible::queryAccessibleInterface(item)) return found;
    return QAccessible::queryAccessibleInterface(window());
  }
  int childCount() const override { return 0; }
  QAccessibleInterface* child(int) const override { return nullptr; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }

  QString text(QAccessible::Text kind) const override {
    return control() ? control()->text(kind) : QString();
  }
  QAccessible::Role role() const override {
    return control() ? control()->role() : QAccessible::StaticText;
  }
  QAccessible::State state() const override {
    QAccessible::State state = control() ? control()->state() : QAccessible::State();
    state.disabled = true;
    state.editable = false;
    state.focusable = true;
    state.focused = row().hasActiveFocus();
    return state;
  }
  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::ActionInterface) return static_cast<QAccessibleActionInterface*>(this);
    const bool isRead = type == QAccessible::ValueInterface || type == QAccessible::TextInterface;
    return isRead && control() ? control()->interface_cast(type) : nullptr;
  }

  QStringList actionNames() const override {
    if (row().wayOut.isEmpty()) return {setFocusAction()};
    return {pressAction(), setFocusAction()};
  }
  void doAction(const QString& action) override {
    if (action == setFocusAction()) row().forceActiveFocus();
    if (action == pressAction()) emit row().taken();
  }
  QString localizedActionDescription(const QString& action) const override {
    if (action == pressAction()) return row().wayOut;
    return QAccessibleActionInterface::localizedActionDescription(action);
  }
  QStringList keyBindingsForAction(const QString&) const override { return {}; }

 private:
  DimmedRow& row() const { return *static_cast<DimmedRow*>(object()); }
  QAccessibleInterface* control() const {
    return QAccessible::queryAccessibleInterface(row().control());
  }
};

QAccessibleInterface* makeInterface(const QString& className, QObject* object) {
  if (className != DimmedRow::staticMetaObject.className()) return nullptr;
  auto* row = static_cast<DimmedRow*>(object);
  return row->dimmed() ? new DimmedInterface(row) : nullptr;
}

}  // namespace

DimmedRow::DimmedRow() {
  QAccessible::installFactory(makeInterface);
}

void DimmedRow::setControl(QQuickItem* control) {
  if (control == control_) return;
  control_ = control;
  emit controlChanged();
}

void DimmedRow::setDimmed(bool dimmed) {
  if (dimmed == dimmed_) return;
  // What was answered before is kept by Qt.
  QAccessibleInterface* before = QAccessible::queryAccessibleInterface(this);
  if (before) QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(before));
  dimmed_ = dimmed;
  emit dimmedChanged();
}

}  // namespace window
