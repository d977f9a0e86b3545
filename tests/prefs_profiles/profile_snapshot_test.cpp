#include "prefs/profiles/profile_snapshot.h"

#include <sys/stat.h>

#include "tests/prefs_profiles/profiles_device.h"

namespace {

using namespace prefs;
using plist::Dictionary;
using plist::Value;
using profiles_test::defaults;

class ProfileSnapshot : public testing::Test {
 protected:
  SaveResult save(const std::string& code, Existing existing = Existing::Keep,
                  AfterFailure afterFailure = AfterFailure::GoOn) {
    return saveProfile(device.environment, code, profilePath(std::stoi(code)), existing,
                       afterFailure);
  }
  platform::Result<LoadedProfile> load(const std::string& code) {
    return loadProfile(device.environment, profilePath(std::stoi(code)));
  }
  // Loads a file that holds this dictionary.
  LoadedProfile loadFile(const Value& root) {
    seed::archive(device, "profile_1.qvx", root);
    auto loaded = load("1");
    EXPECT_TRUE(loaded);
    return loaded ? *loaded : LoadedProfile{};
  }
  profiles_test::ProfilesDevice device;
};

using ProfileSave = ProfileSnapshot;
using ProfileLoad = ProfileSnapshot;

TEST_F(ProfileSave, MakesTheFolderWithItsIntermediates) {
  EXPECT_EQ(save("5").outcome, SaveOutcome::Saved);
  EXPECT_TRUE(std::filesystem::is_directory(device.at(kDocuments)));
}

TEST_F(ProfileSave, OfAnEmptyDomainHoldsTheDefaultsAndTheTrigger) {
  save("5");
  Dictionary expected = defaults();
  expected.set("profilepercentage", "5");
  EXPECT_EQ(Value(device.profile("5")), Value(expected));
  EXPECT_EQ(device.profile("5").size(), 50u) << "the trigger and all settings but autoupdates";
}

TEST_F(ProfileSave, StoresFiftyForAMissingBrightness) {
  save("5");
  EXPECT_EQ(*device.profile("5").find("custbright"), Value(50));
}

TEST_F(ProfileSave, LeavesOutAutoupdatesWhereTheDomainHasNone) {
  save("5");
  EXPECT_EQ(device.profile("5").find("autoupdates"), nullptr);
  EXPECT_EQ(device.profile("5").find("autoupdatess"), nullptr);
  device.store("autoupdates", 2);
  save("6");
  EXPECT_EQ(*device.profile("6").find("autoupdates"), Value(2));
}

TEST_F(ProfileSave, CopiesEachValueAsTheDomainHoldsIt) {
  device.store("wifi", true);
  device.store("custbright", 12.5f);
  device.store("customvolume", 0.1);
  device.store("vibrateduration", 7);
  device.store("alertmsg", "Low");
  device.store("dnd", plist::Array{1, "two"});
  save("5");
  const Dictionary profile = device.profile("5");
  EXPECT_EQ(*profile.find("wifi"), Value(true));
  EXPECT_EQ(*profile.find("custbright"), Value(12.5f));
  EXPECT_EQ(*profile.find("customvolume"), Value(0.1));
  EXPECT_EQ(*profile.find("vibrateduration"), Value(7));
  EXPECT_EQ(*profile.find("alertmsg"), Value("Low"));
  EXPECT_EQ(*profile.find("dnd"), Value(plist::Array{1, "two"}));
}

TEST_F(ProfileSave, CopiesEverySettingOfTheList) {
  int number = 1000;
  for (std::string_view key : profileKeys()) device.store(key, number++);
  save("5");
  const Dictionary profile = device.profile("5");
  ASSERT_EQ(profile.size(), 51u);
  number = 1000;
  for (std::string_view key : profileKeys()) EXPECT_EQ(*profile.find(key), Value(number++)) << key;
}

TEST_F(ProfileSave, TakesNoKeyOutsideTheList) {
  device.store("lowpowerwifi", 1);
  device.store("color", "#FFFFFF");
  save("5");
  EXPECT_EQ(device.profile("5").find("lowpowerwifi"), nullptr);
  EXPECT_EQ(device.profile("5").find("color"), nullptr);
}

TEST_F(ProfileSave, StoresTheIDAsText) {
  device.store("profilepercentage", 12);
  save("101");
  EXPECT_EQ(*device.profile("101").find("profilepercentage"), Value("101"));
  EXPECT_EQ(device.stored("profilepercentage"), Value("101"));
}

TEST_F(ProfileSave, ChangesOnlyTheTriggerInTheDomain) {
  device.store("wifi", 1.0f);
  device.store("color", "none");
  Dictionary expected = device.domain();
  expected.set("profilepercentage", "5");
  save("5");
  EXPECT_EQ(Value(device.domain()), Value(expected));
}

TEST_F(ProfileSave, PostsNothing) {
  save("5");
  save("5", Existing::Overwrite);
  EXPECT_TRUE(device.events.empty());
}

TEST_F(ProfileSave, KeepsAnExistingFileAndTheDomain) {
  seed::write(device, "profile_5.qvx", {'o', 'l', 'd'});
  device.store("profilepercentage", "9");
  EXPECT_EQ(save("5").outcome, SaveOutcome::Exists);
  EXPECT_EQ(*device.root.read(profilePath(5)), (std::vector<std::uint8_t>{'o', 'l', 'd'}));
  EXPECT_EQ(device.stored("profilepercentage"), Value("9"));
}

TEST_F(ProfileSave, OverwritesWhenItMay) {
  seed::write(device, "profile_5.qvx", {'o', 'l', 'd'});
  EXPECT_EQ(save("5", Existing::Overwrite).outcome, SaveOutcome::Overwritten);
  EXPECT_EQ(*device.profile("5").find("profilepercentage"), Value("5"));
}

TEST_F(ProfileSave, IsPlainWhereThereIsNothingToOverwrite) {
  EXPECT_EQ(save("5", Existing::Overwrite).outcome, SaveOutcome::Saved);
}

TEST_F(ProfileSave, SeesWhatAnotherProcessStored) {
  (void)device.preferences.copyAppValue("wifi", kDomain);
  device.store("wifi", 2);
  save("5");
  EXPECT_EQ(*device.profile("5").find("wifi"), Value(2));
}

TEST_F(ProfileSave, RemembersTheTriggerEvenIfTheFileCannotBeWritten) {
  seed::noFolder(device);
  const SaveResult result = save("5", Existing::Overwrite);
  EXPECT_EQ(result.outcome, SaveOutcome::NotWritten);
  EXPECT_NE(result.failure->message().find("/var/mobile/Documents"), std::string::npos)
      << result.failure->message();
  EXPECT_EQ(device.stored("profilepercentage"), Value("5"));
}

TEST_F(ProfileSave, TakesTheNameOfALinkThatLeadsNowhereForAFile) {
  seed::profile(device, "5");
  std::filesystem::create_symlink("nowhere", device.at(profilePath(6)));
  EXPECT_EQ(save("6", Existing::Keep).outcome, SaveOutcome::Exists);
  EXPECT_EQ(save("6", Existing::Overwrite).outcome, SaveOutcome::Overwritten);
  EXPECT_EQ(*device.profile("6").find("profilepercentage"), Value("6"));
}

TEST_F(ProfileSave, OverwritesNoFolder) {
  std::filesystem::create_directories(device.at(profilePath(5)) / "inner");
  std::filesystem::create_directories(device.at(profilePath(6)));
  for (const char* taken : {"5", "6"}) {
    EXPECT_EQ(save(taken, Existing::Keep).outcome, SaveOutcome::Exists);
    const SaveResult result = save(taken, Existing::Overwrite);
    EXPECT_EQ(result.outcome, SaveOutcome::NotWritten);
    EXPECT_NE(result.failure->message().find("Is a directory"), std::string::npos)
        << result.failure->message();
  }
  EXPECT_TRUE(std::filesystem::is_directory(device.at(profilePath(5)) / "inner"));
  EXPECT_TRUE(std::filesystem::is_directory(device.at(profilePath(6))));
}

TEST_F(ProfileSave, WritesNoDefaultsForSettingsThatCannotBeRead) {
  seed::archive(device, "profile_5.qvx", Dictionary{{"profilepercentage", "5"}, {"wifi", 2}});
  const auto good = *device.root.read(profilePath(5));
  device.store("wifi", 1);
  (void)device.preferences.copyAppValue("wifi", kDomain);
  device.damageDomain();
  const auto damaged = *device.root.read(device.kDomainFile);
  for (const auto after : {AfterFailure::GoOn, AfterFailure::Stop}) {
    const SaveResult overwritten = save("5", Existing::Overwrite, after);
    EXPECT_EQ(overwritten.outcome, SaveOutcome::Unreadable);
    EXPECT_TRUE(overwritten.failure->message().starts_with("the settings can't be read: "))
        << overwritten.failure->message();
    EXPECT_EQ(save("6", Existing::Keep, after).outcome, SaveOutcome::Unreadable);
  }
  EXPECT_EQ(*device.root.read(profilePath(5)), good);
  EXPECT_EQ(*device.root.read(device.kDomainFile), damaged);
  EXPECT_EQ(device.root.contentsOfDirectory(kDocuments)->size(), 1u);
}

TEST_F(ProfileSave, SaysThatTheDomainDoesNotNameTheTrigger) {
  std::filesystem::create_directories(
      device.at("/var/mobile/Library/Preferences/.com.zorvek.quorvantis.plist.lock"));
  const SaveResult result = save("5");
  EXPECT_EQ(result.outcome, SaveOutcome::NotRemembered);
  EXPECT_NE(result.failure->message().find("lock"), std::string::npos) << result.failure->message();
  EXPECT_EQ(*device.profile("5").find("profilepercentage"), Value("5"));
}

TEST_F(ProfileSave, LeavesOutWhatAPropertyListCannotHold) {
  // As a store of another implementation may hold it: a set in its binary form.
  const std::vector<std::uint8_t> bytes = {
      'b', 'p', 'l', 'i', 's', 't', '0', '0', 0xD1, 1, 2, 0x54, 'w', 'i', 'f', 'i', 0xC0, 8,
      11,  16,  0,   0,   0,   0,   0,   0,   1,    1, 0, 0,    0,   0,   0,   0,   0,    3,
      0,   0,   0,   0,   0,   0,   0,   0,   0,    0, 0, 0,    0,   0,   0,   17};
  const auto file = device.at(device.kDomainFile);
  std::filesystem::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()), std::ssize(bytes));
  ASSERT_NE(plist::readBinary(bytes)->dictionary()->find("wifi")->set(), nullptr);
  save("5", Existing::Keep, AfterFailure::Stop);
  EXPECT_EQ(*device.profile("5").find("wifi"), Value(0));
}

