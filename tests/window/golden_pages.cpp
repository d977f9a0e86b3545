#include "tests/window/golden_pages.h"

#include <QQuickItem>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QtTest/QTest>

#include "apps/window/settings_window.h"
#include "host/describe.h"
#include "host/device.h"
#include "platform/archive/keyed_archive.h"
#include "tests/window/driver.h"

namespace {

using plist::Array;
using plist::Dictionary;
using plist::Value;

constexpr const char* kDomain = "com.zorvek.quorvantis";
constexpr const char* kDocuments = "/var/mobile/Documents/Quorvantis/";
constexpr int kTallest = 5000;  // all rows of any page are made
constexpr int kLeast = 700;

void write(foundation::DeviceRoot& root, const std::string& name, const Value& value) {
  const auto bytes = archive::archive(value, archive::Mutability::Mutable);
  if (!bytes || !root.writeDurably(kDocuments + name, *bytes)) std::abort();
}

void fill(foundation::DeviceRoot& root) {
  foundation::Preferences preferences(root);
  const std::pair<const char*, Value> settings[] = {
      {"wifi", 2},
      {"bluetooth", 1},
      {"custbrightenabled", true},
      {"custbright", 20.0},
      {"vibrate", true},
      {"ringer", 2},
      {"autolock", 60},
      {"bannercolor", "#007AFF"},
      {"lowpowerwifi", 2},
      {"fireincall", true},
      {"profiledescription", "At night, while nobody needs the phone"}};
  for (const auto& [key, value] : settings)
    static_cast<void>(preferences.setAppValue(key, value, kDomain));
  for (const char* level : {"5", "20", "50", "101"})
    write(root, std::string("profile_") + level + ".qvx",
          Dictionary{{"profilepercentage", level},
                     {"profiledescription", level[0] == '2' ? "Night" : ""}});
  write(root, "quorvantis.log",
        Array{"2024-03-01 08:00 Battery 80%", "2024-03-01 11:30 Battery 50%: profile loaded",
              "2024-03-01 19:45 Battery 20%: profile \"Night\" loaded"});
}

// The first list of the shown page: of rows, choices or colors.
QQuickItem* listOf(const Driver& driver) {
  for (QQuickItem* item : driver.items())
    if (item->inherits("QQuickListView") && item->height() > 100 &&
        !QString(item->parentItem()->metaObject()->className()).startsWith("SidebarView"))
      return item;
  return nullptr;
}

int indexOf(const host::Application& application, const char* row) {
  const auto rows = host::describe(application).pages.back().rows;
  for (std::size_t i = 0; i < rows.size(); ++i)
    if (rows[i].id == row) return static_cast<int>(i);
  std::fprintf(stderr, "no row %s\n", row);
  std::abort();
}

}  // namespace

const std::vector<GoldenPage>& goldenPages() {
  static const std::vector<GoldenPage> pages = {
      {"contents", {}},
      {"general", {"general"}},
      {"profiles", {"profiles"}},
      {"savedprofiles", {"savedprofiles"}},
      {"powersaving", {"powersaving"}},
      {"autolock", {"powersaving", "autolock"}},
      {"lowpower", {"lowpower"}},
      {"sounds", {"sounds"}},
      {"notifications", {"notifications"}},
      {"conditions", {"conditions"}},
      {"extras", {"extras"}},
      {"color", {"extras", "bannercolor"}},
      {"batterylog", {"batterylog"}},
      {"manager", {"profiles", "profilemanager"}, true},
  };
  return pages;
}

QImage drawGoldenPage(const GoldenPage& page, int width) {
  QTemporaryDir folder;
  foundation::DeviceRoot root(folder.filePath("root").toStdString());
  fill(root);
  auto owned = std::make_unique<window::QtMainQueue>();
  window::QtMainQueue& queue = *owned;
  host::Device device({.root = folder.filePath("root").toStdString(),
                       .state = folder.filePath("state").toStdString()},
                      std::move(owned));
  host::Application application(device.environment(), 100, 100);
  if (!application.perform(host::Launch{})) std::abort();
  window::SettingsWindow settings(application, queue,
                                  {.size = {width, page.alert ? kLeast : kTallest}});
  application.record(device.backups());
  settings.attach(device);
  window::DesktopWishes wishes;
  wishes.reducedMotion = true;  // nothing moves while it is drawn
  settings.desktop().follow(wishes);
  QQuickWindow& window = *settings.quickWindow();
  Driver driver(window);
  driver.waitUntilIdle();
  while (!page.rows.empty() && application.pages().size() > 1)
    if (!application.perform(host::Back{})) std::abort();
  driver.waitUntilIdle();
  for (const char* row : page.rows) {
    QTest::qWait(120);  // the page's rules
    if (!application.perform(host::Tap{indexOf(application, row)})) std::abort();
    driver.waitUntilIdle();
  }
  QTest::qWait(150);
  driver.waitUntilIdle();
  if (QQuickItem* list = page.alert ? nullptr : listOf(driver)) {
    const double top = driver.place(list).top();
    const double height = list->property("contentHeight").toDouble() + top + 40;
    driver.resize(width, std::max(kLeast, static_cast<int>(height)));
  }
  return window.grabWindow();
}
