#include <QJsonObject>

#include "platform/archive/keyed_archive.h"
#include "platform/foundation/device_root.h"
#include "tests/window/screen_reader_window.h"

namespace {

constexpr const char* kLog = "/var/mobile/Documents/Quorvantis/quorvantis.log";

struct Entry {
  const char *role, *name;
  bool checked = false;
  const char* description = "";
  std::optional<double> value = std::nullopt;
};

// A row that leads to a list, the role of the entries, and what is read there, in its order.
struct List {
  const char *name, *pageClass, *row, *role;
  std::vector<Entry> entries;
};

void PrintTo(const List& list, std::ostream* out) {
  *out << list.name;
}

constexpr const char *kChoice = "radio button", *kLink = "push button", *kText = "label",
                     *kHeading = "heading", *kSlider = "slider";

class ScreenReaderList : public ScreenReaderWindow, public testing::WithParamInterface<List> {
 protected:
  ScreenReaderList() {
    shell({"set", "autolock", "1 Minute", "bannercolor", "System Blue", "sendmessage", "on"});
    shell({"profile", "save", "101"});
    shell({"profile", "save", "20"});
    write(kLog, *archive::archive(plist::Array{"first", "second"}, archive::Mutability::Mutable));
    write("/System/Library/Audio/UISounds/bell.caf", {'x'});
    const std::string card =
        "BEGIN:VCARD\r\nVERSION:3.0\r\nN:Lovelace;Ada;;;\r\nTEL:12345\r\nEND:VCARD\r\n";
    write("/var/mobile/Library/AddressBook/ann.vcf", {card.begin(), card.end()});
    shell({"set", "profile", "Battery 20%", "playsound", "bell.caf", "msgrecipient", "12345"});
  }
  void write(const std::string& path, const std::vector<std::uint8_t>& bytes) const {
    EXPECT_TRUE(foundation::DeviceRoot(folder.path().toStdString()).writeDurably(path, bytes));
  }
  QString labelOf(const QString& id) const {
    for (const QJsonValue& row : json({"page", GetParam().pageClass}))
      if (row["id"] == id) return row["label"].toString();
    ADD_FAILURE() << "no row " << id.toStdString();
    return {};
  }
  // Once it is there and usable.
  bool press(const QString& name) const {
    return until([&] {
      for (const Read& read : reader.read())
        if (read.role == kLink && read.name == name && read.enabled) return reader.press(read);
      return false;
    });
  }
  // What is read from the list of that name on; nothing while there is none.
  std::vector<Read> read(const QString& list) const {
    auto all = reader.read();
    all.erase(all.begin(), std::find_if(all.begin(), all.end(), [&](const Read& each) {
                return each.role == "list" && each.name == list;
              }));
    return all;
  }
  static QStringList differences(const std::vector<Read>& all) {
    QStringList wrong;
    auto from = all.begin();
    for (const Entry& entry : GetParam().entries) {
      from = std::find_if(from, all.end(), [&](const Read& each) {
        return each.role == entry.role && each.name == entry.name;
      });
      if (from == all.end()) return wrong << QString("not found: ") + entry.name;
      const bool right = from->enabled && from->checked == entry.checked &&
                         from->description == entry.description &&
                         (!entry.value || from->value == entry.value);
      if (!right) wrong << words(*from);
      ++from;
    }
    return wrong;
  }
};

TEST_P(ScreenReaderList, EveryEntryOfTheCommandLineIsRead) {
  QStringList titles;
  for (const QJsonValue& choice : json({"choices", GetParam().row}))
    titles << choice["title"].toString();
  ASSERT_FALSE(titles.isEmpty());
  const QString label = labelOf(GetParam().row);
  start(GetParam().pageClass);
  ASSERT_TRUE(press(label));
  QStringList found;
  const auto isRight = [&] {
    found.clear();
    for (const Read& each : read(label))
      if (titles.contains(each.name) && each.role == GetParam().role) found << each.name;
    return found == titles;
  };
  EXPECT_TRUE(until(isRight)) << found.join("; ").toStdString();
}

TEST_P(ScreenReaderList, EveryEntryHasItsNameRoleValueAndState) {
  const QString label = labelOf(GetParam().row);
  start(GetParam().pageClass);
  ASSERT_TRUE(press(label));
  QStringList wrong;
  const auto isRight = [&] { return (wrong = differences(read(label))).isEmpty(); };
  EXPECT_TRUE(until(isRight)) << wrong.join("; ").toStdString();
}

const List kLists[] = {{"Choices",
                        "PowerSavingListController",
                        "autolock",
                        kChoice,
                        {{kChoice, "Leave"},
                         {kChoice, "30 Seconds"},
                         {kChoice, "1 Minute", true},
                         {kChoice, "2 Minutes"},
                         {kChoice, "3 Minutes"},
                         {kChoice, "4 Minutes"},
                         {kChoice, "5 Minutes"},
                         {kChoice, "Never"}}},
                       {"Profiles",
                        "GeneralSettingsController",
                        "profile",
                        kChoice,
                        {{kChoice, "None"},
                         {kChoice, "Battery 20%", true},
                         {kLink, "Details of Battery 20%"},
                         {kChoice, "Charging started"},
                         {kLink, "Details of Charging started"}}},
                       {"SavedProfiles",
                        "quorvantisprefsListController",
                        "savedprofiles",
                        kLink,
                        {{kLink, "Battery 20%"}, {kLink, "Charging started"}}},
                       {"Log",
                        "quorvantisprefsListController",
                        "batterylog",
                        kText,
                        {{kText, "second"}, {kText, "first"}}},
                       {"Sounds",
                        "UserNotificationListController",
                        "playsound",
                        kChoice,
                        {{kChoice, "Disabled"}, {kChoice, "bell.caf", true}}},
                       {"Contacts",
                        "UserNotificationListController",
                        "adressbook",
                        kChoice,
                        {{kChoice, "Ada Lovelace (12345)", true}}},
                       {"Colors",
                        "ExtrasListController",
                        "bannercolor",
                        kChoice,
                        {{kHeading, "Special"},
                         {kChoice, "None", false, "*default color"},
                         {kHeading, "iOS Palette"},
                         {kChoice, "Purple", false, "#5856D6"},
                         {kChoice, "System Blue", true, "#007AFF"},
                         {kHeading, "Crayons"},
                         {kChoice, "Snow", false, "#FFFFFF"},
                         {kChoice, "Mocha", false, "#804000"},
                         {kHeading, "Custom"},
                         {kChoice, "Custom", false, "#007AFF"},
                         {kSlider, "Red", false, "#007AFF", 0},
                         {kSlider, "Green", false, "#007AFF", 122},
                         {kSlider, "Blue", false, "#007AFF", 255}}}};

INSTANTIATE_TEST_SUITE_P(Of, ScreenReaderList, testing::ValuesIn(kLists),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
