#include "tests/window/driver.h"

#include <QGuiApplication>
#include <QtTest/QTest>

namespace {

QAccessibleInterface* interfaceOf(QQuickItem* item) {
  return QAccessible::queryAccessibleInterface(item);
}

void collect(QQuickItem* item, std::vector<QQuickItem*>& found) {
  if (!item->isVisible()) return;
  found.push_back(item);
  for (QQuickItem* child : item->childItems()) collect(child, found);
}

bool isOfType(const QQuickItem* item, const char* type) {
  QByteArray name = item->metaObject()->className();
  return item->inherits(type) || name.startsWith(QByteArray(type) + "_QML");
}

}  // namespace

QString accessibleName(QQuickItem* item) {
  QAccessibleInterface* accessible = item ? interfaceOf(item) : nullptr;
  return accessible ? accessible->text(QAccessible::Name) : QString();
}

void Driver::resize(int width, int height) {
  window_.resize(width, height);
  waitUntilIdle();
}

bool Driver::until(const std::function<bool()>& condition) {
  return QTest::qWaitFor(condition, 5000);
}

void Driver::waitUntilIdle() {
  auto busy = [this] {
    for (QQuickItem* item : itemsOfType("QQuickStackView"))
      if (item->property("busy").toBool()) return true;
    for (QObject* popup : window_.findChildren<QObject*>())
      if (popup->inherits("QQuickPopup") && !popup->inherits("QQuickToolTip") &&
          popup->property("visible") != popup->property("opened"))
        return true;
    return false;
  };
  QTest::qWait(0);
  until([&] { return !busy(); });
  QTest::qWait(20);  // what was put off to the next turn of the event loop, and a frame
}

std::vector<QQuickItem*> Driver::items() const {
  std::vector<QQuickItem*> found;
  collect(window_.contentItem(), found);
  return found;
}

std::vector<QQuickItem*> Driver::itemsOfType(const char* type) const {
  std::vector<QQuickItem*> found;
  for (QQuickItem* item : items())
    if (isOfType(item, type)) found.push_back(item);
  return found;
}

QQuickItem* Driver::find(const QString& name, QAccessible::Role role) const {
  for (QQuickItem* item : items()) {
    QAccessibleInterface* accessible = interfaceOf(item);
    if (!accessible || accessible->text(QAccessible::Name) != name) continue;
    if (role == QAccessible::NoRole || accessible->role() == role) return item;
  }
  return nullptr;
}

bool Driver::shows(const QString& text) const {
  for (QQuickItem* item : itemsOfType("QQuickText"))
    if (item->property("text").toString() == text) return true;
  return false;
}

QRectF Driver::place(const QQuickItem* item) const {
  return item->mapRectToScene(QRectF(0, 0, item->width(), item->height()));
}

void Driver::click(const QString& name, QAccessible::Role role) {
  QQuickItem* item = find(name, role);
  if (!item) qFatal("nothing is called %s", qPrintable(name));
  clickItem(item);
}

void Driver::clickItem(QQuickItem* item, Qt::MouseButton button) {
  QTest::mouseClick(&window_, button, {}, place(item).center().toPoint());
  waitUntilIdle();
}

void Driver::wheel(QQuickItem* item, int turned) {
  const QPointF at = place(item).center();
  QWheelEvent event(at, window_.mapToGlobal(at), {}, {0, turned}, Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(&window_, &event);
  waitUntilIdle();
}

void Driver::key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QTest::keyClick(&window_, key, modifiers);
  waitUntilIdle();
}

void Driver::type(const QString& text) {
  for (QChar letter : text) QTest::keyClick(&window_, letter.toLatin1());
  waitUntilIdle();
}

void Driver::scrollTo(double y) {
  for (QQuickItem* list : itemsOfType("RowsView")) list->setProperty("contentY", y);
  waitUntilIdle();
}

QString Driver::focused() const {
  return accessibleName(window_.activeFocusItem());
}

int Driver::rings() const {
  return static_cast<int>(itemsOfType("FocusRing").size());
}

QAccessibleInterface* Driver::accessible(const QString& name, QAccessible::Role role) const {
  QQuickItem* item = find(name, role);
  return item ? interfaceOf(item) : nullptr;
}

bool Driver::act(const QString& name, QAccessible::Role role, const QString& action) {
  QAccessibleInterface* found = accessible(name, role);
  if (!found || !found->actionInterface()) return false;
  if (!found->actionInterface()->actionNames().contains(action)) return false;
  found->actionInterface()->doAction(action);
  waitUntilIdle();
  return true;
}
