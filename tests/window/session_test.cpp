#include "apps/window/session.h"

#include <gmock/gmock.h>

#include <QElapsedTimer>
#include <QQuickWindow>
#include <QTemporaryDir>

#include "host/describe.h"
#include "tests/window/application.h"
#include "tests/window/driver.h"
#include "tests/window/fake_portal.h"

namespace {

// The program from start to end, again and again on one device.
class Sessions : public testing::Test {
 protected:
  Sessions() {
    startApplication();
    options.device.root = folder.path().toStdString();
    options.device.state = state.path().toStdString();
    options.device.realTime = true;
  }
  ~Sessions() override { close(); }

  void open(const QDBusConnection& desktop = QDBusConnection(QString())) {
    auto opened = window::Session::open(options, desktop);
    ASSERT_TRUE(opened);
    session = std::move(*opened);
    shown = session->settings().quickWindow();
    ASSERT_TRUE(shown);
    // What the first frame has been drawn with.
    QObject::connect(
        shown, &QQuickWindow::afterRendering, shown,
        [this] {
          if (firstTitle.isEmpty()) {
            firstTitle = title();
            firstColor = shown->color();
            firstPages = pages();
          }
        },
        Qt::DirectConnection);
    driver.emplace(*shown);
    driver->waitUntilIdle();
  }
  void finish() {
    ASSERT_TRUE(session->finish());
    close();
  }
  void close() {
    driver.reset();
    session.reset();
    firstTitle.clear();
  }
  QString title() const { return session->settings().bridge().shown()->title(); }
  int pages() const { return static_cast<int>(driver->itemsOfType("PageView").size()); }

  QTemporaryDir folder, state;
  window::Options options;
  std::unique_ptr<window::Session> session;
  QQuickWindow* shown = nullptr;
  std::optional<Driver> driver;
  QString firstTitle;
  QColor firstColor;
  int firstPages = 0;
};

TEST_F(Sessions, AWindowThatIsOpenedAgainHasItsSizeAndItsPage) {
  open();
  driver->resize(620, 700);
  driver->click("Sounds", QAccessible::Button);
  ASSERT_EQ(title(), "Sounds");
  driver->click("Custom Volume", QAccessible::CheckBox);
  finish();
  open();
  EXPECT_EQ(shown->size(), QSize(620, 700));
  EXPECT_EQ(title(), "Sounds");
  EXPECT_TRUE(driver->find("Custom Volume", QAccessible::CheckBox)->property("checked").toBool());
  driver->click("Back", QAccessible::Button);
  EXPECT_EQ(title(), "Quorvantis");
  finish();
  open();
  EXPECT_EQ(title(), "Quorvantis") << "where it was left";
}

TEST_F(Sessions, AWideWindowIsAsItWas) {
  open();
  driver->resize(1000, 700);
  driver->click("Extras", QAccessible::Button);
  finish();
  open();
  EXPECT_EQ(shown->size(), QSize(1000, 700));
  EXPECT_EQ(title(), "Extras");
  EXPECT_FALSE(driver->itemsOfType("SidebarRow").empty());
}

TEST_F(Sessions, APageThatIsAskedForStandsInPlaceOfTheRememberedOne) {
  open();
  driver->click("Sounds", QAccessible::Button);
  finish();
  options.page = "ExtrasListController";
  open();
  EXPECT_EQ(title(), "Extras");
}

TEST_F(Sessions, TheFirstFrameHasThePageThatIsAskedFor) {
  options.page = "ExtrasListController";
  open();
  EXPECT_EQ(firstTitle, "Extras");
  EXPECT_EQ(firstPages, 1);
}

TEST_F(Sessions, TheFirstFrameHasThePageThatIsRemembered) {
  open();
  driver->click("Sounds", QAccessible::Button);
  finish();
  open();
  EXPECT_EQ(firstTitle, "Sounds");
  EXPECT_EQ(firstPages, 1) << "nothing slides";
}

TEST_F(Sessions, TheFirstFrameIsAsDarkAsTheDesktop) {
  PortalBus bus;
  for (const auto& [scheme, color] : {std::pair(1u, "#000000"), std::pair(2u, "#F2F2F7")}) {
    bus.portal().settings = {{kAppearance, {{"color-scheme", scheme}}}};
    open(QDBusConnection::connectToBus(bus.address(), "window"));
    EXPECT_EQ(firstColor, QColor(color));
    close();
    QDBusConnection::disconnectFromBus("window");
  }
}

TEST_F(Sessions, ADesktopThatDoesNotAnswerIsNotWaitedFor) {
  PortalBus bus;
  bus.portal().answers = false;
  QElapsedTimer timer;
  timer.start();
  open(QDBusConnection::connectToBus(bus.address(), "window"));
  EXPECT_LT(timer.elapsed(), 5000);
  bus.portal().change(kAppearance, "color-scheme", 1u);
  EXPECT_TRUE(driver->until([&] { return shown->color() == QColor("#000000"); }));
  close();
  QDBusConnection::disconnectFromBus("window");
}

}  // namespace
