#include <unistd.h>

#include <QDir>
#include <array>
#include <csignal>
#include <cstdio>

#include "host/recorders.h"
#include "platform/foundation/text.h"
#include "prefs/core/names.h"
#include "tests/window/bundle_window.h"
#include "tests/window/random_user.h"

namespace {

using plist::Dictionary;
using plist::Value;

// The latest events, which are printed when the run fails, and when it crashes.
class Trail {
 public:
  Trail() {
    trail = this;
    for (const int signal : {SIGSEGV, SIGABRT, SIGFPE, SIGBUS}) std::signal(signal, &crashed);
  }
  ~Trail() {
    for (const int signal : {SIGSEGV, SIGABRT, SIGFPE, SIGBUS}) std::signal(signal, SIG_DFL);
  }
  void begin(unsigned seed) { seed_ = seed; }
  void add(const std::string& event) {
    std::snprintf(latest_[count_ % kKept].data(), kLength, "%7d  %s\n", count_, event.c_str());
    ++count_;
  }
  std::string words() const {
    std::string all = "WINDOW_TEST_SEED=" + std::to_string(seed_) + "; the latest events:\n";
    for (int i = std::max(0, count_ - kKept); i < count_; ++i) all += latest_[i % kKept].data();
    return all;
  }

 private:
  static constexpr int kKept = 40, kLength = 100;

  static void crashed(int signal) {
    const std::string words = trail->words();
    static_cast<void>(!write(STDERR_FILENO, words.data(), words.size()));
    std::signal(signal, SIG_DFL);
    std::raise(signal);
  }

  static inline Trail* trail = nullptr;
  unsigned seed_ = 0;
  int count_ = 0;
  std::array<std::array<char, kLength>, kKept> latest_{};
};

class NoUrls : public platform::Urls {
  bool canOpen(std::string_view) override { return true; }
  bool open(std::string_view) override { return true; }
};

// A user who does anything at all: WINDOW_TEST_EVENTS says how much, WINDOW_TEST_SEED what.
class RandomRun : public BundleWindow {
 protected:
  static constexpr int kBetweenLooks = 500;  // events

  RandomRun() {
    options.state = folder.path().toStdString() + "/state";
    substitutes = {nullptr, &urls, &sounds};
    // What is exported or typed as a file's name stays here.
    qputenv("HOME", folder.path().toLocal8Bit());
    QDir().mkpath(folder.filePath("work"));
    QDir::setCurrent(folder.filePath("work"));
    warnings.clear();
    before = qInstallMessageHandler(&note);
  }
  ~RandomRun() override {
    closeAll();
    qInstallMessageHandler(before);
    QDir::setCurrent(workedIn);
    qputenv("HOME", home);
  }

  static void note(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (type == QtDebugMsg || type == QtInfoMsg) return;
    // Of Qt's lists alone, when entries are removed while it makes the next one.
    if (!message.startsWith("DelegateModel::cancel: index out range")) warnings << message;
    before(type, context, message);
  }

  void fill() {
    foundation::DeviceRoot root(folder.path().toStdString());
    const std::uint8_t byte = 'x';
    for (const char* name : {"one", "two", "three"})
      ASSERT_TRUE(root.writeDurably(std::string(platform::kSystemSoundPath) + "/" + name + ".caf",
                                    {&byte, 1}));
    for (const char* level : {"20", "55", "101"})
      write(std::string(prefs::kDocuments) + "profile_" + level + ".qvx",
            Dictionary{{"profilepercentage", level}, {"custbright", 30}, {"vibrate", true}});
    write(std::string(prefs::kBatteryLog), plist::Array{"first", "second"});
  }

  // How the rows of the shown page differ from the file, and their controls from the rows.
  QStringList differences() const {
    foundation::DeviceRoot root(folder.path().toStdString());
    foundation::Preferences file(root);
    QStringList found;
    const host::PageView shown = page();
    for (const host::RowView& row : shown.rows)
      if (!row.key.empty() && !row.standard.isNothing())
        compare(row.key, row.value, row.standard, file, found);
    if (const auto& opener = shown.opener)
      compare(opener->key, opener->value, opener->standard, file, found);
    if (shown.choices && shown.stores) compareChoice(shown, file, found);
    for (const char* type : {"SwitchRow", "SliderRow", "SegmentRow", "TextRow"})
      for (QQuickItem* item : driver->itemsOfType(type)) compareControl(item, shown, found);
    return found;
  }

