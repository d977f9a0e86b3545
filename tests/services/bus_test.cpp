#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>

#include "services/lazy_services.h"
#include "services/services.h"
#include "tests/services/bus_daemon.h"
#include "tests/services/temporary_folder.h"

using testing::HasSubstr;

namespace {

std::string beside(const char* program) {
  return (std::filesystem::read_symlink("/proc/self/exe").parent_path() / program).string();
}

class BusTest : public testing::Test {
 protected:
  void SetUp() override {
    address_ = "unix:path=" + (folder_.path / "bus").string();
    setenv("DBUS_SESSION_BUS_ADDRESS", address_.c_str(), 1);
    setenv("XDG_RUNTIME_DIR", (folder_.path / "none").c_str(), 1);
    daemon_.emplace(folder_);
    ASSERT_TRUE(daemon_->running) << "dbus-daemon can't be started";
  }

  TemporaryFolder folder_;
  std::string address_;
  std::optional<BusDaemon> daemon_;
  services::SessionNotificationCenter center_;
};

class NoBusTest : public testing::Test {
 protected:
  void SetUp() override {
    unsetenv("DBUS_SESSION_BUS_ADDRESS");
    setenv("XDG_RUNTIME_DIR", folder_.path.c_str(), 1);
  }
  TemporaryFolder folder_;
  services::SessionNotificationCenter center_;
};

}  // namespace

TEST_F(BusTest, AnotherProcessReceivesAPost) {
  Child listener({beside("bus_listener")});
  ASSERT_EQ(listener.line(), "ready");
  center_.post("com.zorvek.quorvantis.prefs");
  EXPECT_EQ(listener.line(), "com.zorvek.quorvantis.prefs");
}

TEST_F(BusTest, AThousandPostsKeepTheirOrder) {
  Child listener({beside("bus_listener")});
  ASSERT_EQ(listener.line(), "ready");
  for (int i = 1; i <= 1000; ++i) center_.post("n." + std::to_string(i));
  for (int i = 1; i <= 1000; ++i) ASSERT_EQ(listener.line(), "n." + std::to_string(i));
}

TEST_F(BusTest, PostsOfAProcessThatIsGoneAreReceived) {
  Child listener({beside("bus_listener")});
  ASSERT_EQ(listener.line(), "ready");
  for (int run = 0; run < 20; ++run) {
    ASSERT_EQ(Child({beside("bus_poster"), "p", "3"}).exitCode(), 0);
    for (int i = 1; i <= 3; ++i) ASSERT_EQ(listener.line(), "p." + std::to_string(i));
  }
}

TEST_F(BusTest, OnlyTheNamesAskedForAreReceived) {
  Child listener({beside("bus_listener"), "a", "c'd", "end"});
  ASSERT_EQ(listener.line(), "ready");
  for (const char* name : {"a", "b", "c'd", "A", "end"}) center_.post(name);
  EXPECT_EQ(listener.line(), "a");
  EXPECT_EQ(listener.line(), "c'd");
  EXPECT_EQ(listener.line(), "end");
}

TEST_F(BusTest, AnyTextIsAName) {
  Child listener({beside("bus_listener")});
  ASSERT_EQ(listener.line(), "ready");
  for (const char* name : {"", "no member name!", "é😀"}) center_.post(name);
  EXPECT_EQ(listener.line(), "");
  EXPECT_EQ(listener.line(), "no member name!");
  EXPECT_EQ(listener.line(), "é😀");
}

TEST_F(BusTest, ANameThatIsNotUtf8IsDroppedAndTheNextIsReceived) {
  Child listener({beside("bus_listener")});
  ASSERT_EQ(listener.line(), "ready");
  center_.post("\xFF");
  center_.post("next");
  EXPECT_EQ(listener.line(), "next");
}

TEST_F(BusTest, TheBusInTheRuntimeFolderIsFound) {
  unsetenv("DBUS_SESSION_BUS_ADDRESS");
  setenv("XDG_RUNTIME_DIR", folder_.path.c_str(), 1);
  Child listener({beside("bus_listener")});
  ASSERT_EQ(listener.line(), "ready");
  ASSERT_EQ(Child({beside("bus_poster"), "p", "1"}).exitCode(), 0);
  EXPECT_EQ(listener.line(), "p.1");
}

TEST_F(BusTest, AForeignListenerSeesTheSignal) {
  Child monitor({"dbus-monitor", "--address", address_,
                 "type='signal',interface='com.zorvek.quorvantis.Notifications'"});
  // It does not say when it has begun to listen.
  std::string seen;
  for (int tries = 0; tries < 600 && seen.find("foreign.name") == seen.npos; ++tries) {
    center_.post("foreign.name");
    while (const auto line = monitor.line(50)) seen += *line + "\n";
  }
  EXPECT_THAT(seen, HasSubstr("path=/com/zorvek/quorvantis; "
                              "interface=com.zorvek.quorvantis.Notifications; member=Posted"));
  EXPECT_THAT(seen, HasSubstr("string \"foreign.name\""));
}

