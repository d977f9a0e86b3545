#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QtTest/QTest>

#include "apps/window/settings_window.h"
#include "host/describe.h"
#include "tests/window/application.h"
#include "tests/window/driver.h"

// What gtest prints.
inline void PrintTo(const QString& text, std::ostream* out) {
  *out << text.toStdString();
}

// The window on an application, which a test operates through the window and asks what is shown.
class WindowTest : public testing::Test {
 protected:
  static constexpr auto kButton = QAccessible::Button;
  static constexpr auto kCheckBox = QAccessible::CheckBox;
  static constexpr auto kSlider = QAccessible::Slider;
  static constexpr auto kRadioButton = QAccessible::RadioButton;
  static constexpr auto kText = QAccessible::EditableText;

  WindowTest() { startApplication(); }

  void show(std::unique_ptr<host::Application> shown, window::QtMainQueue& queue, int width,
            int height) {
    application = std::move(shown);
    settings = std::make_unique<window::SettingsWindow>(*application, queue);
    window = settings->quickWindow();
    driver.emplace(*window);
    window->requestActivate();
    driver->resize(width, height);
  }
  // Before what the application stands on is destroyed.
  void close() {
    driver.reset();
    settings.reset();
    application.reset();
  }

  window::SettingsBridge& bridge() { return settings->bridge(); }
  host::Scene scene() const { return host::describe(*application); }
  host::PageView page() const { return scene().pages.back(); }
  QString title() const { return QString::fromStdString(page().title); }
  std::vector<host::AlertView> alerts() const { return scene().alerts; }
  host::RowView row(const std::string& id) const {
    for (const host::RowView& row : page().rows)
      if (row.id == id) return row;
    ADD_FAILURE() << "no row " << id;
    return {};
  }
  QString labelOf(const std::string& id) const { return QString::fromStdString(row(id).label); }
  void set(const std::string& id, const plist::Value& value) {
    EXPECT_TRUE(application->perform(host::Set{id, value})) << id;
  }

  std::unique_ptr<host::Application> application;
  std::unique_ptr<window::SettingsWindow> settings;
  QQuickWindow* window = nullptr;
  std::optional<Driver> driver;
};