  void look() {
    driver->waitUntilIdle();
    EXPECT_TRUE(driver->until([this] { return differences().isEmpty(); }))
        << title().toStdString() << ": " << differences().join("; ").toStdString();
    EXPECT_EQ(warnings, QStringList());
  }

  Trail trail;
  NoUrls urls;
  host::RecordedSounds sounds;
  const QByteArray home = qgetenv("HOME");
  const QString workedIn = QDir::currentPath();
  static inline QStringList warnings;
  static inline QtMessageHandler before = nullptr;

 private:
  static QString words(const Value& value) {
    return QString::fromStdString(foundation::descriptionOf(value));
  }
  // A switch shows true for a stored 1.
  static bool alike(const Value& shown, const Value& stored) {
    const auto number = [](const Value& value) {
      const auto boolean = value.boolean();
      return boolean ? std::optional<double>(*boolean) : value.number();
    };
    if (number(shown) && number(stored)) return *number(shown) == *number(stored);
    return equalByValue(shown, stored);
  }
  static void compare(const std::string& key, const Value& shown, const Value& standard,
                      foundation::Preferences& file, QStringList& found) {
    const Value stored = file.copyAppValue(key, prefs::kDomain).value_or(standard);
    if (!alike(shown, stored))
      found << QString::fromStdString(key) + ": shown " + words(shown) + ", stored " +
                   words(stored);
  }
  void compareChoice(const host::PageView& shown, foundation::Preferences& file,
                     QStringList& found) const {
    const auto* opener = application->shownPage()->specifier();
    const std::string key(opener->textForKey("key"));
    const Value stored =
        file.copyAppValue(key, prefs::kDomain).value_or(opener->propertyForKey("default"));
    const auto& values = shown.choices->values;
    const auto at = std::ranges::find_if(
        values, [&](const Value& value) { return equalByValue(value, stored); });
    const int expected = at == values.end() ? -1 : static_cast<int>(at - values.begin());
    if (expected != shown.chosen)
      found << QString::fromStdString(key) + ": ticked " + QString::number(shown.chosen) +
                   ", stored " + words(stored);
  }
  // An editor that is open keeps its own text.
  void compareControl(QQuickItem* item, const host::PageView& shown, QStringList& found) const {
    const auto row = std::ranges::find(shown.rows, item->property("entry").value<window::Row>().id,
                                       &host::RowView::id);
    auto* control = item->property("control").value<QQuickItem*>();
    if (row == shown.rows.end() || !control || control->hasActiveFocus()) return;
    const window::Row expected(*row);
    bool same = true;
    switch (row->kind) {
      case host::RowKind::Switch:
        same = control->property("checked").toBool() == expected.on;
        break;
      case host::RowKind::Slider:
        same = std::abs(control->property("value").toDouble() - expected.number) < 1e-6;
        break;
      case host::RowKind::Segments:
        same = item->property("entry").value<window::Row>().selected == expected.selected;
        break;
      case host::RowKind::Text:
        same = control->property("text").toString() == expected.value;
        break;
      default:
        break;
    }
    if (!same) found << "the control of " + expected.label;
  }
};

TEST_F(RandomRun, TheStoreIsWhatTheRowsShow) {
  const int events = qEnvironmentVariableIntValue("WINDOW_TEST_EVENTS");
  const int seed = qEnvironmentVariableIntValue("WINDOW_TEST_SEED");
  fill();
  open(nullptr, 390, 844);
  trail.begin(seed);
  RandomUser user(seed, *window, settings->desktop(), folder.path().toStdString());
  for (int i = 1; i <= (events > 0 ? events : 2000) && !HasFailure(); ++i) {
    trail.add(user.act());
    QCoreApplication::processEvents();
    if (i % kBetweenLooks == 0) look();
    if (!warnings.isEmpty()) look();
  }

  // To the first page, and from there to each.
  driver->resize(390, 5000);
  for (int i = 0; i < 30; ++i) driver->key(Qt::Key_Escape);
  ASSERT_EQ(scene().pages.size(), 1u);
  const std::size_t links = page().rows.size();
  for (std::size_t i = 0; i < links && !HasFailure(); ++i) {
    if (page().rows[i].kind != host::RowKind::Link) continue;
    ASSERT_TRUE(application->perform(host::Tap{static_cast<int>(i)}));
    look();
    ASSERT_TRUE(application->perform(host::Back{}));
    driver->waitUntilIdle();
  }
  if (HasFailure()) std::fputs(trail.words().c_str(), stderr);
}

}  // namespace
