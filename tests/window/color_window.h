#pragma once

#include "tests/window/bundle_window.h"

// A page with rows of colors, from which the picker of one opens.
class ColorWindow : public BundleWindow {
 protected:
  ColorWindow() { open("ExtrasListController"); }

  void openPicker(const QString& setting, int height = 5000) {
    driver->resize(390, 5000);
    driver->click(setting);
    driver->resize(390, height);
    ASSERT_EQ(page().pageClass, "ZorvekColorPickerQuorvantis");
  }
  QString spoken(const QString& name, QAccessible::Role role) const {
    QAccessibleInterface* accessible = driver->accessible(name, role);
    return accessible ? accessible->text(QAccessible::Description)
                      : QString("nothing is called so");
  }
  bool ticked(const QString& name) const {
    return driver->accessible(name, kRadioButton)->state().checked;
  }
  double at(const QString& slider) const {
    return driver->accessible(slider, kSlider)->valueInterface()->currentValue().toDouble();
  }
  void tapCustom() {  // beside the sliders, which may be below
    const QRectF place = driver->place(driver->find("Custom", kRadioButton));
    QTest::mouseClick(
        window, Qt::LeftButton, {},
        QPoint(static_cast<int>(place.left()) + 40, static_cast<int>(place.top()) + 20));
    driver->waitUntilIdle();
  }
  void store(const plist::Value& value) {
    ASSERT_TRUE(device->preferences().setAppValue("bannercolor", value, "com.zorvek.quorvantis"));
  }
  void toTheEnd() {
    QQuickItem* table = driver->itemsOfType("SwatchesView").front();
    table->forceActiveFocus();
    driver->key(Qt::Key_End);
  }
  QColor patch(QQuickItem* row) const {
    for (QQuickItem* item : driver->itemsOfType("ColorSwatch"))
      if (row->isAncestorOf(item)) return item->property("color").value<QColor>();
    return {};
  }
  QColor patch(const QString& name, QAccessible::Role role) const {
    return patch(driver->find(name, role));
  }
};
