// What the host shows of what other processes store.
#include "host/following.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>

#include "host/describe.h"
#include "host/device.h"
#include "platform/archive/keyed_archive.h"
#include "prefs/core/names.h"
#include "tests/services/temporary_folder.h"

using host::Application;
using plist::Value;

namespace {
bool watchesAtLimit = false;  // the system follows no more folders
}

extern "C" __attribute__((visibility("default"))) int inotify_add_watch(
    int queue, const char* path, std::uint32_t events) noexcept {
  if (watchesAtLimit) return errno = ENOSPC, -1;
  return static_cast<int>(syscall(SYS_inotify_add_watch, queue, path, events));
}

namespace {

class HostFollowing : public testing::Test {
 protected:
  void open(const std::string& page) {
    ASSERT_TRUE(application_.perform(host::Launch{}));
    if (!page.empty()) {
      ASSERT_TRUE(application_.perform(host::Open{page}));
    }
    clock_->advance(std::chrono::seconds(1));
    following_.emplace(device_.environment(), application_);
  }
  // As the loop of a window does.
  void wait() {
    pollfd queue{following_->descriptor(), POLLIN, 0};
    while (poll(&queue, 1, 0) == 1) {
      following_->look();
      clock_->advance(std::chrono::milliseconds(20));
    }
  }
  // By another process.
  void store(const std::string& key, const Value& value) {
    foundation::DeviceRoot root(folder_.path.string());
    ASSERT_TRUE(foundation::Preferences(root).setAppValue(key, value, prefs::kDomain));
  }
  void write(const std::string& path, const Value& value) {
    auto bytes = archive::archive(value, archive::Mutability::Mutable);
    ASSERT_TRUE(bytes);
    foundation::DeviceRoot root(folder_.path.string());
    ASSERT_TRUE(root.writeDurably(path, *bytes));
  }
  void damage() {
    const auto file = folder_.path / foundation::domainPath(prefs::kDomain).substr(1);
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file) << "not a property list";
  }
  host::PageView page() const { return host::describe(application_).pages.back(); }
  host::RowView row(const std::string& id) const {
    for (const host::RowView& row : page().rows)
      if (row.id == id) return row;
    ADD_FAILURE() << "no row " << id;
    return {};
  }
  std::unique_ptr<foundation::ManualQueue> makeQueue() {
    auto queue = std::make_unique<foundation::ManualQueue>();
    clock_ = queue.get();
    return queue;
  }

  TemporaryFolder folder_;
  foundation::ManualQueue* clock_ = nullptr;
  host::Device device_{{.root = folder_.path.string()}, makeQueue()};
  Application application_{device_.environment(), 40};
  std::optional<host::Following> following_;
};

TEST_F(HostFollowing, ShowsWhatAnotherProcessStores) {
  open("PowerSavingListController");
  store("wifi", true);
  store("custbright", 42);
  wait();
  EXPECT_EQ(row("wifi").shown, "On");
  EXPECT_EQ(std::get<host::SegmentsView>(row("wifi").control).selected, 1);
  EXPECT_EQ(std::get<host::SliderView>(row("custbright").control).value, 42);
}

TEST_F(HostFollowing, EvaluatesNoRule) {
  open("PowerSavingListController");
  ASSERT_FALSE(row("custbright").usable);
  store("custbrightenabled", true);
  wait();
  EXPECT_TRUE(std::get<host::SwitchView>(row("custbrightenabled").control).on);
  EXPECT_FALSE(row("custbright").usable);
  EXPECT_TRUE(row("custbright").whyNot->lags);
}

TEST_F(HostFollowing, PostsNothing) {
  open("PowerSavingListController");
  std::vector<std::string> posted;
  device_.environment().defaultCenter.setWitness(
      [&](const auto& notification) { posted.push_back(notification.name); });
  store("wifi", true);
  write("/var/mobile/Documents/Quorvantis/profile_7.qvx",
        plist::Dictionary{{"profilepercentage", "7"}});
  wait();
  EXPECT_THAT(posted, testing::IsEmpty());
}

TEST_F(HostFollowing, KeepsTheCellsOfTheRows) {
  open("PowerSavingListController");
  const auto cell = [this] { return (*application_.row("wifi"))->cellObject(); };
  const auto before = cell();
  store("wifi", true);
  wait();
  EXPECT_EQ(cell(), before);
}