TEST_F(BusTest, WaitEndsWithoutAPostWhenPatienceDoes) {
  ASSERT_TRUE(services::find<services::Bus>());
  auto listener = (*services::find<services::Bus>())->listen({});
  ASSERT_TRUE(listener);
  int received = 0;
  EXPECT_TRUE((*listener)->wait([&](auto) { ++received; }, std::chrono::milliseconds(1)));
  EXPECT_EQ(received, 0);
}

TEST_F(BusTest, WaitEndsWhenASignalHandlerRan) {
  auto listener = (*services::find<services::Bus>())->listen({});
  ASSERT_TRUE(listener);
  struct sigaction handler {};
  handler.sa_handler = [](int) {};
  sigaction(SIGALRM, &handler, nullptr);
  const itimerval often{{0, 10'000}, {0, 10'000}};
  setitimer(ITIMER_REAL, &often, nullptr);
  EXPECT_TRUE((*listener)->wait([](auto) {}));
  const itimerval never{};
  setitimer(ITIMER_REAL, &never, nullptr);
}

TEST_F(BusTest, AForeignSignalIsReceived) {
  Child listener({beside("bus_listener")});
  ASSERT_EQ(listener.line(), "ready");
  for (const char* argument : {"uint32:5", "string:from.elsewhere"})
    ASSERT_EQ(Child({"dbus-send", "--bus=" + address_, "--type=signal", "/com/zorvek/quorvantis",
                     "com.zorvek.quorvantis.Notifications.Posted", argument})
                  .exitCode(),
              0);
  EXPECT_EQ(listener.line(), "from.elsewhere");
}

TEST_F(BusTest, AListenerInTheSameProcessReceivesAllSoFar) {
  auto listener = (*services::find<services::Bus>())->listen({});
  ASSERT_TRUE(listener);
  std::vector<std::string> received;
  center_.post("a");
  center_.post("b");
  while (received.size() < 2)
    ASSERT_TRUE((*listener)->wait([&](auto name) { received.emplace_back(name); },
                                  std::chrono::seconds(30)));
  EXPECT_THAT(received, testing::ElementsAre("a", "b"));
}

TEST_F(BusTest, AListenerIsNotifiedThatTheBusEnded) {
  Child listener({beside("bus_listener")});
  ASSERT_EQ(listener.line(), "ready");
  daemon_->end();
  EXPECT_THAT(listener.line().value_or(""), HasSubstr("the session bus went away: "));
  EXPECT_EQ(listener.exitCode(), 1);
}

TEST_F(BusTest, PostsGoOnWhenTheBusIsBack) {
  center_.post("first");
  daemon_->end();
  center_.post("lost");
  std::filesystem::remove(folder_.path / "bus");
  daemon_.emplace(folder_);
  ASSERT_TRUE(daemon_->running);
  Child listener({beside("bus_listener")});
  ASSERT_EQ(listener.line(), "ready");
  center_.post("again");
  EXPECT_EQ(listener.line(), "again");
}

TEST_F(NoBusTest, PostsAreDroppedSilently) {
  testing::internal::CaptureStderr();
  testing::internal::CaptureStdout();
  for (int i = 0; i < 1000; ++i) center_.post("name");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_TRUE(std::filesystem::is_empty(folder_.path));
}

TEST_F(NoBusTest, ListeningSaysWhyItCannot) {
  const auto listener = (*services::find<services::Bus>())->listen({});
  ASSERT_FALSE(listener);
  EXPECT_EQ(listener.error().message(), "no session bus: No such file or directory");
}

TEST_F(NoBusTest, ListeningNamesTheVariables) {
  unsetenv("XDG_RUNTIME_DIR");
  const auto listener = (*services::find<services::Bus>())->listen({});
  ASSERT_FALSE(listener);
  EXPECT_THAT(listener.error().message(), HasSubstr("DBUS_SESSION_BUS_ADDRESS"));
}

// With a wait for each of them this would take minutes.
TEST_F(NoBusTest, ABusThatNeverAnswersIsLeftAlone) {
  const int server = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_un address{AF_UNIX, {}};
  (folder_.path / "bus").string().copy(address.sun_path, sizeof address.sun_path - 1);
  ASSERT_EQ(bind(server, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
  ASSERT_EQ(listen(server, 100), 0);
  ASSERT_EQ(Child({beside("bus_poster"), "p", "5000"}).exitCode(), 0);
  close(server);
}
