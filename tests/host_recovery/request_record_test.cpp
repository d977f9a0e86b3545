#include "host/application.h"
#include "tests/host_recovery/backed_up_device.h"

namespace {

using namespace recovery_test;
using testing::ElementsAre;
using testing::IsEmpty;

// What the user of a window, or of drive, does.
struct HostRequestRecord : testing::Test {
  HostRequestRecord() {
    device.backups->setStepHandler([this](const std::string& what) { steps.push_back(what); });
    application.record(device.backups.get());
  }
  void perform(const host::Request& request) {
    const auto performed = application.perform(request);
    EXPECT_TRUE(performed) << performed.error().message;
  }
  void show(const std::string& page) {
    perform(host::Launch{page});
    device.queue.advance(std::chrono::milliseconds(100));
  }
  host::Undone undo() {
    const auto undone = host::undo(device.environment, *device.backups);
    EXPECT_TRUE(undone);
    perform(host::Activate{});
    return undone ? *undone : host::Undone();
  }

  std::string labelOf(const char* row) const {
    return (*application.row(row))->name() + " (Power Saving)";
  }

  BackedUpDevice device;
  host::Application application{device.environment, 200};
  Names steps;
};

TEST_F(HostRequestRecord, ASetIsAStepThatBearsTheRowsLabelAndPage) {
  show("PowerSavingListController");
  const std::string label = labelOf("custbrightenabled");
  perform(host::Set{"custbrightenabled", true});
  EXPECT_THAT(steps, ElementsAre("set " + label));
  EXPECT_EQ(undo().what, "set " + label);
  EXPECT_EQ(device.stored("custbrightenabled"), std::nullopt);
}

TEST_F(HostRequestRecord, WhatChangesNothingIsNoStep) {
  show("PowerSavingListController");
  perform(host::Set{"custbrightenabled", true});
  steps.clear();
  perform(host::Set{"custbrightenabled", true});
  perform(host::Scroll{});
  perform(host::Reload{});
  EXPECT_FALSE(application.perform(host::Set{"no row", true}));
  EXPECT_THAT(steps, IsEmpty());
}

TEST_F(HostRequestRecord, ADragIsOneStep) {
  show("PowerSavingListController");
  perform(host::Set{"custbrightenabled", true});
  perform(host::Set{"custbright", 20.0});
  steps.clear();
  perform(host::Set{"custbright", 30.0, true});
  perform(host::Layout{});
  perform(host::Set{"custbright", 40.0, true});
  perform(host::Set{"custbright", 50.0});
  EXPECT_EQ(steps.size(), 1u);
  undo();
  EXPECT_EQ(device.stored("custbright"), Value(20.0));
}

TEST_F(HostRequestRecord, TwoDragsAreTwoSteps) {
  show("PowerSavingListController");
  perform(host::Set{"custbrightenabled", true});
  steps.clear();
  for (const double value : {30.0, 40.0}) {
    perform(host::Set{"custbright", value, true});
    perform(host::Release{});
  }
  EXPECT_EQ(steps.size(), 2u);
  undo();
  EXPECT_EQ(device.stored("custbright"), Value(30.0));
}

TEST_F(HostRequestRecord, AnUndoEndsADrag) {
  show("PowerSavingListController");
  perform(host::Set{"custbrightenabled", true});
  perform(host::Set{"custbright", 30.0, true});
  undo();
  EXPECT_EQ(device.stored("custbright"), std::nullopt);
  perform(host::Set{"custbright", 40.0, true});
  perform(host::Release{});
  EXPECT_EQ(steps.size(), 3u);
  undo();
  EXPECT_EQ(device.stored("custbright"), std::nullopt);
}

TEST_F(HostRequestRecord, ADragThatIsNotEndedIsAStepAllTheSame) {
  {
    host::Application other(device.environment, 200);
    other.record(device.backups.get());
    EXPECT_TRUE(other.perform(host::Launch{"PowerSavingListController"}));
    EXPECT_TRUE(other.perform(host::Set{"custbrightenabled", true, true}));
    EXPECT_THAT(steps, IsEmpty());
  }
  EXPECT_EQ(steps.size(), 1u);
}

TEST_F(HostRequestRecord, AColorIsNamedAfterTheRowThatItIsOf) {
  show("ExtrasListController");
  const auto rows = application.shownList()->specifiers();
  const auto color = std::ranges::find_if(rows, [](const auto& row) {
    return row->textForKey("detail") == "ZorvekColorPickerQuorvantis";
  });
  ASSERT_NE(color, rows.end());
  perform(host::Tap{(*color)->identifier()});
  perform(host::Select{2, 1});
  EXPECT_THAT(steps, ElementsAre("set " + (*color)->name()));
}

TEST_F(HostRequestRecord, AProfileStepIsNamedAfterItsTrigger) {
  device.store("wifi", 2);
  device.save("20");
  device.store("wifi", 1);
  steps.clear();
  {
    const host::UserChange change(device.backups.get(), "set Profiles",
                                  host::Backups::Label::Default);
    EXPECT_TRUE(device.profiles.load(device.trigger("20")));
  }
  EXPECT_THAT(steps, ElementsAre("load Battery 20%"));
}

TEST_F(HostRequestRecord, WhatIsStoredLaterIsAStepOfItsOwn) {
  show("PowerSavingListController");
  device.forbid();
  perform(host::Set{"custbrightenabled", true});
  EXPECT_THAT(steps, IsEmpty());
  device.allow();
  ASSERT_TRUE(device.preferences.finish());
  EXPECT_THAT(steps, ElementsAre("set " + labelOf("custbrightenabled")));
  undo();
  EXPECT_EQ(device.stored("custbrightenabled"), std::nullopt);
}

TEST_F(HostRequestRecord, WhatIsStoredLaterIsNoPartOfTheChangeThatStoresIt) {
  show("PowerSavingListController");
  device.forbid();
  perform(host::Set{"custbrightenabled", true});
  device.allow();
  perform(host::Set{"wifi", 1});
  EXPECT_THAT(steps, ElementsAre("set " + labelOf("custbrightenabled"), "set " + labelOf("wifi")));
  undo();
  EXPECT_EQ(device.stored("wifi"), std::nullopt);
  EXPECT_EQ(device.stored("custbrightenabled"), Value(true));
  undo();
  EXPECT_EQ(device.stored("custbrightenabled"), std::nullopt);
}

TEST_F(HostRequestRecord, ADragThatIsStoredLateIsOneStep) {
  show("PowerSavingListController");
  perform(host::Set{"custbrightenabled", true});
  perform(host::Set{"custbright", 20.0});
  steps.clear();
  device.forbid();
  perform(host::Set{"custbright", 30.0, true});
  device.allow();
  perform(host::Set{"custbright", 40.0, true});
  perform(host::Release{});
  EXPECT_EQ(steps.size(), 1u);
  undo();
  EXPECT_EQ(device.stored("custbright"), Value(20.0));
}

TEST_F(HostRequestRecord, AsksForALabelOnlyWhereAChangeBegins) {
  host::RequestRecord record;
  record.record(device.backups.get());
  int asked = 0;
  for (const host::Request& request :
       {host::Request(host::Layout{}), host::Request(host::Scroll{}), host::Request(host::Launch{}),
        host::Request(host::Set{"wifi", 1})}) {
    record.begin(request, [&] { return std::to_string(++asked); });
    record.end(request);
  }
  EXPECT_EQ(asked, 1);
}

TEST_F(HostRequestRecord, NothingIsRecordedNowhere) {
  application.record(nullptr);
  show("PowerSavingListController");
  perform(host::Set{"custbrightenabled", true});
  EXPECT_THAT(steps, IsEmpty());
}

}  // namespace
