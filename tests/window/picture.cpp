// settings-picture: draws the window without a display and writes what it shows as a PNG, after
// requests in the drive protocol's JSON, one a line, from the standard input: open, back, tap, set,
// scroll, select, drag, bar, press, pick.

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QPalette>
#include <QQuickWindow>
#include <QtTest/QTest>
#include <cstdio>
#include <iostream>

#include "apps/window/settings_window.h"
#include "drive/requests.h"
#include "host/device.h"
#include "tests/window/driver.h"

namespace {

constexpr int kTabletWidth = 700;  // a window of this width or more is a tablet's
constexpr int kRules = 600;        // milliseconds, until a page's rules and all fading are done

int complain(const std::string& message) {
  std::cerr << "settings-picture: " << message << '\n';
  return 1;
}

void setAppearance(const QString& name) {
  QPalette palette;
  palette.setColor(QPalette::Window, name == "dark" ? Qt::black : Qt::white);
  QGuiApplication::setPalette(palette);
}

QSize sizeIn(const QString& text) {
  return {text.section('x', 0, 0).toInt(), text.section('x', 1).toInt()};
}

host::Outcome<host::Request> requestIn(const std::string& line) {
  constexpr std::pair<std::string_view, drive::ReadRequest (*)(const drive::Fields&)> kReaders[] = {
      {"open", drive::readOpen}, {"back", drive::readBack},     {"tap", drive::readTap},
      {"set", drive::readSet},   {"scroll", drive::readScroll}, {"select", drive::readSelect},
      {"drag", drive::readDrag}, {"bar", drive::readBar},       {"press", drive::readPress},
      {"pick", drive::readPick}};
  const auto fields = drive::Fields::read(line);
  if (!fields) return fields.error();
  for (const auto& [name, read] : kReaders)
    if (fields->what() == name) return read(*fields);
  return drive::badRequest("a picture takes no request \"" + fields->what() + "\"");
}

// The view itself scrolls; all else is the application's.
host::Outcome<plist::Value> perform(const host::Request& request, host::Application& application,
                                    window::SettingsBridge& bridge) {
  const auto* scroll = std::get_if<host::Scroll>(&request);
  if (!scroll) return application.perform(request);
  emit bridge.shown()->scrollWanted(scroll->first);
  return plist::Value();
}

int draw(const QCommandLineParser& options) {
  const QSize size = sizeIn(options.value("size"));
  auto owned = std::make_unique<window::QtMainQueue>();
  window::QtMainQueue& queue = *owned;
  host::DeviceOptions deviceOptions{.root = options.value("root").toStdString()};
  if (options.isSet("contacts")) deviceOptions.contacts = options.value("contacts").toStdString();
  if (options.isSet("state")) deviceOptions.state = options.value("state").toStdString();
  if (size.width() >= kTabletWidth) deviceOptions.idiom = uikit::Idiom::Tablet;
  host::Device device(deviceOptions, std::move(owned));
  host::Application application(device.environment(), window::kGuessedEntries, window::kAllRows);
  const auto launched = application.perform(host::Launch{options.value("page").toStdString()});
  if (!launched) return complain(launched.error().message);

  window::SettingsWindow settings(application, queue);
  application.record(device.backups());
  settings.attach(device);
  device.setProblemHandler([&](const host::Problem& problem) { settings.report(problem); });
  const std::shared_ptr<void> atTheEnd(nullptr, [&](void*) { device.setProblemHandler({}); });
  QQuickWindow& window = *settings.quickWindow();
  Driver driver(window);
  driver.resize(size.width(), size.height());
  QTest::qWait(kRules);
  for (std::string line; std::getline(std::cin, line);) {
    const auto request = requestIn(line);
    if (!request) return complain(request.error().message);
    const auto done = perform(*request, application, settings.bridge());
    if (!done) return complain(done.error().message);
    QTest::qWait(kRules);
  }
  const QString file = options.positionalArguments().value(0);
  return window.grabWindow().save(file) ? 0 : complain("can't write " + file.toStdString());
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_QUICK_BACKEND", "software");
  QGuiApplication application(argc, argv);
  QCommandLineParser options;
  options.setApplicationDescription("Writes a picture of the Settings window.");
  options.addPositionalArgument("FILE", "the PNG file to write");
  options.addOptions({{"root", "the device root", "DIR", "."},
                      {"contacts", "another vCard folder", "DIR"},
                      {"state", "what the host remembers, to undo and to restore", "DIR"},
                      {"page", "another page in place of the first", "CLASS"},
                      {"size", "of the window", "WxH", "390x844"},
                      {"appearance", "light or dark", "NAME", "light"}});
  options.addHelpOption();
  options.process(application);
  if (options.positionalArguments().size() != 1) options.showHelp(2);
  setAppearance(options.value("appearance"));
  return draw(options);
}
