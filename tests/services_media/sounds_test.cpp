#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <condition_variable>
#include <mutex>

#include "services/services.h"
#include "services/system_sounds.h"
#include "tests/services_media/sound_server.h"
#include "tests/services_media/tone.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

class Sounds : public testing::Test {
 protected:
  Sounds() {
    // GStreamer's list of plug-ins: making it takes longer than all the rest.
    const auto own = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    setenv("GST_REGISTRY", (own / "gstreamer-registry.bin").c_str(), 1);
    // No sound device of this machine.
    setenv("GST_PLUGIN_FEATURE_RANK",
           "alsasink:NONE,osssink:NONE,oss4sink:NONE,jackaudiosink:NONE,pipewiresink:NONE", 1);
  }
  ~Sounds() override { sounds_.reset(); }

  void write(const std::string& path, const std::string& bytes) {
    folder_.write("root" + path, bytes);
  }

  void play(const std::optional<std::string>& url) {
    if (!sounds_)
      sounds_.emplace(root_, fallback_, [this](const platform::Error& error) {
        const std::unique_lock lock(mutex_);
        problems_.push_back(error.message());
        reported_.notify_all();
      });
    sounds_->play(url);
  }

  std::string firstProblem() {
    std::unique_lock lock(mutex_);
    const bool any =
        reported_.wait_for(lock, std::chrono::seconds(60), [this] { return !problems_.empty(); });
    return any ? problems_[0] : "none";
  }

  TemporaryFolder folder_;
  foundation::DeviceRoot root_{(folder_.path / "root").string()};
  foundation::FallbackFolder fallback_;
  std::mutex mutex_;
  std::condition_variable reported_;
  std::vector<std::string> problems_;
  std::optional<services::DeviceSounds> sounds_;
};

class AudibleSounds : public Sounds {
 protected:
  void SetUp() override {
    server_.emplace(folder_);
    ASSERT_TRUE(server_->running) << "no sound server can be started";
  }
  void playTone(const std::string& url) {
    play(url);
    EXPECT_TRUE(server_->hasPlayed(0.8));
    EXPECT_TRUE(server_->fallsSilent());
    EXPECT_NEAR(server_->seconds(), 1.0, 0.15);
    EXPECT_NEAR(server_->loudness(), 0.5 / std::sqrt(2), 0.1);
    EXPECT_THAT(problems_, IsEmpty());
  }
  std::optional<SoundServer> server_;
};

}  // namespace

TEST_F(AudibleSounds, AFileUrlIsPlayed) {
  write("/System/Library/Audio/UISounds/New/a b.wav", tone(1));
  playTone("file:///System/Library/Audio/UISounds/New/a%20b.wav");
}
TEST_F(AudibleSounds, AUrlWithoutASchemeIsPlayed) {
  write("/tone.wav", tone(1));
  playTone("/tone.wav");
}
TEST_F(AudibleSounds, ASoundOfTheDesktopIsPlayed) {
  fallback_ = {std::string(platform::kSystemSoundPath), (folder_.path / "desktop").string()};
  folder_.write("desktop/theme/tone.wav", tone(1));
  playTone("file:///System/Library/Audio/UISounds/theme/tone.wav");
}
TEST_F(AudibleSounds, ASoundIsPlayedAgain) {
  write("/tone.wav", tone(0.5));
  play("/tone.wav");
  ASSERT_TRUE(server_->hasPlayed(0.4));
  play("/tone.wav");
  ASSERT_TRUE(server_->hasPlayed(0.8));
  ASSERT_TRUE(server_->fallsSilent());
  EXPECT_NEAR(server_->seconds(), 1.0, 0.15);
}
TEST_F(AudibleSounds, PlayingDoesNotWaitAndEndsWithItsObject) {
  write("/tone.wav", tone(100));
  play("/tone.wav");
  ASSERT_TRUE(server_->hasPlayed(0.1));
  sounds_.reset();
  EXPECT_TRUE(server_->fallsSilent());
  EXPECT_LT(server_->seconds(), 50);
  EXPECT_THAT(problems_, IsEmpty());
}
TEST_F(AudibleSounds, AnUnreadableSoundLeavesTheNextAlone) {
  write("/broken.wav", "not a sound, only text that says so");
  write("/tone.wav", tone(1));
  play("/broken.wav");
  EXPECT_NE(firstProblem(), "none");
  problems_.clear();
  playTone("/tone.wav");
}

TEST_F(Sounds, NoUrlIsNothing) {
  play(std::nullopt);
  EXPECT_THAT(problems_, IsEmpty());
}
TEST_F(Sounds, AUrlOfNoFileIsReported) {
  for (const char* url : {"http://example.org/a.wav", "", "Disabled", "//host/a.wav", "%zz"}) {
    problems_.clear();
    play(url);
    EXPECT_THAT(problems_, ElementsAre("not the URL of a file: " + std::string(url)));
  }
}
TEST_F(Sounds, AMissingFileIsReported) {
  play("file:///System/Library/Audio/UISounds/none.caf");
  EXPECT_THAT(problems_,
              ElementsAre("/System/Library/Audio/UISounds/none.caf: No such file or directory"));
}
TEST_F(Sounds, AFolderAndAPipeAreNoSounds) {
  write("/folder/file", "");
  ASSERT_EQ(mkfifo((folder_.path / "root/pipe").c_str(), 0600), 0);
  play("file:///folder");
  play("file:///pipe");
  EXPECT_THAT(problems_, ElementsAre(HasSubstr("/folder: "), HasSubstr("/pipe: ")));
}
TEST_F(Sounds, NothingOutsideTheRootIsOpened) {
  folder_.write("outside.wav", tone(0.1));
  write("/inside", "");
  std::filesystem::create_symlink(folder_.path / "outside.wav", folder_.path / "root/link.wav");
  play("file:///../outside.wav");
  play("file:///link.wav");
  EXPECT_THAT(problems_, ElementsAre("/../outside.wav: No such file or directory",
                                     "/link.wav: No such file or directory"));
}
TEST_F(Sounds, WhatIsNotASoundIsReported) {
  write("/text.wav", "not a sound, only text that says so");
  play("/text.wav");
  EXPECT_THAT(firstProblem(), testing::StartsWith("/text.wav: "));
}
TEST_F(Sounds, AnEmptyFileIsReported) {
  write("/empty.wav", "");
  play("/empty.wav");
  EXPECT_THAT(firstProblem(), testing::StartsWith("/empty.wav: "));
}
TEST_F(Sounds, AMissingSoundServerIsReported) {
  for (const char* variable : {"XDG_RUNTIME_DIR", "HOME", "XDG_CONFIG_HOME"})
    setenv(variable, folder_.path.c_str(), 1);
  setenv("PULSE_SERVER", ("unix:" + (folder_.path / "none").string()).c_str(), 1);
  setenv("PIPEWIRE_REMOTE", "none", 1);
  write("/tone.wav", tone(0.1));
  play("/tone.wav");
  EXPECT_THAT(firstProblem(), testing::StartsWith("/tone.wav: "));
}
TEST_F(Sounds, ManyAtOnceAreNoDanger) {
  write("/text.wav", "not a sound, only text that says so");
  for (int i = 0; i < 200; ++i) play("/text.wav");
  EXPECT_NE(firstProblem(), "none");
  sounds_.reset();
}
TEST_F(Sounds, EndingAtOnceIsSafe) {
  write("/text.wav", "not a sound, only text that says so");
  for (int i = 0; i < 20; ++i) {
    play("/text.wav");
    sounds_.reset();
  }
}
