#include <QJsonObject>

#include "tests/window/screen_reader_window.h"

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

// Each page as a screen reader reads it, against what the command line says of it.
class ScreenReaderWalk : public ScreenReaderWindow,
                         public testing::WithParamInterface<const char*> {
 protected:
  ScreenReaderWalk() {
    // Values of each kind that aren't their defaults, and rows that are dimmed.
    shell({"set", "custbrightenabled", "on", "custbright", "42", "wifi", "Off", "vibrate", "on",
           "alertmsg", "Come home", "bannercolor", "System Blue", "autolock", "1 Minute"});
    expected = json({"page", GetParam()});
    for (const QJsonValue& row : expected) {
      const QString cell = row["cell"].toString();
      if ((cell == "PSSegmentCell" || cell.startsWith("PSLink")) && !row["value"].isNull())
        titles[row["id"].toString()] = titleOf(row.toObject());
    }
  }

  QString titleOf(const QJsonObject& row) const {
    for (const QJsonValue& choice : json({"choices", row["id"].toString()}))
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

  QJsonArray expected;
  QHash<QString, QString> titles;  // of the values of rows with choices
};

TEST_P(ScreenReaderWalk, EveryRowHasItsNameRoleValueStateAndReason) {
  start(GetParam());
  QStringList wrong;
  const auto isRight = [&] { return (wrong = differences(reader.read())).isEmpty(); };
  EXPECT_TRUE(until(isRight)) << wrong.join("; ").toStdString();
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
