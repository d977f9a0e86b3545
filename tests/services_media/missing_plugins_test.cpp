#include <gmock/gmock.h>

#include <future>

#include "services/system_sounds.h"
#include "tests/services/temporary_folder.h"

// A GStreamer without plug-ins; it looks for them once in a process, so this is a program of its
// own.
TEST(MissingPlugins, TheMessageNamesTheirPackages) {
  TemporaryFolder folder;
  const std::string none = (folder.path / "none").string();
  for (const char* name : {"GST_PLUGIN_PATH", "GST_PLUGIN_PATH_1_0", "GST_PLUGIN_SYSTEM_PATH",
                           "GST_PLUGIN_SYSTEM_PATH_1_0", "GST_REGISTRY", "GST_REGISTRY_1_0"})
    setenv(name, none.c_str(), 1);
  folder.write("a.wav", "RIFF");
  foundation::DeviceRoot root{folder.path.string()};
  std::promise<std::string> reported;
  services::DeviceSounds sounds(
      root, {}, [&](const platform::Error& error) { reported.set_value(error.message()); });
  sounds.play("file:///a.wav");
  auto message = reported.get_future();
  ASSERT_EQ(message.wait_for(std::chrono::seconds(30)), std::future_status::ready);
  EXPECT_THAT(message.get(), testing::AllOf(testing::HasSubstr("gstreamer1.0-plugins-base"),
                                            testing::HasSubstr("gstreamer1.0-plugins-good")));
}
