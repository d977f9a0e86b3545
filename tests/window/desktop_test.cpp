#include <QGuiApplication>

#include "apps/window/desktop_portal.h"
#include "tests/window/fake_portal.h"
#include "tests/window/sample_window.h"

namespace {

// The window on a session bus of its own.
class DesktopFollowing : public SampleWindow {
 protected:
  DesktopFollowing() { font_ = QGuiApplication::font(); }
  ~DesktopFollowing() override {
    following.reset();
    QDBusConnection::disconnectFromBus("window");
    QGuiApplication::setFont(font_);
  }
  window::Desktop& desktop() { return settings->desktop(); }
  void follow() {
    following.emplace(desktop(), QDBusConnection::connectToBus(bus.address(), "window"));
  }

  PortalBus bus;
  std::optional<window::DesktopPortal> following;

 private:
  QFont font_;
};

TEST_F(DesktopFollowing, TakesWhatTheDesktopWantsAtTheStart) {
  bus.portal().settings = {{kAppearance, {{"color-scheme", 1u}, {"contrast", 1u}}},
                           {kGnome, {{"enable-animations", false}}}};
  follow();
  EXPECT_TRUE(driver->until([&] { return desktop().dark(); }));
  EXPECT_TRUE(desktop().highContrast());
  EXPECT_TRUE(desktop().reducedMotion());
}

TEST_F(DesktopFollowing, ChangesFromLightToDarkAndBackWhileItIsOpen) {
  bus.portal().settings = {{kAppearance, {{"color-scheme", 2u}}}};
  follow();
  ASSERT_TRUE(driver->until([&] { return desktop().wishes().dark == false; }));
  EXPECT_EQ(window->color(), QColor("#F2F2F7"));
  bus.portal().change(kAppearance, "color-scheme", 1u);
  EXPECT_TRUE(driver->until([&] { return window->color() == QColor("#000000"); }));
  bus.portal().change(kAppearance, "color-scheme", 2u);
  EXPECT_TRUE(driver->until([&] { return window->color() == QColor("#F2F2F7"); }));
}

TEST_F(DesktopFollowing, HighContrastAndMotionFollow) {
  follow();
  bus.portal().change(kAppearance, "contrast", 1u);
  EXPECT_TRUE(driver->until([&] { return desktop().highContrast(); }));
  bus.portal().change(kGnome, "enable-animations", false);
  EXPECT_TRUE(driver->until([&] { return desktop().reducedMotion(); }));
  bus.portal().change(kAppearance, "contrast", 0u);
  EXPECT_TRUE(driver->until([&] { return !desktop().highContrast(); }));
}

TEST_F(DesktopFollowing, TextGrowsWithTheDesktops) {
  follow();
  const double before = desktop().scale();
  const QRectF row = driver->place(driver->find("Custom level", kCheckBox));
  bus.portal().change(kGnome, "text-scaling-factor", 2.0);
  EXPECT_TRUE(driver->until([&] { return desktop().scale() > 1.5 * before; }));
  driver->waitUntilIdle();
  EXPECT_GT(driver->place(driver->find("Custom level", kCheckBox)).height(), 1.5 * row.height());
  bus.portal().change(kGnome, "text-scaling-factor", 1.0);
  EXPECT_TRUE(driver->until([&] { return desktop().scale() == before; }));
}

TEST_F(DesktopFollowing, TextsThatAreThereTakeTheDesktopsFont) {
  follow();
  bus.portal().change(kGnome, "font-name", QString("DejaVu Serif 11"));
  const auto all = [&] {
    for (QQuickItem* text : driver->itemsOfType("QQuickText"))
      if (text->property("font").value<QFont>().family() != "DejaVu Serif") return false;
    return QGuiApplication::font().pointSizeF() == 11;
  };
  EXPECT_TRUE(driver->until(all));
}

TEST_F(DesktopFollowing, ValuesOfAnotherTypeAreIgnored) {
  bus.portal().settings = {{kAppearance, {{"color-scheme", "dark"}, {"contrast", -1}}},
                           {kGnome, {{"text-scaling-factor", "big"}, {"font-name", 7}}}};
  follow();
  bus.portal().change(kAppearance, "color-scheme", QString("dark"));
  bus.portal().change(kGnome, "enable-animations", false);
  EXPECT_TRUE(driver->until([&] { return desktop().reducedMotion(); }));
  EXPECT_FALSE(desktop().highContrast());
  EXPECT_FALSE(desktop().wishes().dark);
  EXPECT_FALSE(desktop().wishes().textScale);
}

TEST_F(DesktopFollowing, WithoutAPortalAllIsAsQtHasIt) {
  const bool dark = desktop().dark();
  bus.removePortal();
  follow();
  QTest::qWait(50);
  EXPECT_EQ(desktop().dark(), dark);
  EXPECT_EQ(desktop().wishes(), window::DesktopWishes());
}

TEST_F(DesktopFollowing, WithoutABusAllIsAsQtHasIt) {
  qunsetenv("DBUS_SESSION_BUS_ADDRESS");
  qputenv("XDG_RUNTIME_DIR", "/nonexistent");
  EXPECT_FALSE(window::DesktopPortal::sessionBus().isConnected());
  following.emplace(desktop(), window::DesktopPortal::sessionBus());
  EXPECT_EQ(desktop().wishes(), window::DesktopWishes());
}

}  // namespace