TEST_F(ProfileSave, CanStopWhereTheFileCannotBeWritten) {
  seed::noFolder(device);
  EXPECT_TRUE(save("5", Existing::Overwrite, AfterFailure::Stop).failure);
  EXPECT_TRUE(device.domain().empty());
}

TEST_F(ProfileLoad, SetsTheFilesValuesInTheDomain) {
  device.store("wifi", 1);
  device.store("alertmsg", "mine");
  device.store("color", "#FFFFFF");
  loadFile(Dictionary{{"profilepercentage", "20"}, {"wifi", true}, {"custbright", 0.5f}});
  EXPECT_EQ(device.stored("wifi"), Value(true));
  EXPECT_EQ(device.stored("custbright"), Value(0.5f));
  EXPECT_EQ(device.stored("profilepercentage"), Value("20"));
  EXPECT_EQ(device.stored("alertmsg"), Value("Current battery level %BAT%"));
  EXPECT_EQ(device.stored("color"), Value("#FFFFFF")) << "no setting of a profile";
}

TEST_F(ProfileLoad, SetsASilentSoundWhereTheFileHasNone) {
  device.store("playsound", "file:///a.caf");
  loadFile(Dictionary{{"profilepercentage", "20"}});
  EXPECT_EQ(device.stored("playsound"), Value("Disabled"));
}

