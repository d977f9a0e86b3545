// Opens the choices of 10,000 sounds, then of 5,000 contacts, and goes through them as a user
// does, without a display. Prints for each list what the data took, how long after it the first
// frame came, how evenly frames came while the wheel scrolled for three seconds, and what each
// letter in the filter took until the frame that shows its matches.

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QtTest/QTest>
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <vector>

#include "apps/window/settings_window.h"
#include "host/device.h"

namespace {

constexpr double kFrame = 1000.0 / 60;
constexpr int kDuration = 3000;

void fill(const std::filesystem::path& root) {
  for (int i = 0; i < 10'000; ++i) {
    const auto folder = root / "System/Library/Audio/UISounds" / std::to_string(i / 100);
    std::filesystem::create_directories(folder);
    std::ofstream(folder / ("sound " + std::to_string(i) + ".caf")) << 'x';
  }
  const auto book = root / "var/mobile/Library/AddressBook";
  std::filesystem::create_directories(book);
  std::ofstream people(book / "people.vcf");
  for (int i = 0; i < 5'000; ++i)
    people << "BEGIN:VCARD\r\nVERSION:3.0\r\nN:Family" << i << ";Jörg;;;\r\nTEL:+49 30 " << i
           << "\r\nEND:VCARD\r\n";
}

QQuickItem* itemBelow(QQuickItem* item, const char* type) {
  if (item->isVisible() && QByteArray(item->metaObject()->className()).startsWith(type))
    return item;
  for (QQuickItem* child : item->childItems())
    if (QQuickItem* found = itemBelow(child, type)) return found;
  return nullptr;
}

class Frames {
 public:
  explicit Frames(QQuickWindow& window) {
    time_.start();
    connection_ =
        QObject::connect(&window, &QQuickWindow::frameSwapped, [this] { times.push_back(now()); });
  }
  ~Frames() { QObject::disconnect(connection_); }

  double now() const { return static_cast<double>(time_.nsecsElapsed()) / 1e6; }
  // Until a frame is drawn of which `shows` holds.
  double until(const std::function<bool()>& shows) {
    const double start = now();
    for (std::size_t seen = times.size();;) {
      if (!QTest::qWaitFor([&] { return times.size() > seen; }, 5000)) return -1;
      seen = times.size();
      if (shows()) return times.back() - start;
    }
  }

  std::vector<double> times;  // in milliseconds

 private:
  QElapsedTimer time_;
  QMetaObject::Connection connection_;
};

void turnWheel(QQuickWindow& window, QQuickItem& list, double time) {
  const QPointF at = list.mapToScene(QPointF(list.width() / 2, list.height() / 2));
  QWheelEvent event(at, window.mapToGlobal(at), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  event.setTimestamp(static_cast<quint64>(time));
  QCoreApplication::sendEvent(&window, &event);
}

void scroll(QQuickWindow& window, QQuickItem& list) {
  Frames frames(window);
  while (frames.now() < kDuration) {
    turnWheel(window, list, frames.now());
    QTest::qWait(8);
  }
  std::vector<double> gaps;
  for (std::size_t i = 1; i < frames.times.size(); ++i)
    gaps.push_back(frames.times[i] - frames.times[i - 1]);
  if (gaps.empty()) return;
  std::ranges::sort(gaps);
  const auto dropped = std::ranges::count_if(gaps, [](double gap) { return gap > 1.5 * kFrame; });
  std::printf(
      "  scroll      frames %zu in %d ms, gap median %.1f ms, 99%% %.1f ms, longest %.1f "
      "ms, dropped %td, at %.0f\n",
      frames.times.size(), kDuration, gaps[gaps.size() / 2], gaps[gaps.size() * 99 / 100],
      gaps.back(), dropped, list.property("contentY").toReal());
}

void filter(QQuickWindow& window, const char* letters) {
  QQuickItem* field = itemBelow(window.contentItem(), "FilterField");
  if (!field) return;
  field->forceActiveFocus();
  Frames frames(window);
  std::printf("  filter     ");
  for (const char* letter = letters; *letter; ++letter) {
    QTest::qWait(100);
    const double start = frames.now();
    QTest::keyClick(&window, *letter);
    const double handled = frames.now() - start;
    const double shown = frames.until([] { return true; });
    std::printf(" '%c' %.1f + %.1f ms", *letter, handled, shown);
  }
  std::printf("\n");
}

bool measure(host::Application& application, QQuickWindow& window, const char* row,
             const char* letters) {
  const auto choices = [&] {
    QElapsedTimer time;
    time.start();
    const auto data = application.choices(std::string(row));
    return data ? std::pair((*data)->values.size(), static_cast<double>(time.nsecsElapsed()) / 1e6)
                : std::pair(std::size_t{0}, 0.0);
  };
  choices();  // what is loaded at first use
  const auto [count, data] = choices();
  Frames frames(window);
  if (!application.perform(host::Tap{row})) return false;
  const double tapped = frames.now();
  const double first =
      frames.until([&] { return itemBelow(window.contentItem(), "ChoiceRow") != nullptr; });
  std::printf("%s: %zu choices\n  data        %.1f ms\n  first frame %.1f ms after the data\n", row,
              count, data, tapped - data + first);
  QTest::qWait(800);
  QQuickItem* list = itemBelow(window.contentItem(), "ChoicesView");
  if (!list || !(list = itemBelow(list, "QQuickListView"))) return false;
  scroll(window, *list);
  filter(window, letters);
  if (!application.perform(host::Back{})) return false;
  QTest::qWait(800);
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_QUICK_BACKEND", "software");
  QGuiApplication gui(argc, argv);
  QTemporaryDir folder;
  fill(folder.path().toStdString());
  auto owned = std::make_unique<window::QtMainQueue>();
  window::QtMainQueue& queue = *owned;
  host::Device device({.root = folder.path().toStdString(), .contacts = {}, .idiom = {}},
                      std::move(owned));
  if (!device.preferences().setAppValue("sendmessage", true, "com.zorvek.quorvantis")) return 1;
  host::Application application(device.environment(), 40);
  if (!application.perform(host::Launch{"UserNotificationListController"})) return 1;
  window::SettingsWindow settings(application, queue);
  QQuickWindow& window = *settings.quickWindow();
  window.resize(390, 844);
  QTest::qWait(800);
  return measure(application, window, "playsound", "nd 98") &&
                 measure(application, window, "adressbook", "Y498")
             ? 0
             : 1;
}
