#include "platform/foundation/notification_center.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace foundation::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Plain : Object {
  std::string_view className() const override { return "Plain"; }
};

// Notes each call, and does what it is asked meanwhile.
struct Observer : Object {
  explicit Observer(std::vector<std::string>& log, std::string name = "o")
      : log(log), name(std::move(name)) {}
  std::string_view className() const override { return "Observer"; }
  void performForNotification(std::string_view selector,
                              const Notification& notification) override {
    log.push_back(name + " " + std::string(selector) + " " + notification.name);
    if (meanwhile) meanwhile();
  }
  std::vector<std::string>& log;
  std::string name;
  std::function<void()> meanwhile;
};

struct NotificationCenterTest : ::testing::Test {
  std::vector<std::string> log;
  NotificationCenter center;

  std::shared_ptr<Observer> observer(std::string name) {
    return std::make_shared<Observer>(log, std::move(name));
  }
};

TEST_F(NotificationCenterTest, DeliversByName) {
  const auto a = observer("a");
  center.addObserver(*a, "go:", "one", nullptr);
  center.postNotificationName("two", nullptr);
  EXPECT_THAT(log, IsEmpty());
  center.postNotificationName("one", nullptr);
  EXPECT_THAT(log, ElementsAre("a go: one"));
}

TEST_F(NotificationCenterTest, DeliversInOrderOfRegistration) {
  const auto a = observer("a"), b = observer("b");
  center.addObserver(*b, "x", "n", nullptr);
  center.addObserver(*a, "y", "n", nullptr);
  center.addObserver(*b, "z", "n", nullptr);
  center.postNotificationName("n", nullptr);
  EXPECT_THAT(log, ElementsAre("b x n", "a y n", "b z n"));
}

TEST_F(NotificationCenterTest, ObserverOfOnePosterGetsOnlyItsPosts) {
  const auto a = observer("a");
  Plain poster, other;
  center.addObserver(*a, "x", "n", &poster);
  center.postNotificationName("n", nullptr);
  center.postNotificationName("n", &other);
  EXPECT_THAT(log, IsEmpty());
  center.postNotificationName("n", &poster);
  EXPECT_THAT(log, ElementsAre("a x n"));
}

TEST_F(NotificationCenterTest, RegisteredTwiceIsCalledTwiceAndOneRemovalTakesBoth) {
  const auto a = observer("a");
  center.addObserver(*a, "x", "n", nullptr);
  center.addObserver(*a, "x", "n", nullptr);
  center.postNotificationName("n", nullptr);
  EXPECT_THAT(log, ElementsAre("a x n", "a x n"));
  center.removeObserver(*a, "n", nullptr);
  center.postNotificationName("n", nullptr);
  EXPECT_EQ(log.size(), 2u);
}

TEST_F(NotificationCenterTest, RemovalByNameLeavesOtherNamesAndObservers) {
  const auto a = observer("a"), b = observer("b");
  center.addObserver(*a, "x", "n", nullptr);
  center.addObserver(*a, "x", "m", nullptr);
  center.addObserver(*b, "x", "n", nullptr);
  center.removeObserver(*a, "n", nullptr);
  center.postNotificationName("n", nullptr);
  center.postNotificationName("m", nullptr);
  EXPECT_THAT(log, ElementsAre("b x n", "a x m"));
}

TEST_F(NotificationCenterTest, RemovalForAPosterLeavesThoseForOthers) {
  const auto a = observer("a");
  Plain one, two;
  center.addObserver(*a, "x", "n", &one);
  center.addObserver(*a, "y", "n", &two);
  center.removeObserver(*a, "n", &one);
  center.postNotificationName("n", &one);
  center.postNotificationName("n", &two);
  EXPECT_THAT(log, ElementsAre("a y n"));
}

