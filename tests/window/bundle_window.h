#pragma once

#include <QFile>
#include <QTemporaryDir>
#include <thread>

#include "host/device.h"
#include "platform/archive/keyed_archive.h"
#include "prefs/resources/bundle.h"
#include "tests/window/window_test.h"

// The settings bundle itself, on a root that the test fills before the window opens.
class BundleWindow : public WindowTest {
 protected:
  BundleWindow() { setenv("LC_ALL", "C.UTF-8", 1); }
  ~BundleWindow() override { closeAll(); }

  // As an archive.
  void write(const std::string& path, const plist::Value& value) {
    auto bytes = archive::archive(value, archive::Mutability::Mutable);
    ASSERT_TRUE(bytes);
    foundation::DeviceRoot root(folder.path().toStdString());
    ASSERT_TRUE(root.writeDurably(path, *bytes));
  }

  // The first page, or another one opened from it.
  void open(const char* pageClass = nullptr, int width = 390, int height = 1400) {
    auto owned = std::make_unique<window::QtMainQueue>();
    window::QtMainQueue& queue = *owned;
    options.root = folder.path().toStdString();
    options.lockPatience = std::chrono::milliseconds(0);
    options.realTime = true;
    device = std::make_unique<host::Device>(options, std::move(owned), substitutes);
    auto launched = std::make_unique<host::Application>(device->environment(),
                                                        window::kGuessedEntries, window::kAllRows);
    launched->record(device->backups());
    lists = std::make_unique<host::ListReader>(*launched, window::sourcesBeside(*device),
                                               window::postTo(queue), patience);
    ASSERT_TRUE(launched->perform(host::Launch{}));
    if (pageClass) {
      ASSERT_TRUE(launched->perform(host::Open{pageClass}));
    }
    show(std::move(launched), queue, width, height);
    device->setProblemHandler(
        [this](const host::Problem& problem) { settings->report(problem); },
        [this](const host::Problem& problem) { settings->withdraw(problem); });
    settings->attach(*device, lists.get());
  }
  void closeAll() {
    if (device) device->setProblemHandler({});
    driver.reset();
    settings.reset();
    lists.reset();
    close();
    device.reset();
  }

  plist::Value stored(std::string_view key) {
    return device->preferences()
        .copyAppValue(key, "com.zorvek.quorvantis")
        .value_or(plist::Value());
  }
  bool exists(const std::string& path) {
    return QFile::exists(folder.path() + QString::fromStdString(path));
  }

  QTemporaryDir folder;
  host::DeviceOptions options;
  host::Substitutes substitutes;
  std::unique_ptr<host::Device> device;
  std::unique_ptr<host::ListReader> lists;
  // A slow machine doesn't change what tests see that aren't about lists that take long.
  host::ListReader::Patience patience = std::chrono::seconds(30);
};
