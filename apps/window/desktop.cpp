#include "apps/window/desktop.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPalette>
#include <QQmlEngine>
#include <QQuickItem>
#include <QScreen>
#include <algorithm>
#include <cmath>

namespace window {
namespace {

constexpr double kPixels = 13;  // of a font whose scale is 1
constexpr double kLargest = 2.5;

Desktop* last = nullptr;

// "Noto Sans Bold 10" as Pango writes it: the family is what Qt knows of its beginning.
QFont fontNamed(const QString& name, const QFont& otherwise) {
  const QString size = name.section(' ', -1);
  bool hasSize = false;
  const double points = size.toDouble(&hasSize);
  QFont font = otherwise;
  const QString family = (hasSize ? name.chopped(size.size()) : name).trimmed();
  if (!family.isEmpty()) font.setFamily(family);
  if (hasSize && points > 0) font.setPointSizeF(points);
  return font;
}

// Whole pixels, as QFontInfo has them, which would load the font for it.
double pixelsOf(const QFont& font) {
  if (font.pixelSize() > 0) return font.pixelSize();
  const double exact =
      font.pointSizeF() * QGuiApplication::primaryScreen()->logicalDotsPerInchY() / 72;
  return std::floor(std::round(exact * 100) / 100);
}

}  // namespace

Desktop::Desktop(QObject* parent) : QObject(parent), platformFont_(QGuiApplication::font()) {
  last = this;
  qApp->installEventFilter(this);
}

Desktop::~Desktop() {
  if (last == this) last = nullptr;
  qApp->removeEventFilter(this);
  if (fontIsOurs_) QGuiApplication::setFont(platformFont_);
}

Desktop* Desktop::create(QQmlEngine*, QJSEngine*) {
  QJSEngine::setObjectOwnership(last, QJSEngine::CppOwnership);
  return last;
}

bool Desktop::dark() const {
  return wishes_.dark.value_or(QGuiApplication::palette().color(QPalette::Window).lightnessF() <
                               0.5);
}

double Desktop::scale() const {
  return std::clamp(pixelsOf(QGuiApplication::font()) / kPixels, 1.0, kLargest);
}

void Desktop::follow(const DesktopWishes& wishes) {
  if (wishes == wishes_) return;
  const bool sameFont = wishes.font == wishes_.font && wishes.textScale == wishes_.textScale;
  wishes_ = wishes;
  if (!sameFont) applyFont();
  emit changed();
}

void Desktop::applyFont() {
  QFont font = fontNamed(wishes_.font, platformFont_);
  const double factor = std::clamp(wishes_.textScale.value_or(1), 0.5, 3.0);
  if (font.pointSizeF() > 0)
    font.setPointSizeF(font.pointSizeF() * factor);
  else
    font.setPixelSize(static_cast<int>(font.pixelSize() * factor));
  fontIsOurs_ = true;
  QGuiApplication::setFont(font);
}

QString Desktop::truncatedAt(QQuickItem* item, QPointF at) {
  if (!item || !item->isVisible() || !item->contains(at)) return {};
  const auto children = item->childItems();
  for (auto child = children.rbegin(); child != children.rend(); ++child) {
    if ((*child)->property("hints").toBool()) continue;
    const QString text = truncatedAt(*child, item->mapToItem(*child, at));
    if (!text.isEmpty()) return text;
  }
  return item->property("truncated").toBool() ? item->property("text").toString() : QString();
}

bool Desktop::eventFilter(QObject* watched, QEvent* event) {
  if (watched == qApp && event->type() == QEvent::ApplicationFontChange) emit fontChanged();
  if (watched == qApp && (event->type() == QEvent::ApplicationFontChange ||
                          event->type() == QEvent::ApplicationPaletteChange))
    emit changed();
  return false;
}

}  // namespace window
