#include <thread>

#include "tests/host_recovery/backed_up_device.h"

namespace {

using namespace recovery_test;
using testing::ElementsAre;
using testing::IsEmpty;

class HostHistory : public testing::Test {
 protected:
  host::Undone undo() { return result(host::undo(device.environment, *device.backups)); }
  host::Undone redo() { return result(host::redo(device.environment, *device.backups)); }
  host::Undone result(const host::Attempt<host::Undone>& attempt) {
    EXPECT_TRUE(attempt) << attempt.error().problem.message();
    return attempt ? *attempt : host::Undone();
  }
  std::string next(host::History::Latest (*of)(preferences::Environment&, host::Backups&)) {
    const auto found = of(device.environment, *device.backups);
    EXPECT_TRUE(found && *found);
    return found && *found ? (*found)->change.what : "";
  }
  // A set that waits to be stored from then on.
  void setWhileForbidden(const std::string& key) {
    device.forbid();
    {
      const host::UserChange change(device.backups.get(), "set " + key);
      EXPECT_FALSE(device.preferences.setAppValue(key, 1, prefs::kDomain));
    }
    device.allow();
  }
  bool nothingToUndo() {
    const auto undone = host::undo(device.environment, *device.backups);
    return !undone && undone.error().reason == host::Failure::NotFound;
  }

  // What a folder of the state holds, by name; hidden files left out.
  Names names(const std::string& folder) {
    Names found;
    for (const auto& entry : std::filesystem::directory_iterator(device.stateFolder() / folder))
      if (const auto name = entry.path().filename().string(); name.front() != '.')
        found.push_back(name);
    std::ranges::sort(found);
    return found;
  }
  // A record like another one, as a process that knows no lock would add it.
  void seedRecord(const std::string& name, const std::string& like) {
    std::filesystem::copy_file(device.stateFolder() / "history" / like,
                               device.stateFolder() / "history" / name);
  }

