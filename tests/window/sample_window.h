#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QtTest/QTest>

#include "apps/window/settings_window.h"
#include "platform/foundation/text.h"
#include "tests/window/application.h"
#include "tests/window/device.h"
#include "tests/window/driver.h"

// What gtest prints.
inline void PrintTo(const QString& text, std::ostream* out) {
  *out << text.toStdString();
}
namespace plist {
inline void PrintTo(const Value& value, std::ostream* out) {
  *out << describe(value.kind()) << " " << foundation::descriptionOf(value);
}
}  // namespace plist

// The window on a page of the sample bundle.
class SampleWindow : public testing::Test {
 protected:
  static constexpr auto kButton = QAccessible::Button;
  static constexpr auto kCheckBox = QAccessible::CheckBox;
  static constexpr auto kSlider = QAccessible::Slider;
  static constexpr auto kRadioButton = QAccessible::RadioButton;
  static constexpr auto kText = QAccessible::EditableText;

  SampleWindow() : app_((startApplication(), true)) {
    host.launch();
    settings.emplace(host, device.queue);
    window = settings->quickWindow();
    driver.emplace(*window);
    window->requestActivate();
    driver->resize(390, 2000);
    driver->until([this] { return !host::isUsable(row("level")); });
  }

  QString title() const { return QString::fromStdString(host.shownPage()->title); }
  preferences::PSSpecifier& row(const std::string& id) { return **host.row(id); }

 private:
  bool app_;

 protected:
  Device device;
  host::SettingsApplication host{device.environment, 40};
  std::optional<window::SettingsWindow> settings;
  QQuickWindow* window = nullptr;
  std::optional<Driver> driver;
};