TEST_F(ProfileLoad, WritesEverySettingThatTheFileOrTheTableSupplies) {
  loadFile(Dictionary{{"profilepercentage", "20"}});
  Dictionary expected = defaults();
  expected.set("profilepercentage", "20");
  EXPECT_EQ(Value(device.domain()), Value(expected));
}

TEST_F(ProfileLoad, LeavesAutoupdatesWhereTheFileLacksIt) {
  device.store("autoupdates", 2);
  loadFile(Dictionary{{"profilepercentage", "20"}, {"autoupdatess", 1}});
  EXPECT_EQ(device.stored("autoupdates"), Value(2));
  EXPECT_EQ(device.stored("autoupdatess"), std::nullopt);
  loadFile(Dictionary{{"autoupdates", 0}});
  EXPECT_EQ(device.stored("autoupdates"), Value(0));
}

TEST_F(ProfileLoad, OfASavedFileWithoutAutoupdatesLeavesItAsItIs) {
  save("20");
  device.store("autoupdates", 2);
  ASSERT_TRUE(load("20"));
  EXPECT_EQ(device.stored("autoupdates"), Value(2));
}

TEST_F(ProfileLoad, OfAnEmptyDictionaryResetsAllButAutoupdatesAndTheTrigger) {
  for (std::string_view key : profileKeys()) device.store(key, 77);
  device.store("profilepercentage", "9");
  loadFile(Dictionary{});
  Dictionary expected = defaults();
  expected.set("autoupdates", 77);
  expected.set("profilepercentage", "9");
  EXPECT_EQ(Value(device.domain()), Value(expected));
}

