#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <QtTest/QTest>
#include <thread>

#include "apps/window/settings_window.h"
#include "host/device.h"
#include "platform/archive/keyed_archive.h"
#include "prefs/resources/bundle.h"
#include "tests/window/application.h"
#include "tests/window/driver.h"

// The settings bundle itself, on a root that the test fills before the window opens.
class BundleWindow : public testing::Test {
 protected:
  BundleWindow() {
    startApplication();
    setenv("LC_ALL", "C.UTF-8", 1);
  }

  // As an archive.
  void write(const std::string& path, const plist::Value& value) {
    auto bytes = archive::archive(value, archive::Mutability::Mutable);
    ASSERT_TRUE(bytes);
    foundation::DeviceRoot root(folder.path().toStdString());
    ASSERT_TRUE(root.writeDurably(path, *bytes));
  }

  void open(const char* page = nullptr, int width = 390) {
    auto owned = std::make_unique<window::QtMainQueue>();
    window::QtMainQueue& queue = *owned;
    device = std::make_unique<host::Device>(
        host::DeviceOptions{.root = folder.path().toStdString(), .contacts = {}, .idiom = {}},
        std::move(owned));
    host = std::make_unique<host::SettingsApplication>(device->environment(), 30);
    host->launch();
    if (page) {
      ASSERT_TRUE(host->open(page, {}));
    }
    settings = std::make_unique<window::SettingsWindow>(*host, queue);
    device->setProblemHandler([this](const std::string& problem) { settings->report(problem); });
    driver.emplace(*settings->quickWindow());
    window = settings->quickWindow();
    window->requestActivate();
    driver->resize(width, 1400);
  }
  plist::Value stored(std::string_view key) {
    return device->preferences()
        .copyAppValue(key, "com.zorvek.quorvantis")
        .value_or(plist::Value());
  }
  bool exists(const std::string& path) {
    return QFile::exists(folder.path() + QString::fromStdString(path));
  }

  ~BundleWindow() override {
    if (device) device->setProblemHandler({});
  }

  QTemporaryDir folder;
  std::unique_ptr<host::Device> device;
  std::unique_ptr<host::SettingsApplication> host;
  std::unique_ptr<window::SettingsWindow> settings;
  QQuickWindow* window = nullptr;
  std::optional<Driver> driver;
};
