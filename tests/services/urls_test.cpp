#include <gtest/gtest.h>

#include <chrono>
#include <sstream>
#include <thread>

#include "services/lazy_services.h"
#include "services/services.h"
#include "tests/services/temporary_folder.h"

namespace {

// A desktop whose one application, for the schemes twitter and https, notes what it is given.
// GLib looks at the environment once, so there is one for the whole program.
class Desktop : public testing::Environment {
 public:
  void SetUp() override {
    const auto opened = (folder_.path / "opened").string();
    const auto script =
        folder_.write("note.sh", "#!/bin/sh\nprintf '%s\\n' \"$1\" >'" + opened + ".new'\nmv '" +
                                     opened + ".new' '" + opened + "'\n");
    std::filesystem::permissions(script, std::filesystem::perms::owner_all);
    folder_.write("data/applications/note.desktop",
                  "[Desktop Entry]\nType=Application\nName=Note\nExec=" + script.string() +
                      " %u\nMimeType=x-scheme-handler/twitter;x-scheme-handler/https;\n");
    folder_.write("data/applications/mimeapps.list",
                  "[Default Applications]\nx-scheme-handler/twitter=note.desktop\n"
                  "x-scheme-handler/https=note.desktop\n");
    setenv("XDG_DATA_HOME", (folder_.path / "data").c_str(), 1);
    setenv("XDG_CONFIG_HOME", (folder_.path / "none").c_str(), 1);
    setenv("XDG_DATA_DIRS", (folder_.path / "none").c_str(), 1);
    setenv("XDG_CONFIG_DIRS", (folder_.path / "none").c_str(), 1);
    setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 1);
    unsetenv("DISPLAY");
  }

  // What the application noted last; waits for it.
  std::string opened() {
    for (int tries = 0; tries < 3000; ++tries) {
      if (std::ifstream note(folder_.path / "opened"); note) {
        std::string url;
        std::getline(note, url);
        std::filesystem::remove(folder_.path / "opened");
        return url;
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return "nothing";
  }

 private:
  TemporaryFolder folder_;
};

Desktop* const desktop = new Desktop;
[[maybe_unused]] const auto* const registered = testing::AddGlobalTestEnvironment(desktop);

}  // namespace

TEST(Urls, AreAvailable) {
  EXPECT_TRUE(services::find<platform::Urls>())
      << services::find<platform::Urls>().error().message();
}
TEST(Urls, ASchemeWithAnApplicationCanBeOpened) {
  services::DesktopUrls urls;
  EXPECT_TRUE(urls.canOpen("twitter:"));
  EXPECT_TRUE(urls.canOpen("twitter:///user?screen_name=x"));
  EXPECT_TRUE(urls.canOpen("TWITTER://x"));
  EXPECT_TRUE(urls.canOpen("https://example.org/"));
}
TEST(Urls, ASchemeWithoutOneCannot) {
  services::DesktopUrls urls;
  EXPECT_FALSE(urls.canOpen("tweetbot:"));
  EXPECT_FALSE(urls.canOpen("http://example.org/"));
}
TEST(Urls, TextWithoutASchemeCannot) {
  services::DesktopUrls urls;
  for (const char* text : {"", "twitter", "/a/b", ":", "1x:", "\xFF:"})
    EXPECT_FALSE(urls.canOpen(text)) << text;
}
TEST(Urls, TheApplicationIsGivenTheUrl) {
  services::DesktopUrls urls;
  EXPECT_TRUE(urls.open("twitter:///user?screen_name=x%20y&a='b'"));
  EXPECT_EQ(desktop->opened(), "twitter:///user?screen_name=x%20y&a='b'");
}
TEST(Urls, OpeningWithoutAnApplicationFails) {
  services::DesktopUrls urls;
  EXPECT_FALSE(urls.open("tweetbot:"));
  EXPECT_FALSE(urls.open("no scheme"));
}
