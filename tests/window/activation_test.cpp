#include "apps/window/activation.h"

#include <gmock/gmock.h>

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include "apps/window/page_model.h"
#include "apps/window/session.h"
#include "tests/window/application.h"

namespace {

constexpr const char* kPath = "/com/zorvek/quorvantis/Settings";
constexpr const char* kInterface = "org.freedesktop.Application";

// Programs that are started on a session bus of the test's own, which can start the program too.
class Activations : public testing::Test {
 protected:
  Activations() {
    startApplication();
    QFile configuration(folder.filePath("bus.conf"));
    EXPECT_TRUE(configuration.open(QIODevice::WriteOnly));
    configuration.write(
        ("<busconfig><type>session</type><listen>unix:dir=" + folder.path() +
         "</listen><servicedir>" + folder.path() +
         "</servicedir><policy context='default'><allow send_destination='*' eavesdrop='true'/>"
         "<allow eavesdrop='true'/><allow own='*'/></policy></busconfig>")
            .toUtf8());
    QFile service(folder.filePath("settings.service"));
    EXPECT_TRUE(service.open(QIODevice::WriteOnly));
    service.write("[D-BUS Service]\nName=" + QByteArray(window::kApplicationId) +
                  "\nExec=" SETTINGS_PROGRAM "\n");
    configuration.close();
    service.close();
    for (const auto& [name, file] : {std::pair("QUORVANTIS_ROOT", "root"),
                                     {"XDG_STATE_HOME", "state"},
                                     {"XDG_RUNTIME_DIR", "."}})
      environment.insert(name, folder.filePath(file));
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    daemon.setProcessEnvironment(environment);
    daemon.start("dbus-daemon", {"--nofork", "--nopidfile", "--print-address",
                                 "--config-file=" + configuration.fileName()});
    EXPECT_TRUE(daemon.waitForReadyRead());
    const QString address = QString::fromLatin1(daemon.readLine()).trimmed();
    environment.insert("DBUS_SESSION_BUS_ADDRESS", address);
    bus = QDBusConnection::connectToBus(address, "test");
  }
  ~Activations() override {
    if (const auto id = owner()) QProcess::execute("kill", {QString::number(*id)});
    bus = QDBusConnection(QString());
    QDBusConnection::disconnectFromBus("test");
    daemon.kill();
    daemon.waitForFinished();
  }

  // The process that has the name, if one has.
  std::optional<uint> owner() {
    const auto id = bus.interface()->servicePid(window::kApplicationId);
    return id.isValid() ? std::optional(id.value()) : std::nullopt;
  }
  void start(QProcess& program, const QStringList& arguments = {}) {
    program.setProcessEnvironment(environment);
    program.start(SETTINGS_PROGRAM, arguments);
    ASSERT_TRUE(program.waitForStarted());
  }
  // Until its window answers.
  void startFirst(const QStringList& arguments = {}) {
    start(first, arguments);
    QElapsedTimer timer;
    timer.start();
    while (!owner() && timer.elapsed() < 30000) QTest::qWait(20);
    ASSERT_EQ(call("Activate", {QVariantMap()}).type(), QDBusMessage::ReplyMessage);
  }
  int runSecond(const QStringList& arguments = {}) {
    QProcess second;
    start(second, arguments);
    EXPECT_TRUE(second.waitForFinished(30000));
    error = second.readAllStandardError().toStdString();
    return second.exitCode();
  }
  QDBusMessage call(const char* method, const QVariantList& arguments) {
    auto message =
        QDBusMessage::createMethodCall(window::kApplicationId, kPath, kInterface, method);
    message.setArguments(arguments);
    return bus.call(message, QDBus::Block, 30000);
  }
  bool runs(QProcess& program) { return !program.waitForFinished(1000); }
  void end(QProcess& program) {
    program.kill();
    program.waitForFinished();
  }

  QTemporaryDir folder;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  QProcess daemon, first;
  QDBusConnection bus{QString()};
  std::string error;
};

TEST_F(Activations, ASecondStartEndsAndLeavesTheFirst) {
  startFirst();
  EXPECT_EQ(runSecond(), 0);
  EXPECT_EQ(error, "");
  EXPECT_EQ(first.state(), QProcess::Running);
  end(first);
}

TEST_F(Activations, WhatTheFirstCantShowIsTheSecondsFailure) {
  startFirst();
  EXPECT_EQ(runSecond({"--page", "SoundsListController"}), 0);
  EXPECT_EQ(runSecond({"--page", "NoSuchController"}), 3);
  EXPECT_EQ(error,
            "quorvantis-settings: no page \"NoSuchController\"; quorvantis pages lists them\n");
  EXPECT_EQ(runSecond({"--row", "nosuchrow"}), 3);
  EXPECT_EQ(error, "quorvantis-settings: no row \"nosuchrow\"; quorvantis search finds rows\n");
  end(first);
}

TEST_F(Activations, TheFirstShowsThePageThatTheSecondNames) {
  window::Options options;
  options.device.root = folder.filePath("root").toStdString();
  window::Activation activation(bus, options);
  const auto shown = activation.showInOther();
  ASSERT_TRUE(shown && !*shown);
  const auto session = window::Session::open(options);
  ASSERT_TRUE(session);
  activation.serve((*session)->settings());
  QProcess second;
  start(second, {"--page", "SoundsListController"});
  EXPECT_TRUE(QTest::qWaitFor([&] { return second.state() == QProcess::NotRunning; }, 30000));
  EXPECT_EQ(second.exitCode(), 0);
  EXPECT_EQ((*session)->settings().bridge().shown()->title(), "Sounds");
}

TEST_F(Activations, AnotherRootHasAWindowOfItsOwn) {
  startFirst();
  QProcess other;
  start(other, {"--root", folder.filePath("other")});
  EXPECT_TRUE(runs(other));
  EXPECT_EQ(owner(), first.processId());
  end(other);
  end(first);
}

TEST_F(Activations, AnotherDisplayHasAWindowOfItsOwn) {
  startFirst();
  environment.insert("DISPLAY", ":99");
  QProcess other;
  start(other);
  EXPECT_TRUE(runs(other));
  end(other);
  end(first);
}

TEST_F(Activations, AWindowThatDoesNotAnswerIsNotWaitedFor) {
  startFirst();
  QProcess::execute("kill", {"-STOP", QString::number(first.processId())});
  QProcess other;
  start(other);
  EXPECT_FALSE(other.waitForFinished(5000));
  end(other);
  end(first);
}

TEST_F(Activations, TheBusStartsTheProgramAndItsWindowComes) {
  ASSERT_EQ(owner(), std::nullopt);
  EXPECT_EQ(call("Activate", {QVariantMap()}).type(), QDBusMessage::ReplyMessage);
  EXPECT_TRUE(owner());
  EXPECT_EQ(runSecond(), 0);
}

TEST_F(Activations, WhatTheInterfaceLacksIsRefused) {
  startFirst();
  EXPECT_EQ(call("ActivateAction", {"nothing", QVariantList(), QVariantMap()}).type(),
            QDBusMessage::ErrorMessage);
  EXPECT_EQ(call("Open", {QStringList("file:///x"), QVariantMap()}).errorName(),
            "org.freedesktop.DBus.Error.NotSupported");
  end(first);
}

TEST_F(Activations, WithoutABusTheProgramJustStarts) {
  environment.remove("DBUS_SESSION_BUS_ADDRESS");
  QProcess alone;
  start(alone);
  EXPECT_TRUE(runs(alone));
  end(alone);
}

}  // namespace