TEST_F(HostFollowing, ThePagesBelowFollowToo) {
  open("");
  ASSERT_TRUE(application_.perform(host::Open{"PowerSavingListController"}));
  ASSERT_TRUE(application_.perform(host::Open{"SoundsListController"}));
  store("wifi", true);
  wait();
  ASSERT_TRUE(application_.perform(host::Back{}));
  EXPECT_EQ(row("wifi").shown, "On");
}

TEST_F(HostFollowing, AColorFollowsAlsoToItsDefault) {
  open("ExtrasListController");
  std::string id;
  for (const auto& each : page().rows)
    if (each.kind == host::RowKind::Color) id = each.id;
  ASSERT_FALSE(id.empty());
  const std::string standard = row(id).shown;
  store(row(id).key, "#FF3B30");
  wait();
  EXPECT_THAT(row(id).shown, testing::HasSubstr("#FF3B30"));
  ASSERT_TRUE(application_.perform(host::Tap{id}));
  ASSERT_FALSE(page().sections.empty());
  store(page().opener->key, "#007AFF");
  wait();
  EXPECT_THAT(page().opener->shown, testing::HasSubstr("#007AFF"));
  store(page().opener->key, Value());
  wait();
  EXPECT_EQ(page().opener->shown, standard);
  ASSERT_TRUE(application_.perform(host::Back{}));
  EXPECT_EQ(row(id).shown, standard);
}

TEST_F(HostFollowing, ListsOfProfilesAndLogFollow) {
  open("");
  const auto titled = [this](const std::string& label) {
    for (const auto& each : page().rows)
      if (each.label == label) return each.id;
    ADD_FAILURE() << label;
    return std::string();
  };
  ASSERT_TRUE(application_.perform(host::Tap{titled("Saved Profiles")}));
  EXPECT_EQ(page().choices->titles.size(), 0u);
  write("/var/mobile/Documents/Quorvantis/profile_7.qvx",
        plist::Dictionary{{"profilepercentage", "7"}});
  wait();
  EXPECT_THAT(page().choices->titles, testing::ElementsAre("Battery 7%"));
  ASSERT_TRUE(application_.perform(host::Back{}));
  ASSERT_TRUE(application_.perform(host::Tap{titled("Battery Log")}));
  write("/var/mobile/Documents/Quorvantis/quorvantis.log", plist::Array{"A", "B"});
  wait();
  EXPECT_THAT(page().choices->titles, testing::ElementsAre("B", "A"));
}

TEST_F(HostFollowing, TheProfilesOfTheGeneralPageFollow) {
  open("GeneralSettingsController");
  ASSERT_TRUE(application_.perform(host::Tap{"profile"}));
  EXPECT_EQ(page().choices->titles.size(), 0u);
  write("/var/mobile/Documents/Quorvantis/profile_7.qvx",
        plist::Dictionary{{"profilepercentage", "7"}});
  wait();
  EXPECT_THAT(page().choices->titles, testing::ElementsAre("Battery 7%"));
}

TEST_F(HostFollowing, SaysOnceAndInPlainWordsThatNotAllIsFollowed) {
  const std::string said =
      "what other programs change isn't followed: the system follows no more folders for this user";
  open("");
  EXPECT_THAT(application_.problems(), testing::IsEmpty());
  watchesAtLimit = true;
  store("wifi", true);  // in a folder that is made now
  wait();
  ASSERT_EQ(application_.problems().size(), 1u);
  EXPECT_EQ(application_.problems().front().message(), said);
  application_.dismiss(host::Problem(application_.problems().front()));
  write("/var/mobile/Documents/Quorvantis/profile_7.qvx",
        plist::Dictionary{{"profilepercentage", "7"}});
  wait();
  EXPECT_THAT(application_.problems(), testing::IsEmpty());
  following_.emplace(device_.environment(), application_);
  watchesAtLimit = false;
  ASSERT_EQ(application_.problems().size(), 1u);
  EXPECT_EQ(application_.problems().front().message(), said);
}

