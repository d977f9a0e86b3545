#include "host/profiles.h"

#include "tests/platform_foundation/system_calls.h"
#include "tests/prefs_profiles/profiles_device.h"

namespace {

using host::Failure;
using host::Profiles;
using plist::Value;
using Existing = Profiles::Existing;
using Folders = Profiles::Folders;
using Calls = std::vector<std::string>;

constexpr const char* kLock = "/var/mobile/Library/Preferences/.com.zorvek.quorvantis.plist.lock";

class HostProfiles : public testing::Test {
 protected:
  HostProfiles() { calls() = {}; }

  static foundation::test::SystemCalls& calls() { return foundation::test::systemCalls(); }
  static host::Trigger trigger(const std::string& id) { return *host::findTrigger(id); }
  std::vector<std::uint8_t> file(const std::string& id) {
    const auto bytes = device.root.read(trigger(id).path);
    return bytes ? *bytes : std::vector<std::uint8_t>();
  }
  template <class T>
  static Failure failureOf(const host::Attempt<T>& outcome) {
    EXPECT_FALSE(outcome);
    return outcome ? Failure{} : outcome.error();
  }

  profiles_test::ProfilesDevice device;
  Profiles profiles{device.environment};
};

TEST_F(HostProfiles, FindsATriggerByIDOrTitle) {
  EXPECT_EQ(host::triggers().size(), 108u);
  EXPECT_EQ(trigger("101").title, "Charging started");
  EXPECT_EQ(trigger("Battery 7%").path, prefs::profilePath(7));
  for (const char* name : {"20%", "battery 20%", "/var/mobile/Documents/Quorvantis/profile_20.qvx"})
    EXPECT_EQ(host::findTrigger(name), host::findTrigger("20")) << name;
  EXPECT_EQ(host::findTrigger("101%"), std::nullopt) << "an event has no level";
  EXPECT_EQ(host::findTrigger("103"), std::nullopt);
  EXPECT_EQ(host::findTrigger(""), std::nullopt);
}

TEST_F(HostProfiles, SavesAndRemembers) {
  device.store("wifi", 2);
  EXPECT_TRUE(profiles.save(trigger("20"), Existing::Keep));
  EXPECT_EQ(*device.profile("20").find("wifi"), Value(2));
  EXPECT_EQ(device.stored("profilepercentage"), Value("20"));
  EXPECT_EQ(failureOf(profiles.save(trigger("20"), Existing::Keep)).reason, Failure::Exists);
}

TEST_F(HostProfiles, ADescriptionIsReplacedAndAllElseStays) {
  device.store("wifi", 2);
  ASSERT_TRUE(profiles.save(trigger("20"), Existing::Keep));
  plist::Dictionary expected = device.profile("20");
  expected.set("profiledescription", "Night");
  ASSERT_TRUE(profiles.describe(trigger("20"), "Night"));
  EXPECT_TRUE(Value(device.profile("20")) == Value(expected));
  EXPECT_EQ(failureOf(profiles.describe(trigger("21"), "Night")).reason, Failure::NotFound);
  EXPECT_TRUE(file("21").empty());
}

TEST_F(HostProfiles, ADescriptionOverwritesNothingThatAnotherProgramHasWrittenMeanwhile) {
  const auto uid = [](int number) {
    return "<dict><key>CF$UID</key><integer>" + std::to_string(number) + "</integer></dict>";
  };
  const std::string xml =
      "<plist><dict><key>$archiver</key><string>NSKeyedArchiver</string><key>$version</key>"
      "<integer>100000</integer><key>$top</key><dict><key>root</key>" +
      uid(1) +
      "</dict><key>$objects</key><array><string>$null</string><dict><key>NS.keys</key><array/>"
      "<key>NS.objects</key><array/><key>$class</key>" +
      uid(2) +
      "</dict><dict><key>$classname</key><string>NSDictionary</string><key>$classes</key><array>"
      "<string>NSDictionary</string><string>NSObject</string></array></dict></array></dict></"
      "plist>";
  const auto writeXml = [&] { seed::write(device, "profile_20.qvx", {xml.begin(), xml.end()}); };
  writeXml();
  const std::vector<std::uint8_t> theirs{'n', 'e', 'w'};
  device.realXml.atNextRead = [&] { seed::write(device, "profile_20.qvx", theirs); };
  const auto failure = failureOf(profiles.describe(trigger("20"), "Night"));
  EXPECT_EQ(failure.problem.message(),
            prefs::profilePath(20) + ": another program has changed it meanwhile");
  EXPECT_EQ(file("20"), theirs);
  writeXml();
  EXPECT_TRUE(profiles.describe(trigger("20"), "Night"));
}

TEST_F(HostProfiles, ADescriptionOverwritesNothingThatIsWrittenWhileASnapshotIsTaken) {
  ASSERT_TRUE(profiles.save(trigger("20"), Existing::Keep));
  const std::vector<std::uint8_t> theirs{'n', 'e', 'w'};
  device.environment.profileGuard = [&](const preferences::ProfileStep&) {
    seed::write(device, "profile_20.qvx", theirs);
    return nullptr;
  };
  const auto failure = failureOf(profiles.describe(trigger("20"), "Night"));
  EXPECT_EQ(failure.problem.message(),
            prefs::profilePath(20) + ": another program has changed it meanwhile");
  EXPECT_EQ(file("20"), theirs);
}

TEST_F(HostProfiles, ASaveWritesTheDomainOnceAfterTheFile) {
  seed::profile(device, "5");
  device.store("wifi", 2);
  calls().log.clear();
  EXPECT_TRUE(profiles.save(trigger("7"), Existing::Keep));
  EXPECT_EQ(calls().log, (Calls{"fsync *", "rename * profile_7.qvx", "fsync Quorvantis", "fsync *",
                                "rename * com.zorvek.quorvantis.plist", "fsync Preferences"}));
}

TEST_F(HostProfiles, ASaveOfWhatCannotBeReadChangesNothing) {
  device.damageDomain();
  seed::profile(device, "7");
  const auto before = file("7");
  const auto failure = failureOf(profiles.save(trigger("7"), Existing::Overwrite));
  EXPECT_EQ(failure.reason, Failure::Failed);
  EXPECT_TRUE(failure.problem.words.starts_with("not saved: ")) << failure.problem.words;
  EXPECT_TRUE(failure.problem.words.find("quorvantis repair --restore") != std::string::npos)
      << failure.problem.words;
  EXPECT_EQ(file("7"), before);
}

TEST_F(HostProfiles, ASaveWithoutTheLockChangesNothing) {
  device.store("wifi", 2);
  seed::profile(device, "5");
  std::filesystem::create_symlink("nowhere", device.at(prefs::profilePath(7)));
  std::filesystem::remove(device.at(kLock));
  std::filesystem::create_directories(device.at(kLock));
  EXPECT_FALSE(profiles.save(trigger("7"), Existing::Overwrite));
  EXPECT_TRUE(std::filesystem::is_symlink(device.at(prefs::profilePath(7))));
}

TEST_F(HostProfiles, AFileIsAgainWhatItWasWhenTheDomainCannotBeWritten) {
  device.store("wifi", 2);
  seed::profile(device, "7", "Old");
  const auto before = file("7");
  for (const char* id : {"7", "8"}) {
    calls().failRename = 2;  // the profile's, then the domain's
    EXPECT_EQ(failureOf(profiles.save(trigger(id), Existing::Overwrite)).reason, Failure::Failed);
  }
  EXPECT_EQ(file("7"), before);
  EXPECT_FALSE(device.root.hasEntry(prefs::profilePath(8)));
  EXPECT_EQ(device.stored("profilepercentage"), std::nullopt);
}

TEST_F(HostProfiles, ALinkThatCannotComeBackIsNamed) {
  device.store("wifi", 2);
  seed::profile(device, "5");
  std::filesystem::create_symlink("profile_5.qvx", device.at(prefs::profilePath(7)));
  calls().failRename = 2;
  const auto failure = failureOf(profiles.save(trigger("7"), Existing::Overwrite));
  EXPECT_NE(failure.problem.words.find("; the new profile stays"), std::string::npos)
      << failure.problem.words;
  EXPECT_EQ(*device.profile("7").find("wifi"), Value(2));
}

TEST_F(HostProfiles, ASaveAndAnImportOverwriteNoFolder) {
  std::filesystem::create_directories(device.at(prefs::profilePath(7)) / "inner");
  EXPECT_EQ(failureOf(profiles.save(trigger("7"), Existing::Overwrite)).reason, Failure::Failed);
  const auto list = *plist::writeBinary(plist::Dictionary{{"profilepercentage", "7"}});
  const auto failure = failureOf(profiles.import(list, Existing::Overwrite));
  EXPECT_EQ(failure.reason, Failure::Failed);
  EXPECT_NE(failure.problem.words.find("Is a directory"), std::string::npos);
  EXPECT_TRUE(std::filesystem::is_directory(device.at(prefs::profilePath(7)) / "inner"));
  EXPECT_TRUE(device.domain().empty());
}

TEST_F(HostProfiles, RemovesAFolderOnlyWhenAsked) {
  std::filesystem::create_directories(device.at(prefs::profilePath(7)) / "inner");
  const auto refused = failureOf(profiles.remove(trigger("7"), Folders::Refuse));
  EXPECT_EQ(refused.reason, Failure::IsFolder);
  EXPECT_EQ(refused.problem.message(), prefs::profilePath(7) + ": Is a directory");
  EXPECT_TRUE(std::filesystem::is_directory(device.at(prefs::profilePath(7)) / "inner"));
  EXPECT_TRUE(profiles.remove(trigger("7"), Folders::Remove));
  EXPECT_FALSE(device.root.hasEntry(prefs::profilePath(7)));
  EXPECT_EQ(failureOf(profiles.remove(trigger("7"), Folders::Remove)).reason, Failure::NotFound);
}

TEST_F(HostProfiles, WhileTheSettingsCannotBeReadNoneIsMadeChangedOrRemoved) {
  seed::profile(device, "7");
  const auto before = file("7");
  const auto list = *plist::writeBinary(plist::Dictionary{{"profilepercentage", "8"}});
  device.damageDomain();
  const auto expectLeft = [](const auto& outcome, const std::string& what) {
    const std::string words = failureOf(outcome).problem.words;
    EXPECT_TRUE(words.starts_with(what)) << words;
    EXPECT_NE(words.find("quorvantis repair --restore"), std::string::npos) << words;
  };
  expectLeft(profiles.copy(trigger("7"), trigger("8"), Existing::Keep), "not saved: ");
  expectLeft(profiles.import(list, Existing::Keep), "not saved: ");
  expectLeft(profiles.describe(trigger("7"), "Night"), "not saved: ");
  expectLeft(profiles.remove(trigger("7"), Folders::Refuse), "not deleted: ");
  EXPECT_EQ(file("7"), before);
  EXPECT_FALSE(device.root.hasEntry(prefs::profilePath(8)));
}

TEST_F(HostProfiles, LoadsWithTheAnnouncementsOfThePage) {
  seed::archive(device, "profile_20.qvx",
                plist::Dictionary{{"profilepercentage", "20"}, {"wifi", 2}, {"profileactive", 0}});
  EXPECT_TRUE(profiles.load(trigger("20")));
  EXPECT_EQ(device.stored("wifi"), Value(2));
  EXPECT_EQ(device.stored("profileactive"), Value(0.0f));
  EXPECT_EQ(device.events,
            (Calls{"darwin com.zorvek.quorvantis.profile", "darwin com.zorvek.quorvantis.prefs",
                   "local com.zorvek.quorvantis.reloadSpecifiers ProfilesListController"}));
}

TEST_F(HostProfiles, ALoadSaysWhyItLoadedNothing) {
  EXPECT_EQ(failureOf(profiles.load(trigger("20"))).reason, Failure::NotFound);
  seed::write(device, "profile_20.qvx", {'j', 'u', 'n', 'k'});
  EXPECT_EQ(failureOf(profiles.load(trigger("20"))).problem.path, prefs::profilePath(20));
  EXPECT_TRUE(device.events.empty());
  seed::profile(device, "20");
  std::filesystem::create_directories(device.at(kLock));
  const auto failure = failureOf(profiles.load(trigger("20")));
  EXPECT_EQ(failure.reason, Failure::Failed);
  EXPECT_TRUE(failure.problem.words.starts_with("not loaded: ")) << failure.problem.words;
}

TEST_F(HostProfiles, WhatIsReportedAsNotDoneIsNotDoneLater) {
  device.preferences.setFailedSets(foundation::Preferences::FailedSets::Keep);
  device.store("wifi", 1);
  seed::archive(device, "profile_20.qvx",
                plist::Dictionary{{"profilepercentage", "20"}, {"wifi", 2}, {"profileactive", 1}});
  const plist::Dictionary before = device.domain();
  for (const int rename : {1, 2}) {  // that of all settings, that of the page's switch
    calls().failRename = rename;
    EXPECT_TRUE(failureOf(profiles.load(trigger("20"))).problem.words.starts_with("not loaded"));
    EXPECT_TRUE(device.preferences.finish());
    EXPECT_TRUE(Value(device.domain()) == Value(before)) << rename;
  }
  calls().failRename = 2;  // the profile's, then the domain's
  EXPECT_TRUE(failureOf(profiles.save(trigger("7"), Existing::Keep))
                  .problem.words.starts_with("not saved"));
  EXPECT_TRUE(device.preferences.finish());
  EXPECT_TRUE(Value(device.domain()) == Value(before));
}

TEST_F(HostProfiles, ASetThatWasKeptBeforeALoadFailedStaysKept) {
  using FailedSets = foundation::Preferences::FailedSets;
  device.preferences.setFailedSets(FailedSets::Keep);
  seed::profile(device, "20");
  device.store("wifi", 1);
  calls().failRename = 1;
  EXPECT_FALSE(device.preferences.setAppValue("vpn", 1, prefs::kDomain));
  calls().failRename = 1;
  EXPECT_FALSE(profiles.load(trigger("20")));
  EXPECT_EQ(device.preferences.setFailedSets(FailedSets::Keep), FailedSets::Keep);
  EXPECT_TRUE(device.preferences.finish());
  EXPECT_EQ(device.stored("vpn"), Value(1));
  EXPECT_EQ(device.stored("wifi"), Value(1));
}

TEST_F(HostProfiles, ListsProfilesAndReportsWhatIsNot) {
  seed::profile(device, "9", "Night");
  seed::write(device, "profile_10.qvx", {'j', 'u', 'n', 'k'});
  const auto list = profiles.list();
  ASSERT_TRUE(list);
  ASSERT_EQ(list->size(), 1u);
  EXPECT_EQ(list->front().path, prefs::profilePath(9));
  EXPECT_EQ(list->front().trigger, "9");
  EXPECT_EQ(list->front().longTitle(), "Battery 9% - Night");
  ASSERT_EQ(device.problems.size(), 1u);
  EXPECT_TRUE(device.problems[0].starts_with(prefs::profilePath(10) + ": "));
}

TEST_F(HostProfiles, PredictsWhatALoadChanges) {
  device.store("wifi", 1);
  seed::archive(device, "profile_20.qvx",
                plist::Dictionary{{"profilepercentage", "20"}, {"wifi", 2}});
  const auto changes = profiles.changesOfLoad(trigger("20"));
  ASSERT_TRUE(changes);
  EXPECT_EQ(changes->front().key, "wifi");
  EXPECT_EQ(changes->front().from, Value(1));
  EXPECT_EQ(changes->front().to, Value(2));
  device.damageDomain();
  EXPECT_EQ(failureOf(profiles.changesOfLoad(trigger("20"))).reason, Failure::Failed);
}

}  // namespace
