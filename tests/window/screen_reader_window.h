#pragma once

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QtTest/QTest>

#include "tests/window/application.h"
#include "tests/window/screen_reader.h"

// The window program on a bus and a display of its own, what a screen reader reads of it, and the
// command line on the same device.
class ScreenReaderWindow : public testing::Test {
 protected:
  ScreenReaderWindow() {
    startApplication();
    auto environment = reader.environment();
    environment.insert("XDG_STATE_HOME", folder.filePath("state"));
    program.setProcessEnvironment(environment);
  }
  ~ScreenReaderWindow() override {
    program.terminate();
    program.waitForFinished();
  }

  QByteArray shell(const QStringList& arguments) const {
    QProcess shell;
    shell.start(SHELL_PROGRAM, QStringList{"--root", folder.path()} + arguments);
    EXPECT_TRUE(shell.waitForFinished());
    EXPECT_EQ(shell.exitCode(), 0) << arguments.join(' ').toStdString();
    return shell.readAllStandardOutput();
  }
  QJsonArray json(const QStringList& arguments) const {
    return QJsonDocument::fromJson(shell(arguments + QStringList{"--json"})).array();
  }
  void start(const char* pageClass) {
    ASSERT_TRUE(reader.works());
    program.start(SETTINGS_PROGRAM, {"--root", folder.path(), "--page", pageClass});
    ASSERT_TRUE(program.waitForStarted());
  }
  static bool until(const std::function<bool()>& condition) {
    return QTest::qWaitFor(condition, 20000);
  }
  static QString words(const Read& read) {
    return read.role + " " + read.name + ": \"" + read.description + "\", \"" + read.text + "\", " +
           QString::number(read.value.value_or(-1)) + (read.enabled ? ", enabled" : "") +
           (read.checked ? ", checked" : "");
  }

  QTemporaryDir folder;
  ScreenReader reader;
  QProcess program;
};
