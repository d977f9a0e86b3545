#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QGuiApplication>
#include <QProcess>

#include "apps/window/desktop_portal.h"
#include "tests/window/sample_window.h"

namespace {

using Namespaces = QMap<QString, QVariantMap>;

constexpr const char* kAppearance = "org.freedesktop.appearance";
constexpr const char* kGnome = "org.gnome.desktop.interface";
constexpr const char* kPath = "/org/freedesktop/portal/desktop";
constexpr const char* kInterface = "org.freedesktop.portal.Settings";

// The desktop's side of the settings portal.
class FakePortal : public QDBusVirtualObject {
 public:
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
    connection.send(message.createReply(QVariant::fromValue(settings)));
    return true;
  }

  Namespaces settings;

 private:
  QDBusConnection bus_;
};

// The window on a session bus of its own.
class DesktopFollowing : public SampleWindow {
 protected:
  DesktopFollowing() {
    daemon_.start("dbus-daemon", {"--session", "--nofork", "--nopidfile", "--print-address"});
    EXPECT_TRUE(daemon_.waitForStarted() && daemon_.waitForReadyRead());
    address = QString::fromLatin1(daemon_.readLine()).trimmed();
    portal = std::make_unique<FakePortal>(address);
    font_ = QGuiApplication::font();
  }
  ~DesktopFollowing() override {
    following.reset();
    QDBusConnection::disconnectFromBus("window");
    portal.reset();
    daemon_.terminate();
    daemon_.waitForFinished();
    QGuiApplication::setFont(font_);
  }
  window::Desktop& desktop() { return settings->desktop(); }
  void follow() { following.emplace(desktop(), QDBusConnection::connectToBus(address, "window")); }

  QString address;
  std::unique_ptr<FakePortal> portal;
  std::optional<window::DesktopPortal> following;

 private:
  QProcess daemon_;
  QFont font_;
};

TEST_F(DesktopFollowing, TakesWhatTheDesktopWantsAtTheStart) {
  portal->settings = {{kAppearance, {{"color-scheme", 1u}, {"contrast", 1u}}},
                      {kGnome, {{"enable-animations", false}}}};
  follow();
  EXPECT_TRUE(driver->until([&] { return desktop().dark(); }));
  EXPECT_TRUE(desktop().highContrast());
  EXPECT_TRUE(desktop().reducedMotion());
}

TEST_F(DesktopFollowing, ChangesFromLightToDarkAndBackWhileItIsOpen) {
  portal->settings = {{kAppearance, {{"color-scheme", 2u}}}};
  follow();
  ASSERT_TRUE(driver->until([&] { return desktop().wishes().dark == false; }));
  EXPECT_EQ(window->color(), QColor("#F2F2F7"));
  portal->change(kAppearance, "color-scheme", 1u);
  EXPECT_TRUE(driver->until([&] { return window->color() == QColor("#000000"); }));
  portal->change(kAppearance, "color-scheme", 2u);
  EXPECT_TRUE(driver->until([&] { return window->color() == QColor("#F2F2F7"); }));
}

TEST_F(DesktopFollowing, HighContrastAndMotionFollow) {
  follow();
  portal->change(kAppearance, "contrast", 1u);
  EXPECT_TRUE(driver->until([&] { return desktop().highContrast(); }));
  portal->change(kGnome, "enable-animations", false);
  EXPECT_TRUE(driver->until([&] { return desktop().reducedMotion(); }));
  portal->change(kAppearance, "contrast", 0u);
  EXPECT_TRUE(driver->until([&] { return !desktop().highContrast(); }));
}

TEST_F(DesktopFollowing, TextGrowsWithTheDesktops) {
  follow();
  const double before = desktop().scale();
  const QRectF row = driver->place(driver->find("Custom level", kCheckBox));
  portal->change(kGnome, "text-scaling-factor", 2.0);
  EXPECT_TRUE(driver->until([&] { return desktop().scale() > 1.5 * before; }));
  driver->waitUntilIdle();
  EXPECT_GT(driver->place(driver->find("Custom level", kCheckBox)).height(), 1.5 * row.height());
  portal->change(kGnome, "text-scaling-factor", 1.0);
  EXPECT_TRUE(driver->until([&] { return desktop().scale() == before; }));
}

TEST_F(DesktopFollowing, TextsThatAreThereTakeTheDesktopsFont) {
  follow();
  portal->change(kGnome, "font-name", QString("DejaVu Serif 11"));
  const auto all = [&] {
    for (QQuickItem* text : driver->itemsOfType("QQuickText"))
      if (text->property("font").value<QFont>().family() != "DejaVu Serif") return false;
    return QGuiApplication::font().pointSizeF() == 11;
  };
  EXPECT_TRUE(driver->until(all));
}

TEST_F(DesktopFollowing, ValuesOfAnotherTypeAreIgnored) {
  portal->settings = {{kAppearance, {{"color-scheme", "dark"}, {"contrast", -1}}},
                      {kGnome, {{"text-scaling-factor", "big"}, {"font-name", 7}}}};
  follow();
  portal->change(kAppearance, "color-scheme", QString("dark"));
  portal->change(kGnome, "enable-animations", false);
  EXPECT_TRUE(driver->until([&] { return desktop().reducedMotion(); }));
  EXPECT_FALSE(desktop().highContrast());
  EXPECT_FALSE(desktop().wishes().dark);
  EXPECT_FALSE(desktop().wishes().textScale);
}

TEST_F(DesktopFollowing, WithoutAPortalAllIsAsQtHasIt) {
  const bool dark = desktop().dark();
  portal.reset();
  follow();
  QTest::qWait(50);
  EXPECT_EQ(desktop().dark(), dark);
  EXPECT_EQ(desktop().wishes(), window::DesktopWishes());
}

TEST_F(DesktopFollowing, WithoutABusAllIsAsQtHasIt) {
  qunsetenv("DBUS_SESSION_BUS_ADDRESS");
  qputenv("XDG_RUNTIME_DIR", "/nonexistent");
  EXPECT_FALSE(window::DesktopPortal::sessionBus().isConnected());
  settings->followDesktop();
  EXPECT_EQ(desktop().wishes(), window::DesktopWishes());
}

}  // namespace