TEST_F(NotificationCenterTest, RemovalWithoutNameTakesAll) {
  const auto a = observer("a");
  Plain poster;
  center.addObserver(*a, "x", "n", &poster);
  center.addObserver(*a, "x", "m", nullptr);
  center.removeObserver(*a);
  center.postNotificationName("n", &poster);
  center.postNotificationName("m", nullptr);
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(NotificationCenterTest, RemovedDuringAPostIsNotCalledAnyMore) {
  const auto a = observer("a"), b = observer("b");
  a->meanwhile = [&] { center.removeObserver(*b); };
  center.addObserver(*a, "x", "n", nullptr);
  center.addObserver(*b, "x", "n", nullptr);
  center.postNotificationName("n", nullptr);
  EXPECT_THAT(log, ElementsAre("a x n"));
}

TEST_F(NotificationCenterTest, AddedDuringAPostIsNotCalledYet) {
  const auto a = observer("a"), b = observer("b");
  a->meanwhile = [&] {
    center.addObserver(*b, "x", "n", nullptr);
    a->meanwhile = {};
  };
  center.addObserver(*a, "x", "n", nullptr);
  center.postNotificationName("n", nullptr);
  EXPECT_THAT(log, ElementsAre("a x n"));
  center.postNotificationName("n", nullptr);
  EXPECT_THAT(log, ElementsAre("a x n", "a x n", "b x n"));
}

TEST_F(NotificationCenterTest, ObserverThatGoesDuringAPostIsNotCalledAnyMore) {
  const auto a = observer("a");
  auto b = observer("b");
  a->meanwhile = [&] { b.reset(); };
  center.addObserver(*a, "x", "n", nullptr);
  center.addObserver(*b, "x", "n", nullptr);
  center.postNotificationName("n", nullptr);
  EXPECT_THAT(log, ElementsAre("a x n"));
}

TEST_F(NotificationCenterTest, ObserverThatWentWithoutRemovalIsNotCalled) {
  auto a = observer("a");
  center.addObserver(*a, "x", "n", nullptr);
  a.reset();
  center.postNotificationName("n", nullptr);
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(NotificationCenterTest, ObserverIsKeptAliveWhileItIsCalled) {
  auto a = observer("a");
  const std::weak_ptr<Observer> life = a;
  bool alive = false;
  a->meanwhile = [&, check = life] {
    a.reset();
    alive = !check.expired();
  };
  center.addObserver(*a, "x", "n", nullptr);
  center.postNotificationName("n", nullptr);
  EXPECT_TRUE(alive);
  EXPECT_TRUE(life.expired());
}

TEST_F(NotificationCenterTest, ObserverMayRemoveItselfAsItGoes) {
  struct Page : Observer {
    Page(std::vector<std::string>& log, NotificationCenter& center)
        : Observer(log, "page"), center(center) {}
    ~Page() override { center.removeObserver(*this); }
    NotificationCenter& center;
  };
  auto page = std::make_shared<Page>(log, center);
  center.addObserver(*page, "x", "n", nullptr);
  page->meanwhile = [&] { page.reset(); };
  center.postNotificationName("n", nullptr);
  center.postNotificationName("n", nullptr);
  EXPECT_THAT(log, ElementsAre("page x n"));
}

TEST_F(NotificationCenterTest, ObserverThatIsNotSharedIsCalledUntilRemoved) {
  Observer local(log, "local");
  center.addObserver(local, "x", "n", nullptr);
  center.postNotificationName("n", nullptr);
  center.removeObserver(local);
  center.postNotificationName("n", nullptr);
  EXPECT_THAT(log, ElementsAre("local x n"));
}

TEST_F(NotificationCenterTest, PostWithinAPostIsDeliveredAtOnce) {
  const auto a = observer("a"), b = observer("b");
  a->meanwhile = [&] { center.postNotificationName("inner", nullptr); };
  center.addObserver(*a, "x", "outer", nullptr);
  center.addObserver(*b, "y", "inner", nullptr);
  center.addObserver(*b, "z", "outer", nullptr);
  center.postNotificationName("outer", nullptr);
  EXPECT_THAT(log, ElementsAre("a x outer", "b y inner", "b z outer"));
}

TEST_F(NotificationCenterTest, CentreMayGoDuringAPost) {
  auto own = std::make_unique<NotificationCenter>();
  const auto a = observer("a"), b = observer("b");
  a->meanwhile = [&] { own.reset(); };
  own->addObserver(*a, "x", "n", nullptr);
  own->addObserver(*b, "x", "n", nullptr);
  own->postNotificationName("n", nullptr);
  EXPECT_THAT(log, ElementsAre("a x n", "b x n"));
}

TEST_F(NotificationCenterTest, WitnessSeesEveryPostBeforeTheObservers) {
  const auto a = observer("a");
  Plain poster;
  center.setWitness([&](const Notification& notification) {
    log.push_back("seen " + notification.name + (notification.object == &poster ? " of it" : ""));
  });
  center.addObserver(*a, "x", "n", nullptr);
  center.postNotificationName("n", &poster);
  center.postNotificationName("unobserved", nullptr);
  EXPECT_THAT(log, ElementsAre("seen n of it", "a x n", "seen unobserved"));
}

TEST_F(NotificationCenterTest, ObjectWithoutOperationsDoesNothing) {
  const auto plain = std::make_shared<Plain>();
  center.addObserver(*plain, "x", "n", nullptr);
  center.postNotificationName("n", nullptr);
  EXPECT_EQ(plain.use_count(), 1);
}

}  // namespace
}  // namespace foundation::test
