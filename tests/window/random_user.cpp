#include "tests/window/random_user.h"

#include <QGuiApplication>
#include <QKeySequence>
#include <QtTest/QTest>

#include "platform/archive/keyed_archive.h"
#include "platform/foundation/preferences.h"
#include "prefs/core/names.h"

namespace {

using plist::Array;
using plist::Dictionary;
using plist::Value;

struct Stroke {
  Qt::Key key;
  Qt::KeyboardModifiers with = Qt::NoModifier;
};

constexpr Stroke kStrokes[] = {{Qt::Key_Tab},
                               {Qt::Key_Tab},
                               {Qt::Key_Backtab, Qt::ShiftModifier},
                               {Qt::Key_Down},
                               {Qt::Key_Down},
                               {Qt::Key_Up},
                               {Qt::Key_Left},
                               {Qt::Key_Right},
                               {Qt::Key_Left, Qt::ShiftModifier},
                               {Qt::Key_Right, Qt::ShiftModifier},
                               {Qt::Key_Home},
                               {Qt::Key_End},
                               {Qt::Key_PageDown},
                               {Qt::Key_PageUp},
                               {Qt::Key_Return},
                               {Qt::Key_Return},
                               {Qt::Key_Space},
                               {Qt::Key_Space},
                               {Qt::Key_Escape},
                               {Qt::Key_Backspace},
                               {Qt::Key_Delete},
                               {Qt::Key_Left, Qt::AltModifier},
                               {Qt::Key_F, Qt::ControlModifier},
                               {Qt::Key_Z, Qt::ControlModifier},
                               {Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier},
                               {Qt::Key_A, Qt::ControlModifier},
                               {Qt::Key_F1},
                               {Qt::Key_F10, Qt::ShiftModifier},
                               {Qt::Key_Menu}};
constexpr char kLetters[] = "0123456789aeilnorstv.- %";

// What other programs store: what rows take, and what they don't.
const std::pair<const char*, Value> kElsewhere[] = {
    {"enabled", false},
    {"enabled", true},
    {"custbrightenabled", true},
    {"custbrightenabled", false},
    {"custbright", 17.0},
    {"custbright", 250},
    {"custbright", "many"},
    {"wifi", 2},
    {"wifi", 77},
    {"vibrate", true},
    {"vibrate", 1},
    {"vibrateduration", 3},
    {"msgtext", "Theirs"},
    {"msgtext", 5},
    {"playsound", "file:///System/Library/Audio/UISounds/one.caf"},
    {"bannercolor", "#007AFF"},
    {"bannercolor", "none"},
    {"lowpowermodeenabled", true},
    {"lowpowermodeenabled", false},
    {"profilepercentage", "20"},
    {"alerttype", 1},
    {"autolock", 60},
    {"autolock", Value()},
    {"custvolume", 30},
    {"profiledescription", "Ours\nand theirs"}};

}  // namespace

std::string RandomUser::click() {
  const QPoint at = anywhere();
  const auto button = below(8) == 0 ? Qt::RightButton : Qt::LeftButton;
  QTest::mouseClick(&window_, button, {}, at);
  return (button == Qt::LeftButton ? "click " : "click right ") + std::to_string(at.x()) + ' ' +
         std::to_string(at.y());
}

std::string RandomUser::drag() {
  const QPoint from = anywhere(), to = anywhere();
  QTest::mousePress(&window_, Qt::LeftButton, {}, from);
  for (int step = 1; step <= 4; ++step) {
    QTest::mouseMove(&window_, from + (to - from) * step / 4);
    QCoreApplication::processEvents();
  }
  QTest::mouseRelease(&window_, Qt::LeftButton, {}, to);
  return "drag " + std::to_string(from.x()) + ' ' + std::to_string(from.y()) + " to " +
         std::to_string(to.x()) + ' ' + std::to_string(to.y());
}

std::string RandomUser::pressKey() {
  if (below(4) == 0) {
    const char letter = kLetters[below(std::size(kLetters) - 1)];
    QTest::keyClick(&window_, letter);
    return std::string("type ") + letter;
  }
  const Stroke& stroke = kStrokes[below(std::size(kStrokes))];
  QTest::keyClick(&window_, stroke.key, stroke.with);
  return "press " + QKeySequence(stroke.key | stroke.with).toString().toStdString();
}

std::string RandomUser::turnWheel() {
  const QPointF at = anywhere();
  const int turned = (below(9) - 4) * 120;
  QWheelEvent event(at, window_.mapToGlobal(at), {}, {0, turned}, Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(&window_, &event);
  return "wheel " + std::to_string(turned);
}

std::string RandomUser::resize() {
  const QSize size(320 + below(900), 480 + below(600));
  window_.resize(size);
  return "resize " + std::to_string(size.width()) + ' ' + std::to_string(size.height());
}

std::string RandomUser::wish() {
  constexpr double kScales[] = {1, 1.25, 1.5, 2};
  const window::DesktopWishes wishes{below(2) == 0, below(4) == 0, below(2) == 0,
                                     kScales[below(std::size(kScales))], ""};
  desktop_.follow(wishes);
  return std::string("wish") + (*wishes.dark ? " dark" : " light") +
         (*wishes.highContrast ? ", high contrast" : "") +
         (*wishes.reducedMotion ? ", reduced motion" : "") + ", text " +
         std::to_string(static_cast<int>(*wishes.textScale * 100));
}

std::string RandomUser::storeElsewhere() {
  foundation::DeviceRoot root(root_);
  const std::string documents(prefs::kDocuments);
  const std::string profile = documents + (below(2) == 0 ? "profile_20.qvx" : "profile_7.qvx");
  switch (below(8)) {
    case 0: {
      const auto bytes = archive::archive(
          Dictionary{{prefs::kProfilePercentage.data(), profile.ends_with("20.qvx") ? "20" : "7"},
                     {"custbright", below(100)}},
          archive::Mutability::Mutable);
      static_cast<void>(root.writeDurably(profile, *bytes));
      return "another program saves " + profile;
    }
    case 1:
      static_cast<void>(root.remove(profile));
      return "another program removes " + profile;
    case 2: {
      Array log;
      for (int i = below(50); i > 0; --i) log.emplace_back("Entry " + std::to_string(i));
      static_cast<void>(root.writeDurably(prefs::kBatteryLog,
                                          *archive::archive(log, archive::Mutability::Mutable)));
      return "another program writes the log";
    }
    default: {
      const auto& [key, value] = kElsewhere[below(std::size(kElsewhere))];
      foundation::Preferences preferences(root);
      static_cast<void>(preferences.setAppValue(key, value, prefs::kDomain));
      return std::string("another program stores ") + key;
    }
  }
}

std::string RandomUser::wait() {
  const int milliseconds = 1 + below(60);
  QTest::qWait(milliseconds);
  return "wait " + std::to_string(milliseconds);
}

std::string RandomUser::act() {
  const int kind = below(100);
  if (kind < 25) return click();
  if (kind < 32) return drag();
  if (kind < 70) return pressKey();
  if (kind < 78) return turnWheel();
  if (kind < 80) return resize();
  if (kind < 82) return wish();
  if (kind < 90) return storeElsewhere();
  if (kind < 95) {
    QTest::keyClick(&window_, Qt::Key_Left, Qt::AltModifier);
    return "back";
  }
  if (kind < 98) {
    const bool active = below(2) == 0;
    emit qApp->applicationStateChanged(active ? Qt::ApplicationActive : Qt::ApplicationInactive);
    return active ? "to the foreground" : "to the background";
  }
  return wait();
}