TEST_F(ProfileLoad, OfAWholeArchiveWithoutADictionaryIsAnEmptyProfile) {
  device.store("wifi", 2);
  EXPECT_TRUE(loadFile(plist::Array{1}).active);
  EXPECT_EQ(device.stored("wifi"), Value(0));
}

TEST_F(ProfileLoad, OfAFileThatIsNotThereIsAnEmptyProfile) {
  device.store("wifi", 2);
  device.store("profilepercentage", "9");
  auto loaded = load("1");
  ASSERT_TRUE(loaded);
  EXPECT_TRUE(loaded->active);
  EXPECT_EQ(device.stored("wifi"), Value(0));
  EXPECT_EQ(device.stored("profilepercentage"), Value("9"));
  EXPECT_FALSE(device.root.exists(kDocuments)) << "only a save makes the folder";
}

TEST_F(ProfileLoad, TakesATriggerOfAnyKindAsItIs) {
  loadFile(Dictionary{{"profilepercentage", 20}});
  EXPECT_EQ(device.stored("profilepercentage"), Value(20));
}

TEST_F(ProfileLoad, TakesNilForNoValue) {
  device.store("profilepercentage", "9");
  loadFile(Dictionary{{"profilepercentage", Value()}, {"custbright", Value()}});
  EXPECT_EQ(device.stored("custbright"), Value(50));
  EXPECT_EQ(device.stored("profilepercentage"), Value("9"));
}

