#pragma once

#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QProcess>
#include <memory>

// What the desktop's settings portal says and reports, on a session bus of a test's own.
constexpr const char* kAppearance = "org.freedesktop.appearance";
constexpr const char* kGnome = "org.gnome.desktop.interface";

class FakePortal : public QDBusVirtualObject {
  static constexpr const char* kPath = "/org/freedesktop/portal/desktop";
  static constexpr const char* kInterface = "org.freedesktop.portal.Settings";

 public:
  using Namespaces = QMap<QString, QVariantMap>;

  explicit FakePortal(const QString& address)
      : bus_(QDBusConnection::connectToBus(address, "portal")) {
    qDBusRegisterMetaType<Namespaces>();
    EXPECT_TRUE(bus_.registerVirtualObject(kPath, this));
    EXPECT_TRUE(bus_.registerService("org.freedesktop.portal.Desktop"));
  }
  ~FakePortal() override { QDBusConnection::disconnectFromBus("portal"); }

  void change(const char* space, const char* key, const QVariant& value) {
    settings[space][key] = value;
    auto signal = QDBusMessage::createSignal(kPath, kInterface, "SettingChanged");
    signal << space << key << QVariant::fromValue(QDBusVariant(value));
    EXPECT_TRUE(bus_.send(signal));
  }

  QString introspect(const QString&) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
    if (message.member() != "ReadAll") return false;
    if (!answers) return true;
    connection.send(message.createReply(QVariant::fromValue(settings)));
    return true;
  }

  Namespaces settings;
  bool answers = true;

 private:
  QDBusConnection bus_;
};

class PortalBus {
 public:
  PortalBus() {
    daemon_.start("dbus-daemon", {"--session", "--nofork", "--nopidfile", "--print-address"});
    EXPECT_TRUE(daemon_.waitForStarted() && daemon_.waitForReadyRead());
    address_ = QString::fromLatin1(daemon_.readLine()).trimmed();
    portal_ = std::make_unique<FakePortal>(address_);
  }
  ~PortalBus() {
    portal_.reset();
    daemon_.terminate();
    daemon_.waitForFinished();
  }

  const QString& address() const { return address_; }
  FakePortal& portal() { return *portal_; }
  void removePortal() { portal_.reset(); }

 private:
  QProcess daemon_;
  QString address_;
  std::unique_ptr<FakePortal> portal_;
};
