#include "tests/host_recovery/backed_up_device.h"
#include "tests/platform_foundation/system_calls.h"

namespace {

using namespace recovery_test;
using namespace std::chrono_literals;
using std::filesystem::perms;
using testing::ElementsAre;

struct HostSnapshots : testing::Test {
  host::Snapshot newest() {
    return *device.backups->snapshots().read(device.backups->snapshots().numbers()->back());
  }
  BackedUpDevice device;
};

TEST_F(HostSnapshots, HoldTheBytesOfSettingsAndProfiles) {
  device.store("wifi", 2);
  seed::profile(device, "7", "Old");
  seed::write(device, "junk.qvx", {'j', 'u', 'n', 'k'});
  seed::write(device, "quorvantis.log", {'l'});
  ASSERT_TRUE(device.backups->keep("reset"));
  EXPECT_EQ(newest().before, "reset");
  EXPECT_EQ(newest().domain, device.file(device.kDomainFile));
  EXPECT_EQ(newest().profiles, (host::Files{{"profile_7.qvx", device.file(prefs::profilePath(7))},
                                            {"junk.qvx", {'j', 'u', 'n', 'k'}}}));
}

TEST_F(HostSnapshots, OfNothingHoldNothing) {
  ASSERT_TRUE(device.backups->keep("reset"));
  EXPECT_EQ(newest().domain, std::nullopt);
  EXPECT_TRUE(newest().profiles->empty());
}

TEST_F(HostSnapshots, LeaveLinksAndFoldersOut) {
  seed::profile(device, "7");
  std::filesystem::create_symlink("profile_7.qvx", device.at(prefs::profilePath(8)));
  std::filesystem::create_directories(device.at(prefs::profilePath(9)));
  ASSERT_TRUE(device.backups->keep("reset"));
  EXPECT_EQ(newest().profiles->size(), 1u);
}

TEST_F(HostSnapshots, AreTakenBeforeLoadImportOverwriteAndDelete) {
  device.store("wifi", 2);
  device.save("55");
  device.load("55");
  device.save("55");
  device.remove("55");
  const auto list = *plist::writeBinary(plist::Dictionary{{"profilepercentage", "7"}});
  ASSERT_TRUE(device.profiles.import(list, host::Profiles::Existing::Keep));
  EXPECT_THAT(device.snapshots(),
              ElementsAre("daily", "load 55", "overwrite 55", "delete 55", "import"));
  EXPECT_TRUE(device.warnings.empty());
}

TEST_F(HostSnapshots, OfAChangeAreTakenJustBeforeItChangesTheSettingsFirst) {
  device.store("wifi", 1);
  for (const char* what : {"reset", "reset all"}) {
    const host::UserChange change(device.backups.get(), what, host::Backups::Label::Fixed, what);
    if (what == std::string("reset all")) break;  // it is refused
    EXPECT_TRUE(device.snapshots().empty());
    for (const int value : {2, 3}) {
      ASSERT_TRUE(device.preferences.setAppValue("wifi", value, prefs::kDomain));
    }
  }
  device.set("wifi", 4);
  ASSERT_THAT(device.snapshots(), ElementsAre("daily", "reset"));
  EXPECT_EQ(device.recovery().settingsOf(2)->find("wifi")->integer(), 1);
}

TEST_F(HostSnapshots, AreNotTakenBeforeADeleteOfNothing) {
  EXPECT_FALSE(device.profiles.remove(device.trigger("7"), host::Profiles::Folders::Refuse));
  EXPECT_TRUE(device.snapshots().empty());
}

TEST_F(HostSnapshots, AreTakenOnceADayBeforeTheFirstChange) {
  device.store("wifi", 1);
  device.set("wifi", 2);
  device.set("wifi", 3);
  device.startAnew();
  device.set("wifi", 4);
  EXPECT_THAT(device.snapshots(), ElementsAre("daily"));
  EXPECT_EQ(device.recovery().settingsOf(1)->find("wifi")->integer(), 1);
  device.now += 24h;
  device.set("wifi", 5);
  EXPECT_THAT(device.snapshots(), ElementsAre("daily", "daily"));
  EXPECT_EQ(device.recovery().settingsOf(2)->find("wifi")->integer(), 4);
}

TEST(SnapshotWords, HaveTheTitleInPlaceOfAnIdAlone) {
  EXPECT_EQ(host::beforeWords("load 20"), "before \"load Battery 20%\"");
  EXPECT_EQ(host::beforeWords("load my 20"), "before \"load my 20\"");
  EXPECT_EQ(host::beforeWords("import"), "before \"import\"");
  EXPECT_EQ(host::beforeWords(host::kBeforeChangesOfDay), "before the first change of the day");
}

TEST_F(HostSnapshots, ADailyOneThatFailedIsTakenByTheNextProgram) {
  ASSERT_TRUE(device.backups->open());
  ASSERT_TRUE(device.backups->keep("reset"));
  const auto folder = device.stateFolder() / "snapshots";
  std::filesystem::remove_all(folder);
  std::ofstream(folder) << "a file";
  device.set("wifi", 1);
  EXPECT_THAT(device.warnings,
              ElementsAre(testing::StartsWith(
                  "the snapshot before the first change of the day was not kept: ")));
  std::filesystem::remove(folder);
  device.startAnew();
  device.set("wifi", 2);
  EXPECT_THAT(device.snapshots(), ElementsAre("daily"));
}

TEST_F(HostSnapshots, TheDailyOneIsTakenOnceTheSettingsCanBeRead) {
  device.damageDomain();
  device.backups->prepare();
  std::filesystem::remove(device.at(device.kDomainFile));
  device.set("wifi", 1);
  EXPECT_THAT(device.snapshots(), ElementsAre("daily"));
}

TEST_F(HostSnapshots, OneThatIsNotConfirmedOnDiskIsThere) {
  for (int i = 1; i <= 20; ++i) ASSERT_TRUE(device.backups->keep("reset"));
  foundation::test::systemCalls().failFsync = 2;  // the folder's
  EXPECT_TRUE(device.backups->keepOrWarn("load 20"));
  EXPECT_THAT(device.warnings,
              ElementsAre(testing::StartsWith(
                  "the snapshot before \"load Battery 20%\" is not confirmed on disk: ")));
  EXPECT_EQ(device.snapshots().size(), 20u);
  EXPECT_EQ(device.snapshots().back(), "load 20");
}

TEST_F(HostSnapshots, OfSettingsThatCannotBeReadAreNotTaken) {
  device.damageDomain();
  EXPECT_FALSE(device.backups->keep("reset"));
  device.backups->prepare();
  EXPECT_TRUE(device.snapshots().empty());
}

TEST_F(HostSnapshots, TheLatestTwentyStay) {
  for (int i = 1; i <= 23; ++i) ASSERT_TRUE(device.backups->keep("reset"));
  const auto numbers = *device.backups->snapshots().numbers();
  EXPECT_EQ(numbers.size(), 20u);
  EXPECT_EQ(numbers.front(), 4);
  EXPECT_EQ(numbers.back(), 23);
}

TEST_F(HostSnapshots, ArePrivate) {
  device.store("wifi", 2);
  device.save("55");
  device.load("55");
  for (const auto& entry : std::filesystem::recursive_directory_iterator(device.state.path()))
    EXPECT_EQ(entry.status().permissions(),
              entry.is_directory() ? perms::owner_all : perms::owner_read | perms::owner_write)
        << entry.path();
}

TEST_F(HostSnapshots, TwoRootsDoNotMix) {
  ASSERT_TRUE(device.backups->keep("reset"));
  BackedUpDevice other;
  host::Backups shared(other.environment, device.state.path(), foundation::kLockPatience, {});
  EXPECT_TRUE(shared.snapshots().numbers()->empty());
}

TEST_F(HostSnapshots, ALinkToTheRootIsTheSameRoot) {
  ASSERT_TRUE(device.backups->keep("reset"));
  testing_support::TemporaryFolder folder;
  std::filesystem::create_directory_symlink(device.folder.path(), folder.path() + "/link");
  foundation::DeviceRoot linked(folder.path() + "/link");
  ::preferences::Environment environment{linked,         device.preferences,  device.center,
                                         device.queue,   device.darwinCenter, device.collator,
                                         device.urls,    device.addressBook,  device.sounds,
                                         device.realXml, prefs::bundle()};
  host::Backups same(environment, device.state.path(), foundation::kLockPatience, {});
  EXPECT_EQ(same.snapshots().numbers()->size(), 1u);
}

TEST_F(HostSnapshots, AChangeIsMadeThoughNothingCanBeKept) {
  device.store("wifi", 2);
  std::filesystem::remove(device.state.path());
  std::ofstream(device.state.path()) << "a file";
  device.save("55");
  device.store("wifi", 3);
  device.load("55");
  EXPECT_EQ(device.stored("wifi"), Value(2));
  ASSERT_FALSE(device.warnings.empty());
  EXPECT_NE(std::ranges::find_if(device.warnings,
                                 [](const std::string& warning) {
                                   return warning.starts_with(
                                       "the snapshot before \"load Battery 55%\" was not kept: ");
                                 }),
            device.warnings.end());
}

TEST_F(HostSnapshots, OnesThatCannotBeListedAreAnErrorAndNotNone) {
  ASSERT_TRUE(device.backups->keep("reset"));
  std::filesystem::remove_all(device.stateFolder() / "snapshots");
  std::ofstream(device.stateFolder() / "snapshots") << "a file";
  EXPECT_FALSE(device.recovery().snapshots());
  EXPECT_FALSE(device.recovery().lastGood());
  const auto read = device.recovery().settingsOf(1);
  ASSERT_FALSE(read);
  EXPECT_EQ(read.error().reason, host::Failure::Failed);
}

TEST_F(HostSnapshots, HoldTheSettingsAloneWhereTheProfilesAreTooLarge) {
  device.store("msgtext", std::string(20 << 20, 'x'));
  seed::write(device, "profile_7.qvx", std::vector<std::uint8_t>(13 << 20));
  device.set("wifi", 1);
  device.set("wifi", 2);
  EXPECT_THAT(device.warnings, ElementsAre("the snapshot before the first change of the day has no "
                                           "profiles: more than 32 MB with the settings: "
                                           "File too large"));
  EXPECT_EQ(device.snapshots(), Names{"daily"});
  EXPECT_FALSE(newest().profiles);
  device.startAnew();
  device.set("wifi", 3);
  EXPECT_EQ(device.snapshots(), Names{"daily"});
}

TEST_F(HostSnapshots, WithoutProfilesTakeTheSettingsBackAndLeaveTheProfiles) {
  const std::vector<std::uint8_t> large(33 << 20);
  device.store("wifi", 1);
  seed::write(device, "profile_7.qvx", large);
  ASSERT_TRUE(device.backups->keep("reset"));
  device.store("wifi", 2);
  ASSERT_TRUE(device.recovery().restore(1));
  EXPECT_EQ(device.stored("wifi"), Value(1));
  EXPECT_EQ(device.file(prefs::profilePath(7)).size(), large.size());
  device.damageDomain();
  ASSERT_TRUE(device.recovery().restoreLast());
  EXPECT_EQ(device.stored("wifi"), Value(2));
}

TEST_F(HostSnapshots, OfTheLargestSizeCanBeReadAgain) {
  device.store("wifi", 1);
  seed::write(device, "profile_7.qvx", std::vector<std::uint8_t>((32 << 20) - 1000, 'x'));
  ASSERT_TRUE(device.backups->keep("reset"));
  EXPECT_EQ(newest().profiles->at("profile_7.qvx").size(), (32u << 20) - 1000);
}

TEST_F(HostSnapshots, AnotherProcessThatTakesOneIsWaitedForAsLongAsTheDeviceSaysAndIsNamed) {
  ASSERT_TRUE(device.backups->keep("reset"));
  const auto folder =
      foundation::DeviceRoot(device.stateFolder().string()).openDirectory("/snapshots");
  const auto held = foundation::takeLock(*folder, "records", 0ms, "");
  ASSERT_TRUE(held);
  host::Backups hasty(device.environment, device.state.path(), 20ms, {});
  const auto begun = std::chrono::steady_clock::now();
  const auto kept = hasty.keep("reset");
  EXPECT_LT(std::chrono::steady_clock::now() - begun, 2s);
  ASSERT_FALSE(kept);
  EXPECT_THAT(kept.error().message(), testing::HasSubstr("another program holds the snapshots"));
}

TEST_F(HostSnapshots, EachBitFlipIsFound) {
  device.store("wifi", 2);
  ASSERT_TRUE(device.backups->keep("reset"));
  const auto path = device.stateFolder() / "snapshots" / "1";
  std::ifstream file(path, std::ios::binary);
  const std::string bytes(std::istreambuf_iterator<char>(file.rdbuf()), {});
  ASSERT_FALSE(bytes.empty());
  const auto whole = newest();
  for (std::size_t bit = 0; bit < bytes.size() * 8; ++bit) {
    std::string flipped = bytes;
    flipped[bit / 8] = static_cast<char>(flipped[bit / 8] ^ (1 << bit % 8));
    overwrite(path, flipped);
    const auto read = device.backups->snapshots().read(1);
    // A flip where it means nothing: in a number's width, in an object that nothing leads to.
    if (read) {
      EXPECT_EQ(read->domain, whole.domain) << bit;
      EXPECT_EQ(read->before, whole.before) << bit;
    }
  }
}

TEST_F(HostSnapshots, OneThatWasCutShortIsAnErrorAndNotListed) {
  ASSERT_TRUE(device.backups->keep("reset"));
  ASSERT_TRUE(device.backups->keep("import"));
  std::filesystem::resize_file(device.stateFolder() / "snapshots" / "2", 50);
  EXPECT_FALSE(device.backups->snapshots().read(2));
  EXPECT_THAT(device.snapshots(), ElementsAre("reset"));
}

}  // namespace
