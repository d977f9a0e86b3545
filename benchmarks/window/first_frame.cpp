// first_frame: from the start of a process to its first frame, without a display, and what it holds
// then: the Settings window on an empty device against a Qt Quick Controls window of thirty
// switches. Prints medians, quartiles and the ratio of paired runs, and how often the idle window
// wakes up in five seconds.

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QProcess>
#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include "apps/window/session.h"

namespace {

constexpr int kRounds = 41;
constexpr int kSettling = 3000, kIdle = 5000;  // milliseconds

// Nanoseconds of the clock that all processes share.
qint64 now() {
  return std::chrono::steady_clock::now().time_since_epoch().count();
}

// The number behind a name in a file of /proc.
long numberIn(const char* file, const std::string& name) {
  std::ifstream in(file);
  for (std::string line; std::getline(in, line);)
    if (line.starts_with(name + ":")) return std::stol(line.substr(name.size() + 1));
  return -1;
}

long wakeUps() {
  return numberIn("/proc/self/status", "voluntary_ctxt_switches");
}

// Prints milliseconds since the start and KiB at the first frame; with `idle` the wake-ups later.
int show(QQuickWindow* window, qint64 started, bool idle) {
  if (!window) return 1;
  QObject::connect(
      window, &QQuickWindow::frameSwapped, window,
      [=] {
        std::printf("%f %ld\n", static_cast<double>(now() - started) / 1e6,
                    numberIn("/proc/self/smaps_rollup", "Pss"));
        std::fflush(stdout);
        if (!idle) std::_Exit(0);
      },
      static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
  QTimer::singleShot(kSettling, [] {
    const long before = wakeUps();
    QTimer::singleShot(kIdle, [before] {
      std::printf("%ld\n", wakeUps() - before - 1);  // one is this timer's
      std::fflush(stdout);
      std::_Exit(0);
    });
  });
  return QGuiApplication::exec();
}

int showSettings(qint64 started, bool idle, const std::string& folder) {
  window::Options options;
  options.device.root = folder + "/device";
  options.device.state = folder + "/state";
  const auto session = window::Session::open(options);
  return session ? show((*session)->settings().quickWindow(), started, idle) : 1;
}

int showSwitches(qint64 started, bool idle) {
  QQmlApplicationEngine engine("qrc:/qt/qml/Bench/Switches.qml");
  const auto made = engine.rootObjects();
  return show(made.isEmpty() ? nullptr : qobject_cast<QQuickWindow*>(made.first()), started, idle);
}

struct Sample {
  double milliseconds = 0, mebibytes = 0;
  long wakeUps = -1;
};

Sample run(const QString& what, const QTemporaryDir& folder, bool idle = false) {
  QProcess process;
  process.start(QCoreApplication::applicationFilePath(),
                {what, QString::number(now()), idle ? "idle" : "once", folder.path()});
  process.waitForFinished();
  const QStringList said = QString::fromLatin1(process.readAllStandardOutput()).split(u'\n');
  const QStringList frame = said[0].split(u' ');
  if (frame.size() != 2) qFatal("%s shows no frame", qPrintable(what));
  return {frame[0].toDouble(), frame[1].toDouble() / 1024, said.value(1, "-1").toLong()};
}

struct Spread {
  double low, median, high;  // quartiles
};

Spread spreadOf(std::vector<double> values) {
  std::ranges::sort(values);
  return {values[values.size() / 4], values[values.size() / 2], values[values.size() * 3 / 4]};
}

void print(const char* what, const char* unit, const std::vector<double>& values) {
  const auto [low, median, high] = spreadOf(values);
  std::printf("%-34s %7.2f %s (%.2f to %.2f)\n", what, median, unit, low, high);
}

int compare() {
  const QTemporaryDir folder;
  std::vector<double> ours, theirs, ratios, more;
  for (int round = 0; round <= kRounds; ++round) {
    const Sample settings = run("settings", folder), switches = run("switches", folder);
    if (round == 0) continue;  // the first one fills caches
    ours.push_back(settings.milliseconds);
    theirs.push_back(switches.milliseconds);
    ratios.push_back(settings.milliseconds / switches.milliseconds);
    more.push_back(settings.mebibytes - switches.mebibytes);
  }
  print("first frame, Settings", "ms", ours);
  print("first frame, thirty switches", "ms", theirs);
  print("ratio", "", ratios);
  print("PSS above thirty switches", "MiB", more);
  std::printf("%-34s %4ld\n", "wake-ups in 5 s, Settings", run("settings", folder, true).wakeUps);
  std::printf("%-34s %4ld\n", "wake-ups in 5 s, thirty switches",
              run("switches", folder, true).wakeUps);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_QUICK_BACKEND", "software");
  qunsetenv("DBUS_SESSION_BUS_ADDRESS");
  if (argc < 5) {
    QCoreApplication application(argc, argv);
    return compare();
  }
  QGuiApplication application(argc, argv);
  const qint64 started = std::stoll(argv[2]);
  const bool idle = std::string_view(argv[3]) == "idle";
  return std::string_view(argv[1]) == "settings" ? showSettings(started, idle, argv[4])
                                                 : showSwitches(started, idle);
}
