#include "apps/window/desktop_portal.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QEventLoop>
#include <QFile>
#include <QMetaType>
#include <QTimer>

namespace window {
namespace {

constexpr const char* kService = "org.freedesktop.portal.Desktop";
constexpr const char* kPath = "/org/freedesktop/portal/desktop";
constexpr const char* kInterface = "org.freedesktop.portal.Settings";
constexpr const char* kAppearance = "org.freedesktop.appearance";
constexpr const char* kGnome = "org.gnome.desktop.interface";
constexpr const char* kGnomeAccess = "org.gnome.desktop.a11y.interface";

constexpr int kPatience = 100;  // milliseconds

using Namespaces = QMap<QString, QVariantMap>;

bool hasBus() {
  if (!qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS")) return true;
  const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
  return !folder.isEmpty() && QFile::exists(folder + "/bus");
}

std::optional<bool> boolIn(const QVariant& value) {
  if (value.typeId() == QMetaType::Bool) return value.toBool();
  return std::nullopt;
}

// A number of an enumeration, such as 1 for "dark"; 0 is no preference.
std::optional<uint> choiceIn(const QVariant& value) {
  if (value.typeId() != QMetaType::UInt || value.toUInt() == 0) return std::nullopt;
  return value.toUInt();
}

void takeWish(const QString& space, const QString& key, const QVariant& value,
              DesktopWishes& wishes) {
  if (space == kAppearance && key == "color-scheme") {
    const auto scheme = choiceIn(value);
    wishes.dark = scheme ? std::optional(*scheme == 1) : std::nullopt;
  } else if (space == kAppearance && key == "contrast") {
    wishes.highContrast = choiceIn(value) == 1u;
  } else if (space == kAppearance && key == "reduced-motion") {
    wishes.reducedMotion = choiceIn(value) == 1u;
  } else if (space == kGnomeAccess && key == "high-contrast") {
    if (const auto high = boolIn(value)) wishes.highContrast = high;
  } else if (space == kGnome && key == "enable-animations") {
    if (const auto moves = boolIn(value)) wishes.reducedMotion = !*moves;
  } else if (space == kGnome && key == "text-scaling-factor") {
    if (value.typeId() == QMetaType::Double) wishes.textScale = value.toDouble();
  } else if (space == kGnome && key == "font-name") {
    if (value.typeId() == QMetaType::QString) wishes.font = value.toString();
  }
}

}  // namespace

DesktopPortal::DesktopPortal(Desktop& desktop, const QDBusConnection& bus)
    : desktop_(desktop), bus_(bus) {
  if (!bus_.isConnected()) return;
  qRegisterMetaType<QDBusVariant>("QDBusVariant");
  bus_.connect(kService, kPath, kInterface, "SettingChanged", this,
               SLOT(settingChanged(QString, QString, QDBusVariant)));
  ask();
}

// Without the question Qt would start a bus of its own.
QDBusConnection DesktopPortal::sessionBus() {
  return hasBus() ? QDBusConnection::sessionBus() : QDBusConnection(QString());
}

void DesktopPortal::await() {
  if (!waiting_) return;
  QEventLoop loop;
  connect(this, &DesktopPortal::answered, &loop, &QEventLoop::quit);
  QTimer::singleShot(kPatience, &loop, &QEventLoop::quit);
  loop.exec(QEventLoop::ExcludeUserInputEvents);
}

void DesktopPortal::ask() {
  waiting_ = true;
  auto call = QDBusMessage::createMethodCall(kService, kPath, kInterface, "ReadAll");
  call << QStringList{kAppearance, kGnome, kGnomeAccess};
  auto* answer = new QDBusPendingCallWatcher(bus_.asyncCall(call), this);
  connect(answer, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* done) {
    done->deleteLater();
    take(done->reply());
    waiting_ = false;
    emit answered();
  });
}

void DesktopPortal::take(const QDBusMessage& answer) {
  const auto arguments = answer.arguments();
  if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != "a{sa{sv}}") return;
  const auto spaces = qdbus_cast<Namespaces>(arguments[0]);
  DesktopWishes wishes = desktop_.wishes();
  for (auto space = spaces.begin(); space != spaces.end(); ++space)
    for (auto key = space->begin(); key != space->end(); ++key)
      takeWish(space.key(), key.key(), key.value(), wishes);
  desktop_.follow(wishes);
}

void DesktopPortal::settingChanged(const QString& space, const QString& key,
                                   const QDBusVariant& value) {
  DesktopWishes wishes = desktop_.wishes();
  takeWish(space, key, value.variant(), wishes);
  desktop_.follow(wishes);
}

}  // namespace window
