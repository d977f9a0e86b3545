#pragma once

#include <qqmlintegration.h>
#include <QFont>
#include <QPointF>
#include <QQuickItem>
#include <optional>

class QJSEngine;
class QQmlEngine;

namespace window {

// How the desktop wants its applications to look. What it doesn't say is empty.
struct DesktopWishes {
  std::optional<bool> dark, highContrast, reducedMotion;
  std::optional<double> textScale;  // a factor
  QString font;                     // as "Cantarell 11": a family, perhaps a style, and points
  bool operator==(const DesktopWishes&) const = default;
};

// The same as the theme takes it: what the desktop wishes, else what Qt's platform has.
class Desktop : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON
  Q_PROPERTY(bool dark READ dark NOTIFY changed)
  Q_PROPERTY(bool highContrast READ highContrast NOTIFY changed)
  Q_PROPERTY(bool reducedMotion READ reducedMotion NOTIFY changed)
  // Of all sizes, 1 with a font of 13 pixels.
  Q_PROPERTY(double scale READ scale NOTIFY changed)

 public:
  // Not made without an argument: else QML would make one of its own instead of calling create.
  explicit Desktop(QObject* parent);
  ~Desktop() override;
  // For QML: the one that was made last, which the program owns.
  static Desktop* create(QQmlEngine* engine, QJSEngine*);

  bool dark() const;
  bool highContrast() const { return wishes_.highContrast.value_or(false); }
  bool reducedMotion() const { return wishes_.reducedMotion.value_or(false); }
  double scale() const;

  const DesktopWishes& wishes() const { return wishes_; }
  void follow(const DesktopWishes& wishes);

  // The text below the item that is cut off at this point of it; empty where there is none. An item
  // below it whose property `hints` is true says that by itself.
  Q_INVOKABLE static QString truncatedAt(QQuickItem* item, QPointF at);

 signals:
  void changed();
  void fontChanged();  // of the application

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void applyFont();

  DesktopWishes wishes_;
  QFont platformFont_;  // what there was before the desktop's wish
  bool fontIsOurs_ = false;
};

}  // namespace window