TEST_F(ProfileLoad, TakesSetsAndUIDsForNoValueAllTheWayDown) {
  device.store("profilepercentage", "9");
  loadFile(Dictionary{{"profilepercentage", plist::Set{{"20"}}},
                      {"custbright", plist::Set{{50}}},
                      {"autoupdates", plist::Set{}},
                      {"playsound", plist::Array{plist::Set{{1}}, "a", Value()}},
                      {"dnd", Dictionary{{"set", plist::Set{{1}}}, {"kept", 1}}}});
  EXPECT_EQ(device.stored("profilepercentage"), Value("9"));
  EXPECT_EQ(device.stored("custbright"), Value(50));
  EXPECT_EQ(device.stored("autoupdates"), std::nullopt);
  EXPECT_EQ(device.stored("playsound"), Value(plist::Array{"a"}));
  EXPECT_EQ(device.stored("dnd"), Value(Dictionary{{"kept", 1}}));
  EXPECT_EQ(save("6").outcome, SaveOutcome::Saved);
}

// A file in XML, so that another process can store something just before it is read.
class ProfileLoadOrder : public ProfileSnapshot {
 protected:
  void loadWhileAnotherStores(const std::string& key, const Value& value) {
    const std::string archive =
        "<plist version='1.0'><dict><key>$version</key><integer>100000</integer>"
        "<key>$archiver</key><string>NSKeyedArchiver</string>"
        "<key>$top</key><dict><key>root</key><dict><key>CF$UID</key><integer>1</integer></dict>"
        "</dict><key>$objects</key><array><string>$null</string>"
        "<dict><key>NS.keys</key><array/><key>NS.objects</key><array/><key>$class</key>"
        "<dict><key>CF$UID</key><integer>2</integer></dict></dict>"
        "<dict><key>$classname</key><string>NSDictionary</string><key>$classes</key><array>"
        "<string>NSDictionary</string><string>NSObject</string></array></dict>"
        "</array></dict></plist>";
    seed::write(device, "profile_1.qvx", {archive.begin(), archive.end()});
    device.realXml.atNextRead = [=, this] { device.store(key, value); };
    ASSERT_TRUE(load("1"));
    ASSERT_FALSE(device.realXml.atNextRead) << "the file was read";
  }
};

TEST_F(ProfileLoadOrder, TheSnapshotIsTakenBeforeTheFileIsReadAndTheDomainIsWrittenWhole) {
  device.store("color", "of the snapshot");
  loadWhileAnotherStores("color", "of another process");
  EXPECT_EQ(device.stored("color"), Value("of the snapshot"));
}

TEST_F(ProfileLoadOrder, KeysThatAreTakenOutOfTheSnapshotStayAsAnotherProcessSetsThem) {
  for (const char* key : {"autoupdates", "profilepercentage"}) {
    device.store(key, "of the snapshot");
    loadWhileAnotherStores(key, "of another process");
    EXPECT_EQ(device.stored(key), Value("of another process")) << key;
  }
}

TEST_F(ProfileLoadOrder, KeysThatOnlyAnotherProcessSetsStay) {
  loadWhileAnotherStores("color", "of another process");
  EXPECT_EQ(device.stored("color"), Value("of another process"));
}

TEST_F(ProfileLoad, TakesNoKeyOutsideTheList) {
  loadFile(Dictionary{{"color", "none"}, {"enabled", false}});
  EXPECT_EQ(device.stored("color"), std::nullopt);
  EXPECT_EQ(device.stored("enabled"), std::nullopt);
}

TEST_F(ProfileLoad, SaysWhetherTheProfileIsActive) {
  EXPECT_TRUE(loadFile(Dictionary{}).active) << "the default";
  EXPECT_TRUE(loadFile(Dictionary{{"profileactive", 1}}).active);
  EXPECT_TRUE(loadFile(Dictionary{{"profileactive", -2}}).active);
  EXPECT_TRUE(loadFile(Dictionary{{"profileactive", 0.5}}).active);
  EXPECT_TRUE(loadFile(Dictionary{{"profileactive", true}}).active);
  EXPECT_FALSE(loadFile(Dictionary{{"profileactive", 0}}).active);
  EXPECT_FALSE(loadFile(Dictionary{{"profileactive", 0.0f}}).active);
  EXPECT_FALSE(loadFile(Dictionary{{"profileactive", false}}).active);
}

