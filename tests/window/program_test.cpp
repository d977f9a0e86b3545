#include <gmock/gmock.h>

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

#include "apps/window/options.h"
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

  int run(const QStringList& arguments, const QString& name = SETTINGS_PROGRAM) {
    QProcess program;
    program.setProcessEnvironment(environment);
    program.start(name, arguments);
    program.write(input);
    program.closeWriteChannel();
    EXPECT_TRUE(program.waitForFinished(60000));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    out = program.readAllStandardOutput().toStdString();
    error = program.readAllStandardError().toStdString();
    return program.exitCode();
  }

  QTemporaryDir folder;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  QByteArray input;
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

TEST_F(Program, VersionNamesTheProgramToo) {
  for (const char* option : {"--version", "-V"}) {
    EXPECT_EQ(run({option}), 0);
    EXPECT_THAT(out, testing::MatchesRegex("quorvantis-settings [0-9.]+\n"));
  }
}

TEST_F(Program, WrongUseIsReportedInOneLine) {
  for (const QStringList& arguments :
       {QStringList{"--bogus"}, {"surplus"}, {"--root"}, {"--page"}, {"--row"}}) {
    EXPECT_EQ(run(arguments), 2) << arguments.join(' ').toStdString();
    EXPECT_THAT(error, testing::MatchesRegex("quorvantis-settings: [^\n]+\n"));
  }
}

TEST_F(Program, HelpNamesTheRowToShow) {
  EXPECT_EQ(run({"--help"}), 0);
  EXPECT_THAT(out,
              testing::AllOf(testing::HasSubstr("--page CLASS"), testing::HasSubstr("--row ID")));
}

TEST_F(Program, AnUnknownRowIsReported) {
  environment.insert("QT_QPA_PLATFORM", "offscreen");
  EXPECT_EQ(run({"--page", "SoundsListController", "--row", "nosuchrow"}), 3);
  EXPECT_EQ(error, "quorvantis-settings: no row \"nosuchrow\"; quorvantis search finds rows\n");
  EXPECT_EQ(run({"--page", "Sounds", "--row", "musik"}), 3);
  EXPECT_THAT(error, testing::EndsWith("; did you mean \"music\"?\n"));
}

TEST_F(Program, APageIsNamedByItsTitleToo) {
  environment.insert("QT_QPA_PLATFORM", "offscreen");
  for (const char* page : {"Sounds", "power saving", "Manage Profiles"}) {
    EXPECT_EQ(run({"--page", page, "--row", "nosuchrow"}), 3);
    EXPECT_THAT(error, testing::StartsWith("quorvantis-settings: no row \"nosuchrow\"; ")) << page;
  }
}

TEST_F(Program, TheColorPickerHasAName) {
  environment.insert("QT_QPA_PLATFORM", "offscreen");
  EXPECT_EQ(run({"--page", "color picker", "--row", "x"}), 3);
  EXPECT_EQ(error, "quorvantis-settings: the shown page has no rows of a list\n");
}

TEST_F(Program, HasNoOptionsToOperateIt) {
  for (const char* option : {"--tap=x", "--bar", "--press=x", "--pick=0", "--select=0.0",
                             "--drag=0=0", "--scroll=0", "--screenshot=x.png"})
    EXPECT_EQ(run({option}), 2) << option;
}

TEST_F(Program, AnUnknownPageIsReported) {
  environment.insert("QT_QPA_PLATFORM", "offscreen");
  EXPECT_EQ(run({"--page", "Sonds"}), 3);
  EXPECT_EQ(error,
            "quorvantis-settings: no page \"Sonds\"; quorvantis pages lists them; did you mean "
            "\"Sounds\"?\n");
}

class Picture : public Program {
 protected:
  QImage take(const QStringList& arguments) {
    const QString file = folder.filePath("page.png");
    EXPECT_EQ(run(QStringList{"--root", folder.path(), file} + arguments, PICTURE_PROGRAM), 0);
    return QImage(file);
  }
};

TEST_F(Picture, IsOfTheSizeAsked) {
  EXPECT_EQ(take({"--size", "320x480"}).size(), QSize(320, 480));
}

TEST_F(Picture, LightAndDarkDiffer) {
  EXPECT_GT(take({"--appearance", "light"}).pixelColor(2, 200).lightness(), 200);
  EXPECT_LT(take({"--appearance", "dark"}).pixelColor(2, 200).lightness(), 50);
}

TEST_F(Picture, ShowsWhatRequestsHaveChanged) {
  const QImage before = take({"--page", "GeneralSettingsController"});
  input = "{\"do\": \"set\", \"row\": \"enabled\", \"value\": false}\n";
  EXPECT_NE(take({"--page", "GeneralSettingsController"}), before);
}

TEST_F(Picture, ARequestThatIsRefusedIsAFailure) {
  for (const char* line :
       {"{\"do\": \"tap\", \"row\": \"none\"}\n", "{\"do\": \"prefs\"}\n", "x\n"}) {
    input = line;
    EXPECT_EQ(run({"--root", folder.path(), folder.filePath("page.png")}, PICTURE_PROGRAM), 1);
    EXPECT_FALSE(error.empty()) << line;
  }
}

TEST_F(Picture, AFileThatCantBeWrittenIsAFailure) {
  EXPECT_EQ(run({"--root", folder.path(), folder.filePath("missing/page.png")}, PICTURE_PROGRAM),
            1);
  EXPECT_THAT(error, testing::HasSubstr("can't write"));
}

TEST(Options, TheWindowWaitsAQuarterOfASecondForTheLock) {
  const auto options = window::readOptions({"quorvantis-settings", "--root", "device"});
  ASSERT_TRUE(options);
  EXPECT_EQ(options->device.lockPatience, std::chrono::milliseconds(250));
}

}  // namespace
