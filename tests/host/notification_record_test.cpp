#include "host/notification_record.h"

#include <gmock/gmock.h>

#include "tests/support/environment.h"

namespace {

struct Poster : foundation::Object {
  std::string_view className() const override { return "Poster"; }
};

TEST(NotificationRecord, KeepsBothCentresInOneOrderAndHandsOn) {
  testing_support::RecordingDarwinCenter machine;
  foundation::NotificationCenter local;
  host::NotificationRecord record(machine);
  record.watch(local);
  const Poster poster;
  record.post("one");
  local.postNotificationName("two", &poster);
  local.postNotificationName("three", nullptr);
  record.post("four");

  EXPECT_THAT(machine.posted, testing::ElementsAre("one", "four"));
  const auto posted = record.take();
  ASSERT_EQ(posted.size(), 4u);
  EXPECT_EQ(posted[0].centre, host::Centre::Darwin);
  EXPECT_EQ(posted[0].name, "one");
  EXPECT_EQ(posted[0].object, std::nullopt);
  EXPECT_EQ(posted[1].centre, host::Centre::Local);
  EXPECT_EQ(posted[1].object, "Poster");
  EXPECT_EQ(posted[2].object, std::nullopt);
  EXPECT_EQ(posted[3].name, "four");
}

TEST(NotificationRecord, TakesEachOnce) {
  testing_support::RecordingDarwinCenter machine;
  host::NotificationRecord record(machine);
  record.post("one");
  EXPECT_EQ(record.take().size(), 1u);
  EXPECT_TRUE(record.take().empty());
}

}  // namespace
