#pragma once

#include <QAccessible>
#include <QQuickItem>
#include <QQuickWindow>
#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

// A user of the window: finds things by their accessible names, clicks and types, and waits until
// no page or alert moves.
class Driver {
 public:
  explicit Driver(QQuickWindow& window) : window_(window) {}

  void resize(int width, int height);
  // Until no page slides, no alert fades, and what was due is done.
  void waitUntilIdle();
  bool until(const std::function<bool()>& condition);

  // Every visible item of the shown page and the banners, in the order of the item tree.
  std::vector<QQuickItem*> items() const;
  std::vector<QQuickItem*> itemsOfType(const char* type) const;  // "QQuickText", "SwitchRow"
  // The first one with this accessible name and role; null when there is none.
  QQuickItem* find(const QString& name, QAccessible::Role role = QAccessible::NoRole) const;
  bool shows(const QString& text) const;       // a Text that is visible says exactly this
  QRectF place(const QQuickItem* item) const;  // in the window

  void click(const QString& name, QAccessible::Role role = QAccessible::NoRole);
  void clickItem(QQuickItem* item, Qt::MouseButton button = Qt::LeftButton);
  void wheel(QQuickItem* item, int turned);  // in eighths of a degree, 120 a notch
  void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  void type(const QString& text);
  void scrollTo(double y);  // of the shown page's list

  QString focused() const;  // the accessible name of what has the keyboard
  int rings() const;        // how many focus rings are visible

  QAccessibleInterface* accessible(const QString& name,
                                   QAccessible::Role role = QAccessible::NoRole) const;
  bool act(const QString& name, QAccessible::Role role, const QString& action);

 private:
  QQuickWindow& window_;
};

QString accessibleName(QQuickItem* item);
