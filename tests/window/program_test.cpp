#include <gmock/gmock.h>

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

#include "tests/window/application.h"

namespace {

// The program itself, as a shell starts it.
class Program : public testing::Test {
 protected:
  Program() {
    startApplication();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "QUORVANTIS_ROOT"})
      environment.remove(name);
    environment.insert("QUORVANTIS_ROOT", folder.filePath("root"));
    environment.insert("XDG_RUNTIME_DIR", folder.path());
  }

  int run(const QStringList& arguments) {
    QProcess program;
    program.setProcessEnvironment(environment);
    program.start(SETTINGS_PROGRAM, arguments);
    EXPECT_TRUE(program.waitForFinished(60000));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    out = program.readAllStandardOutput().toStdString();
    error = program.readAllStandardError().toStdString();
    return program.exitCode();
  }

  QTemporaryDir folder;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  std::string out, error;
};

TEST_F(Program, WithoutADisplaySaysSoAndFails) {
  EXPECT_EQ(run({}), 1);
  EXPECT_THAT(error, testing::StartsWith("quorvantis-settings: there is no display"));
}

TEST_F(Program, ADisplayThatRefusesIsAFailureNotACrash) {
  environment.insert("QT_QPA_PLATFORM", "no-such-platform");
  EXPECT_EQ(run({}), 1);
  EXPECT_THAT(error, testing::HasSubstr("\nquorvantis-settings: "));
}

TEST_F(Program, HelpNamesTheOptions) {
  EXPECT_EQ(run({"--help"}), 0);
  EXPECT_THAT(
      out, testing::AllOf(testing::HasSubstr("--root DIR"), testing::HasSubstr("--contacts DIR")));
}

TEST_F(Program, WrongUseIsReportedInOneLine) {
  for (const QStringList& arguments : {QStringList{"--bogus"},
                                       {"surplus"},
                                       {"--root"},
                                       {"--tap", "row"},
                                       {"--screenshot", "x.png", "--size", "big"},
                                       {"--appearance", "pink"}}) {
    EXPECT_EQ(run(arguments), 2) << arguments.join(' ').toStdString();
    EXPECT_THAT(error, testing::MatchesRegex("quorvantis-settings: [^\n]+\n"));
  }
}

TEST_F(Program, AnUnknownPageIsReported) {
  EXPECT_EQ(run({"--page", "NoSuchController", "--screenshot", folder.filePath("x.png")}), 3);
  EXPECT_THAT(error, testing::HasSubstr("NoSuchController"));
}

TEST_F(Program, TakesAScreenshotOfTheSizeAsked) {
  QString file = folder.filePath("page.png");
  EXPECT_EQ(run({"--screenshot", file, "--size", "320x480"}), 0);
  EXPECT_EQ(QImage(file).size(), QSize(320, 480));
}

TEST_F(Program, AScreenshotThatCantBeWrittenIsAFailure) {
  EXPECT_EQ(run({"--screenshot", folder.filePath("missing/page.png")}), 1);
  EXPECT_THAT(error, testing::HasSubstr("can't write"));
}

TEST_F(Program, LightAndDarkDiffer) {
  QString light = folder.filePath("light.png"), dark = folder.filePath("dark.png");
  run({"--screenshot", light, "--appearance", "light"});
  run({"--screenshot", dark, "--appearance", "dark"});
  EXPECT_GT(QImage(light).pixelColor(2, 200).lightness(), 200);
  EXPECT_LT(QImage(dark).pixelColor(2, 200).lightness(), 50);
}

}  // namespace