TEST_F(HostFollowing, TheTickOfAListFollows) {
  open("GeneralSettingsController");
  ASSERT_TRUE(application_.perform(host::Tap{"tapaction"}));
  const Value last = page().choices->values.back();
  ASSERT_NE(page().chosen, static_cast<int>(page().choices->values.size()) - 1);
  store("tapaction", last);
  wait();
  EXPECT_EQ(page().chosen, static_cast<int>(page().choices->values.size()) - 1);
}

TEST_F(HostFollowing, SettingsThatCantBeReadAreNotShownAndNotChanged) {
  open("PowerSavingListController");
  store("wifi", true);
  wait();
  damage();
  wait();
  const host::Scene scene = host::describe(application_);
  ASSERT_TRUE(scene.damage);
  EXPECT_EQ(scene.damage->file, std::filesystem::canonical(folder_.path).string() +
                                    foundation::domainPath(prefs::kDomain));
  for (const host::RowView& row : page().rows) {
    if (row.key.empty()) continue;
    EXPECT_EQ(row.shown, "unknown") << row.id;
    EXPECT_TRUE(row.value.isNothing()) << row.id;
    EXPECT_TRUE(std::holds_alternative<std::monostate>(row.control)) << row.id;
    EXPECT_FALSE(row.usable) << row.id;
  }
  const auto set = application_.perform(host::Set{"wifi", false});
  ASSERT_FALSE(set);
  EXPECT_EQ(set.error().code, host::RefusalCode::Disabled);
  std::filesystem::remove(folder_.path / foundation::domainPath(prefs::kDomain).substr(1));
  store("wifi", true);
  wait();
  EXPECT_FALSE(host::describe(application_).damage);
  EXPECT_EQ(row("wifi").shown, "On");
}

TEST_F(HostFollowing, ProfilesAreNotManagedWhileTheSettingsCantBeRead) {
  damage();
  open("ProfilesListController");
  EXPECT_FALSE(page().barButton);
  EXPECT_FALSE(application_.perform(host::Bar{}));
  for (const host::RowView& row : page().rows)
    if (row.kind == host::RowKind::Button) {
      EXPECT_FALSE(application_.perform(host::Tap{row.id})) << row.id;
    }
  EXPECT_TRUE(host::describe(application_).alerts.empty());
}

TEST_F(HostFollowing, ItsOwnChangesAreShownAlreadyAndNotFollowed) {
  open("PowerSavingListController");
  store("vpn", 2);
  wait();
  ASSERT_TRUE(application_.perform(host::Set{"wifi", 1}));
  following_->look();
  store("vpn", 1);
  clock_->advance(std::chrono::milliseconds(20));
  EXPECT_EQ(row("wifi").shown, "On");
  EXPECT_EQ(row("vpn").shown, "Off") << "followed without need";
  wait();
  EXPECT_EQ(row("vpn").shown, "On");
}

TEST_F(HostFollowing, SaysWhetherAnythingWasChanged) {
  store("vpn", 1);
  open("PowerSavingListController");
  wait();
  EXPECT_FALSE(following_->look());
  ASSERT_TRUE(application_.perform(host::Set{"wifi", 1}));
  EXPECT_FALSE(following_->look()) << "its own";
  store("vpn", 2);
  EXPECT_TRUE(following_->look());
  EXPECT_FALSE(following_->look());
  write("/var/mobile/Documents/Quorvantis/profile_20.qvx",
        plist::Dictionary{{"profilepercentage", "20"}});
  EXPECT_TRUE(following_->look());
}

TEST_F(HostFollowing, AnotherProcessesChangeBesideAnOwnOneIsFollowed) {
  open("PowerSavingListController");
  store("vpn", 1);
  ASSERT_TRUE(application_.perform(host::Set{"wifi", 1}));
  wait();
  EXPECT_EQ(row("vpn").shown, "On");
  ASSERT_TRUE(application_.perform(host::Set{"wifi", 0}));
  store("vpn", 2);
  wait();
  EXPECT_EQ(row("vpn").shown, "Off");
}

TEST_F(HostFollowing, EndsWithATaskStillDue) {
  open("PowerSavingListController");
  store("wifi", true);
  following_->look();
  following_.reset();
  clock_->advance(std::chrono::seconds(1));
  EXPECT_NE(row("wifi").shown, "On");
}

}  // namespace