TEST_F(ProfileLoad, PostsNothingItself) {
  loadFile(Dictionary{});
  EXPECT_TRUE(device.events.empty());
}

TEST_F(ProfileLoad, OfWhatIsNotAKeyedArchiveChangesNothing) {
  device.store("wifi", 2);
  const Value before = device.domain();
  seed::write(device, "profile_1.qvx", {'j', 'u', 'n', 'k'});
  seed::write(device, "profile_2.qvx", *plist::writeBinary(Dictionary{{"wifi", 1}}));
  std::filesystem::create_directory(device.at(profilePath(3)));
  ASSERT_EQ(mkfifo(device.at(profilePath(4)).c_str(), 0600), 0);
  std::filesystem::create_symlink("/etc/passwd", device.at(profilePath(5)));
  for (auto code : {"1", "2", "3", "4"}) {
    auto loaded = load(code);
    ASSERT_FALSE(loaded) << code;
    EXPECT_NE(loaded.error().code, ENOENT);
    EXPECT_FALSE(loaded.error().message().empty());
  }
  EXPECT_FALSE(load("5"));
  EXPECT_EQ(Value(device.domain()), before);
}

TEST_F(ProfileLoad, BringsBackWhatWasSavedWithItsKinds) {
  device.store("wifi", true);
  device.store("custbright", 12.5f);
  device.store("customvolume", 40);
  save("5");
  for (auto key : {"wifi", "custbright", "customvolume"}) device.store(key, "changed");
  ASSERT_TRUE(load("5"));
  EXPECT_EQ(device.stored("wifi"), Value(true));
  EXPECT_EQ(device.stored("custbright"), Value(12.5f));
  EXPECT_EQ(device.stored("customvolume"), Value(40));
}

TEST(ProfileDifferences, CompareNumbersByValue) {
  const auto found = differences({{"a", 1}, {"b", 1}, {"c", "x"}, {"gone", 2}},
                                 {{"a", true}, {"b", 2.0f}, {"c", "x"}, {"new", "y"}});
  ASSERT_EQ(found.size(), 3u);
  EXPECT_EQ(found[0].key, "b");
  EXPECT_EQ(found[0].from, Value(1));
  EXPECT_EQ(found[0].to, Value(2.0f));
  EXPECT_EQ(found[1].key, "gone");
  EXPECT_EQ(found[1].to, std::nullopt);
  EXPECT_EQ(found[2].key, "new");
  EXPECT_EQ(found[2].from, std::nullopt);
}

TEST(ProfileDifferences, TakeWhatAPropertyListCannotHoldForAbsent) {
  const auto found =
      differences({{"a", plist::Set{}}, {"b", plist::Set{}}, {"c", 1}},
                  {{"a", plist::Set{{1}}}, {"b", 1}, {"c", Value()}, {"d", Value()}});
  ASSERT_EQ(found.size(), 2u);
  EXPECT_EQ(found[0].key, "b");
  EXPECT_EQ(found[0].from, std::nullopt);
  EXPECT_EQ(found[1].key, "c");
  EXPECT_EQ(found[1].to, std::nullopt);
}

TEST_F(ProfileLoad, SaysThatTheDomainCouldNotBeWritten) {
  std::filesystem::create_directories(
      device.at("/var/mobile/Library/Preferences/.com.zorvek.quorvantis.plist.lock"));
  EXPECT_NE(loadFile(Dictionary{}).unstored->message().find("lock"), std::string::npos);
}

TEST_F(ProfileLoad, CanBePredicted) {
  device.store("autoupdates", 2);
  device.store("color", "none");
  const Dictionary profile{{"wifi", 1}, {"profileactive", 0}};
  const Dictionary predicted = domainAfterLoad(profile, device.domain());
  loadFile(profile);
  Dictionary expected = device.domain();
  expected.set("profileactive", 0.0f);
  EXPECT_EQ(Value(predicted), Value(expected));
}

}  // namespace