  BackedUpDevice device;
};

TEST_F(HostHistory, UndoesAndRedoesInOrder) {
  device.set("wifi", 1);
  device.set("wifi", 2.0f);
  device.set("vpn", true);
  EXPECT_EQ(undo().what, "set vpn");
  EXPECT_EQ(device.stored("vpn"), std::nullopt);
  EXPECT_EQ(undo().what, "set wifi");
  EXPECT_EQ(device.stored("wifi"), Value(1));
  EXPECT_EQ(redo().what, "set wifi");
  EXPECT_EQ(device.stored("wifi"), Value(2.0f));
  undo();
  undo();
  EXPECT_TRUE(device.domain().empty());
  EXPECT_TRUE(nothingToUndo());
}

TEST_F(HostHistory, OutlivesTheProgram) {
  device.set("wifi", 1);
  device.startAnew();
  EXPECT_EQ(undo().what, "set wifi");
  device.startAnew();
  EXPECT_EQ(redo().what, "set wifi");
}

TEST_F(HostHistory, ANewChangeForgetsWhatWasUndone) {
  device.set("wifi", 1);
  undo();
  device.set("vpn", 1);
  EXPECT_FALSE(host::redo(device.environment, *device.backups));
  EXPECT_EQ(undo().what, "set vpn");
  EXPECT_TRUE(nothingToUndo());
}

TEST_F(HostHistory, ALoadIsUndoneWhole) {
  device.store("wifi", 2);
  device.save("20");
  device.store("wifi", 1);
  device.store("tapaction", 201);
  const auto before = device.domain();
  device.load("20");
  EXPECT_EQ(device.stored("wifi"), Value(2));
  device.events.clear();
  EXPECT_THAT(undo().left, IsEmpty());
  EXPECT_EQ(Value(device.domain()), Value(before));
  EXPECT_EQ(device.events, (Names{"darwin com.zorvek.quorvantis.prefs"}));
  redo();
  EXPECT_EQ(device.stored("profileactive"), Value(1.0f));
}

TEST_F(HostHistory, AStepOfWhichAllIsLeftIsPassedOver) {
  device.set("vpn", 1);
  device.set("wifi", 1);
  device.store("wifi", 7);
  const auto undone = undo();
  EXPECT_FALSE(undone.done);
  EXPECT_EQ(undone.what, "set wifi");
  EXPECT_THAT(undone.left, ElementsAre("wifi"));
  EXPECT_EQ(undo().what, "set vpn");
  EXPECT_EQ(device.stored("vpn"), std::nullopt);
}

TEST_F(HostHistory, WhatCannotBeNotedAsUndoneIsWarnedOf) {
  device.set("wifi", 1);
  std::ofstream(device.stateFolder() / "undone") << "a file";
  EXPECT_TRUE(undo().done);
  EXPECT_EQ(device.stored("wifi"), std::nullopt);
  const std::string still = "\"set wifi\" is still the next to be undone: ";
  EXPECT_THAT(device.warnings, ElementsAre(testing::StartsWith(still)));
}

TEST_F(HostHistory, NothingIsSaidToBeUndoneWhereNothingWas) {
  device.set("wifi", 1);
  device.store("wifi", 7);
  std::ofstream(device.stateFolder() / "undone") << "a file";
  const auto undone = undo();
  EXPECT_FALSE(undone.done);
  EXPECT_THAT(undone.left, ElementsAre("wifi"));
  EXPECT_EQ(device.stored("wifi"), Value(7));
  EXPECT_EQ(device.warnings.size(), 1u);
}

TEST_F(HostHistory, AProfileThatCannotBeReadIsNotTakenForAnothersChange) {
  device.save("20");
  std::filesystem::resize_file(device.at(prefs::profilePath(20)), std::uintmax_t{1} << 30);
  const auto undone = host::undo(device.environment, *device.backups);
  ASSERT_FALSE(undone);
  EXPECT_EQ(undone.error().reason, host::Failure::Failed);
  EXPECT_EQ(undone.error().problem.path, prefs::profilePath(20));
  EXPECT_EQ(names("history"), (Names{"1"}));
}

TEST_F(HostHistory, AFolderInAProfilesPlaceIsAnothersChange) {
  device.save("20");
  std::filesystem::remove(device.at(prefs::profilePath(20)));
  std::filesystem::create_directories(device.at(prefs::profilePath(20)));
  EXPECT_THAT(undo().left, ElementsAre(prefs::profilePath(20)));
}

// Just before it is put in place, another process has its say.
TEST_F(HostHistory, AnUndoMovesTheStepThatItHasUndoneAndNoOther) {
  device.set("wifi", 1);
  const auto locked = device.backups->history().lock();
  ASSERT_TRUE(locked);
  host::Backups other(
      device.environment, device.state.path(), std::chrono::milliseconds(0),
      [&](const platform::Error& error) { device.warnings.push_back(error.message()); });
  const auto last = device.backups->history().next(host::History::Way::Undo);
  other.remember({.what = "set vpn", .settings = {{"vpn", {}, Value(1)}}}, {});
  EXPECT_THAT(device.warnings,
              ElementsAre(testing::HasSubstr("another program holds the history")));
  seedRecord("2", "1");
  EXPECT_TRUE(device.backups->history().move((*last)->number, host::History::Way::Undo));
  EXPECT_EQ(names("undone"), (Names{"1"}));
  EXPECT_EQ(names("history"), (Names{"2"}));
}

TEST_F(HostHistory, ProcessesThatAddAtOnceLoseNothing) {
  device.set("wifi", 0);
  std::vector<std::thread> writers;
  for (int writer = 0; writer < 4; ++writer)
    writers.emplace_back([&, writer] {
      foundation::DeviceRoot state(device.stateFolder().string());
      host::History history(state, foundation::kLockPatience);
      for (int i = 0; i < 20; ++i)
        EXPECT_TRUE(history.add({.what = "set " + std::to_string(writer),
                                 .settings = {{"wifi", Value(i), Value(i + 1)}}}));
    });
  for (std::thread& writer : writers) writer.join();
  EXPECT_EQ(names("history").size(), 81u);
}

TEST_F(HostHistory, WhatCannotBeTakenBackIsNamed) {
  device.save("20");
  device.save("30");
  host::Change change{.what = "save both"};
  for (const int id : {20, 30})
    change.files.push_back({prefs::profilePath(id), device.file(prefs::profilePath(id)), {}});
  change.settings = {{"wifi", {}, Value(1)}};
  device.damageDomain();
  // The name of the first one is taken as soon as it is free.
  const std::string folder = device.at(prefs::profilePath(20)).string();
  device.realXml.atNextRead = [&] { std::filesystem::create_directories(folder); };
  const auto applied =
      host::apply(device.environment, *device.backups, change, host::ChangeNote::Kind::Undo);
  ASSERT_FALSE(applied);
  EXPECT_EQ(applied.error().reason, host::Failure::PartlyDone);
  EXPECT_THAT(applied.error().problem.message(),
              testing::EndsWith("taken back: " + prefs::profilePath(20) +
                                "; the next change does the rest"));
  EXPECT_TRUE(device.root.hasEntry(prefs::profilePath(30)));
}

TEST_F(HostHistory, KnowsTheNextToBeUndoneAndToBeDoneAgain) {
  ASSERT_TRUE(device.backups->open());
  host::History& history = device.backups->history();
  EXPECT_FALSE(*history.next(host::History::Way::Undo));
  device.set("wifi", 1);
  device.set("vpn", 1);
  undo();
  EXPECT_EQ((*history.next(host::History::Way::Undo))->change.what, "set wifi");
  EXPECT_EQ((*history.next(host::History::Way::Redo))->change.what, "set vpn");
}

TEST_F(HostHistory, ALabelSaysOnceItIsDoneWhatWasDone) {
  EXPECT_EQ(host::asDone("load Battery 20%"), "loaded Battery 20%");
  EXPECT_EQ(host::asDone("set WiFi"), "set WiFi");
}

TEST_F(HostHistory, AStepIsReportedOnceItIsThere) {
  Names steps;
  device.backups->setStepHandler([&](const std::string& what) { steps.push_back(what); });
  device.set("wifi", 1);
  device.set("wifi", 1);
  undo();
  EXPECT_THAT(steps, ElementsAre("set wifi"));
}

TEST_F(HostHistory, WhatAnotherProcessHasChangedStaysAndIsNamed) {
  device.store("wifi", 1);
  device.save("20");
  device.store("wifi", 2);
  device.store("vpn", 2);
  device.load("20");
  device.store("wifi", 7);
  EXPECT_THAT(undo().left, ElementsAre("wifi"));
  EXPECT_EQ(device.stored("wifi"), Value(7));
  EXPECT_EQ(device.stored("vpn"), Value(2));
}

TEST_F(HostHistory, WhatIsUndoneAlreadyIsNotNamed) {
  device.store("wifi", 1);
  device.set("wifi", 2);
  device.store("wifi", 1);
  EXPECT_THAT(undo().left, IsEmpty());
}

TEST_F(HostHistory, AnotherKindOfNumberIsAnotherProcessesChange) {
  device.set("wifi", 1);
  device.store("wifi", 1.0f);
  EXPECT_THAT(undo().left, ElementsAre("wifi"));
}

TEST_F(HostHistory, ADeletedProfileComesBackByteForByte) {
  seed::write(device, "profile_20.qvx", {'j', 'u', 'n', 'k'});
  device.remove("20");
  undo();
  EXPECT_EQ(device.file(prefs::profilePath(20)), (std::vector<std::uint8_t>{'j', 'u', 'n', 'k'}));
  redo();
  EXPECT_FALSE(device.root.hasEntry(prefs::profilePath(20)));
}

TEST_F(HostHistory, AnOverwrittenProfileComesBackByteForByte) {
  seed::profile(device, "20", "Old");
  const auto before = device.file(prefs::profilePath(20));
  device.save("20");
  const auto after = device.file(prefs::profilePath(20));
  undo();
  EXPECT_EQ(device.file(prefs::profilePath(20)), before);
  EXPECT_EQ(device.stored("profilepercentage"), std::nullopt);
  redo();
  EXPECT_EQ(device.file(prefs::profilePath(20)), after);
}

TEST_F(HostHistory, ASavedProfileIsRemoved) {
  device.save("20");
  undo();
  EXPECT_FALSE(device.root.hasEntry(prefs::profilePath(20)));
}

TEST_F(HostHistory, AProfileThatAnotherProcessHasWrittenStaysAndIsNamed) {
  device.save("20");
  seed::write(device, "profile_20.qvx", {'n', 'e', 'w'});
  EXPECT_THAT(undo().left, ElementsAre(prefs::profilePath(20)));
  EXPECT_EQ(device.file(prefs::profilePath(20)), (std::vector<std::uint8_t>{'n', 'e', 'w'}));
}

TEST_F(HostHistory, WhenTheSettingsCannotBeChangedNoProfileIs) {
  device.save("20");
  const auto saved = device.file(prefs::profilePath(20));
  device.forbid();
  EXPECT_FALSE(host::undo(device.environment, *device.backups));
  EXPECT_EQ(device.file(prefs::profilePath(20)), saved);
  device.allow();
  EXPECT_EQ(undo().what, "save 20");
}

TEST_F(HostHistory, AChangeThatFailedIsNotInIt) {
  std::filesystem::create_directories(device.at(prefs::profilePath(20)));
  {
    const host::UserChange change(device.backups.get(), "save 20");
    EXPECT_FALSE(device.profiles.save(device.trigger("20"), host::Profiles::Existing::Overwrite));
  }
  EXPECT_TRUE(nothingToUndo());
}

TEST_F(HostHistory, AChangeToTheSameValueIsNotInIt) {
  device.store("wifi", 1);
  device.set("wifi", 1);
  EXPECT_TRUE(nothingToUndo());
}

TEST_F(HostHistory, WhatWaitsToBeStoredIsTheLastChange) {
  device.set("vpn", 1);
  setWhileForbidden("wifi");
  EXPECT_EQ(undo().what, "set wifi");
  EXPECT_EQ(device.stored("wifi"), std::nullopt);
  EXPECT_EQ(device.stored("vpn"), Value(1));
}

// As a menu that is opened then names it.
TEST_F(HostHistory, TheNextToBeUndoneIsTheOneThatAnUndoTakes) {
  device.set("vpn", 1);
  setWhileForbidden("wifi");
  EXPECT_EQ(next(host::nextUndo), "set wifi");
  device.backups->beginChange("drag custbright");
  ASSERT_TRUE(device.preferences.setAppValue("custbright", 5, prefs::kDomain));
  EXPECT_EQ(next(host::nextUndo), "drag custbright");
  EXPECT_EQ(undo().what, "drag custbright");
  EXPECT_EQ(next(host::nextRedo), "drag custbright");
  EXPECT_EQ(redo().what, "drag custbright");
}

TEST_F(HostHistory, OfARootThatCannotBeFoundIsAnErrorAndNotEmpty) {
  const std::filesystem::path root = device.root.directory();
  std::filesystem::remove_all(root);
  std::filesystem::create_symlink(root.filename(), root);  // leads to itself
  EXPECT_FALSE(host::nextUndo(device.environment, *device.backups));
  EXPECT_FALSE(host::nextRedo(device.environment, *device.backups));
  const auto undone = host::undo(device.environment, *device.backups);
  ASSERT_FALSE(undone);
  EXPECT_EQ(undone.error().reason, host::Failure::Failed);
}

TEST_F(HostHistory, WhatASetChangesThatWasKeptForAnotherChangeIsAPartOfEach) {
  device.store("wifi", 1);
  device.forbid();
  {
    const host::UserChange change(device.backups.get(), "set wifi");
    EXPECT_FALSE(device.preferences.setAppValue("wifi", 2, prefs::kDomain));
  }
  device.allow();
  device.set("wifi", 3);
  undo();
  EXPECT_EQ(device.stored("wifi"), Value(2));
  undo();
  EXPECT_EQ(device.stored("wifi"), Value(1));
  EXPECT_TRUE(nothingToUndo());
}

TEST_F(HostHistory, WhatIsNotTheUsersAndStoredLaterIsNotInIt) {
  device.forbid();
  EXPECT_FALSE(device.preferences.setAppValue("wifi", 1, prefs::kDomain));
  device.allow();
  device.set("vpn", 1);
  EXPECT_EQ(device.stored("wifi"), Value(1));
  undo();
  EXPECT_EQ(device.stored("wifi"), Value(1));
  EXPECT_TRUE(nothingToUndo());
}

TEST_F(HostHistory, WhatIsNotTheUsersIsNotInIt) {
  EXPECT_TRUE(device.preferences.setAppValue("wifi", 1, prefs::kDomain));
  EXPECT_TRUE(nothingToUndo());
}

TEST_F(HostHistory, TheLatestTwoHundredStay) {
  for (int i = 0; i <= 205; ++i) device.set("wifi", i);
  const auto folder = device.stateFolder() / "history";
  EXPECT_EQ(names("history").size(), 200u);
  EXPECT_TRUE(std::filesystem::exists(folder / "206"));
  EXPECT_FALSE(std::filesystem::exists(folder / "6"));
  undo();
  EXPECT_EQ(device.stored("wifi"), Value(204));
}

TEST_F(HostHistory, FourMegabytesStay) {
  const auto size = [&] {
    std::uintmax_t together = 0;
    for (const auto& file : std::filesystem::directory_iterator(device.stateFolder() / "history"))
      together += file.file_size();
    return together;
  };
  for (int i = 0; i < 5; ++i)
    device.set("msgtext", std::string(1 << 20, static_cast<char>('a' + i)));
  EXPECT_LE(size(), host::History::kLargest);
  EXPECT_GT(size(), 1u << 20);
  undo();
  EXPECT_EQ(device.stored("msgtext")->text()->front(), 'd');
}

TEST_F(HostHistory, WhatIsTooLargeToBeUndoneIsSaid) {
  seed::write(device, "profile_20.qvx", std::vector<std::uint8_t>(5 << 20));
  device.remove("20");
  EXPECT_THAT(device.warnings, ElementsAre(testing::HasSubstr("too large")));
}

TEST_F(HostHistory, OneThatCannotBeReadIsAnErrorAndNotEmpty) {
  device.set("wifi", 1);
  std::filesystem::remove_all(device.stateFolder() / "history");
  std::ofstream(device.stateFolder() / "history") << "a file";
  const auto undone = host::undo(device.environment, *device.backups);
  ASSERT_FALSE(undone);
  EXPECT_EQ(undone.error().reason, host::Failure::Failed);
}

TEST_F(HostHistory, ADamagedEntryIsNamedBeforeAnEarlierOneIsUndone) {
  device.set("wifi", 1);
  device.set("vpn", 1);
  std::filesystem::resize_file(device.stateFolder() / "history" / "2", 40);
  const auto lost = host::undo(device.environment, *device.backups);
  ASSERT_FALSE(lost);
  EXPECT_EQ(lost.error().reason, host::Failure::Failed);
  EXPECT_THAT(lost.error().problem.message(),
              testing::StartsWith("the last change can't be undone, since what was kept of it is "
                                  "lost; another undo is about the one before it"));
  EXPECT_EQ(device.stored("wifi"), Value(1));
  EXPECT_EQ(undo().what, "set wifi");
  EXPECT_EQ(device.stored("vpn"), Value(1));
}

TEST_F(HostHistory, ADamagedUndoneEntryIsNamedBeforeAnotherOneIsRedone) {
  device.set("wifi", 1);
  device.set("vpn", 1);
  undo();
  undo();
  std::filesystem::resize_file(device.stateFolder() / "undone" / "2", 0);
  EXPECT_FALSE(host::redo(device.environment, *device.backups));
  EXPECT_EQ(redo().what, "set vpn");
}

TEST_F(HostHistory, TheOnlyEntryIsNamedWhereItIsDamaged) {
  device.set("wifi", 1);
  std::filesystem::resize_file(device.stateFolder() / "history" / "1", 0);
  const auto lost = host::undo(device.environment, *device.backups);
  ASSERT_FALSE(lost);
  EXPECT_EQ(lost.error().reason, host::Failure::Failed);
  EXPECT_TRUE(nothingToUndo());
}

TEST_F(HostHistory, NothingToUndoLeavesNoTrace) {
  EXPECT_TRUE(nothingToUndo());
  EXPECT_TRUE(std::filesystem::is_empty(device.state.path()));
}

}  // namespace
