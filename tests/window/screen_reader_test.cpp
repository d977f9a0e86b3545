#include "tests/window/screen_reader.h"

#include <gmock/gmock.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest/QTest>

#include "host/window_state.h"
#include "tests/window/application.h"

namespace {

QString roleOf(const QString& cell) {
  static const std::map<QString, QString> kRoles = {
      {"PSGroupCell", "heading"},         {"PSSwitchCell", "check box"},
      {"PSSliderCell", "slider"},         {"PSSegmentCell", "panel"},
      {"PSEditTextCell", "text"},         {"PSLinkCell", "push button"},
      {"PSLinkListCell", "push button"},  {"PSButtonCell", "push button"},
      {"ColorSwatchCell", "radio button"}};
  const auto found = kRoles.find(cell);
  return found == kRoles.end() ? "no role of " + cell : found->second;
}

// The window program on a bus of its own, read as a screen reader reads it, against what the
// command line says of the same page.
class ScreenReaderWalk : public testing::TestWithParam<const char*> {
 protected:
  ScreenReaderWalk() {
    startApplication();
    auto environment = reader.environment();
    environment.insert("XDG_STATE_HOME", folder.filePath("state"));
    program.setProcessEnvironment(environment);
    // Of a page of colors there is what is on screen.
    const auto state = (folder.path() + "/state/quorvantis").toStdString();
    if (std::string_view(GetParam()) == "ZorvekColorPickerQuorvantis") {
      EXPECT_TRUE(host::writeWindowState(state, {390, 5000, ""}));
    }
    // Values of each kind that aren't their defaults, and rows that are dimmed.
    shell({"set", "custbrightenabled", "on", "custbright", "42", "wifi", "Off", "vibrate", "on",
           "alertmsg", "Come home", "bannercolor", "System Blue", "autolock", "1 Minute"});
    expected = QJsonDocument::fromJson(shell({"page", GetParam(), "--json"})).array();
    for (const QJsonValue& row : expected) {
      const QString cell = row["cell"].toString();
      if ((cell == "PSSegmentCell" || cell.startsWith("PSLink")) && !row["value"].isNull())
        titles[row["id"].toString()] = titleOf(row.toObject());
    }
  }
  ~ScreenReaderWalk() override {
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
  QString titleOf(const QJsonObject& row) const {
    const auto choices =
        QJsonDocument::fromJson(shell({"choices", row["id"].toString(), "--json"})).array();
    for (const QJsonValue& choice : choices)
      if (choice["value"] == row["value"]) return choice["title"].toString();
    return {};
  }
  // What is said of the rows otherwise than the command line says it, in their order.
  QStringList differences(const std::vector<Read>& all) const {
    QStringList wrong;
    auto from = all.begin();
    for (const QJsonValue& value : expected) {
      const QJsonObject row = value.toObject();
      if (row["label"].toString().isEmpty()) continue;
      const auto found = std::find_if(from, all.end(), [&](const Read& each) {
        return each.role == roleOf(row["cell"].toString()) && each.name == row["label"].toString();
      });
      if (found == all.end()) return wrong << "not found: " + row["label"].toString();
      from = found + 1;
      if (!saysValue(row, found, all)) wrong << "the value of " + words(*found);
      if (!saysWhyNot(row, *found)) wrong << "whether one can use " + words(*found);
    }
    return wrong;
  }
  static QString words(const Read& read) {
    return read.name + ": \"" + read.description + "\", \"" + read.text + "\", " +
           QString::number(read.value.value_or(-1)) + (read.enabled ? ", enabled" : "") +
           (read.checked ? ", checked" : "");
  }
  bool saysValue(const QJsonObject& row, std::vector<Read>::const_iterator at,
                 const std::vector<Read>& all) const {
    const QString cell = row["cell"].toString();
    const QJsonValue value = row["value"];
    if (cell == "PSSwitchCell") return at->checked == (value.toBool() || value.toDouble() != 0);
    if (cell == "PSSliderCell") return at->value == value.toDouble();
    if (cell == "PSEditTextCell") return at->text == value.toString();
    if (cell == "ColorSwatchCell") return at->description == value.toString();
    if (value.isNull()) return true;
    const QString title = titles.value(row["id"].toString());
    if (!at->description.startsWith(title)) return false;
    if (cell != "PSSegmentCell") return true;
    for (++at; at != all.end() && at->role == "radio button"; ++at)
      if (at->checked != (at->name == title)) return false;
    return true;
  }
  bool saysWhyNot(const QJsonObject& row, const Read& found) const {
    if (row["cell"].toString() == "PSGroupCell") return true;
    const bool usable = row["usable"].toBool();
    if (found.enabled != usable) return false;
    if (usable) return !found.description.contains("dimmed");
    QString by;
    for (const QJsonValue& each : expected)
      if (each.toObject()["id"] == row["dimmedBy"]) by = each.toObject()["label"].toString();
    return found.description.contains("dimmed: switch on " + by + " first") ||
           found.description.contains("dimmed: switch off " + by + " first");
  }

  QTemporaryDir folder;
  QJsonArray expected;
  QHash<QString, QString> titles;  // of the values of rows with choices
  ScreenReader reader;
  QProcess program;
};

TEST_P(ScreenReaderWalk, EveryRowHasItsNameRoleValueStateAndReason) {
  ASSERT_TRUE(reader.works());
  program.start(SETTINGS_PROGRAM, {"--root", folder.path(), "--page", GetParam()});
  ASSERT_TRUE(program.waitForStarted());
  QStringList wrong;
  const auto isRight = [&] { return (wrong = differences(reader.read())).isEmpty(); };
  EXPECT_TRUE(QTest::qWaitFor(isRight, 20000)) << wrong.join("; ").toStdString();
}

INSTANTIATE_TEST_SUITE_P(Of, ScreenReaderWalk,
                         testing::Values("quorvantisprefsListController",
                                         "GeneralSettingsController", "PowerSavingListController",
                                         "LowPowerListController", "SoundsListController",
                                         "UserNotificationListController",
                                         "ConditionsListController", "ProfilesListController",
                                         "ExtrasListController", "ZorvekColorPickerQuorvantis"),
                         [](const auto& info) { return std::string(info.param); });

}  // namespace
