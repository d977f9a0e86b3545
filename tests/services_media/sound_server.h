#pragma once

#include <chrono>
#include <cmath>
#include <cstdint>
#include <memory>
#include <thread>

#include "tests/services/child.h"
#include "tests/services/temporary_folder.h"

// A sound server of the test's own, whose one device writes what it would play to a file.
class SoundServer {
 public:
  static constexpr int kRate = 44'100;

  explicit SoundServer(const TemporaryFolder& folder)
      : capture_((folder.path / "capture").string()) {
    if (!has("pipewire") || !has("wireplumber") || !has("pipewire-pulse") || !has("parec") ||
        !has("dbus-daemon"))
      return;
    const auto home = folder.path / "server";
    std::filesystem::create_directories(home);
    std::filesystem::permissions(home, std::filesystem::perms::owner_all);
    for (const char* variable : {"XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "HOME"})
      setenv(variable, home.c_str(), 1);
    for (const char* variable : {"PULSE_SERVER", "PULSE_SINK", "PIPEWIRE_REMOTE", "DISPLAY"})
      unsetenv(variable);
    setenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nonexistent", 1);
    startBus(folder);
    start({"pipewire"});
    if (!eventually("test -S \"$XDG_RUNTIME_DIR/pipewire-0\"")) return;
    start({"wireplumber"});
    start({"pipewire-pulse"});
    if (!eventually(
            "pactl load-module module-null-sink sink_name=quiet channels=1 channel_map=mono"))
      return;
    if (!eventually("pactl info | grep -q 'Default Sink: quiet'")) return;
    start({"parec", "--raw", "--latency-msec=20", "-d", "quiet.monitor", "--format=s16le",
           "--channels=1", "--rate=" + std::to_string(kRate), capture_});
    running = eventually("test -s '" + capture_ + "'");
  }

  bool running = false;

  // How many seconds of it were not silent, so far.
  double seconds() const { return static_cast<double>(windows().loud) / kWindowsASecond; }
  // The loudness of those: the root of the mean square, at most 1.
  double loudness() const { return windows().loudness; }

  // Waits until so much has been played, and for half a second of silence.
  bool hasPlayed(double wanted) const {
    return waitUntil([&] { return seconds() >= wanted; });
  }
  bool fallsSilent() const {
    return waitUntil([this] { return windows().silentAtEnd >= kWindowsASecond / 2; });
  }

 private:
  static constexpr int kWindowsASecond = 100;
  struct Windows {
    int loud = 0, silentAtEnd = 0;
    double loudness = 0;
  };

  static bool has(const std::string& program) {
    return std::system(("command -v " + program + " >/dev/null").c_str()) == 0;
  }

  template <class Condition>
  static bool waitUntil(Condition condition) {
    for (int tries = 0; tries < 600; ++tries) {
      if (condition()) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    return false;
  }

  static bool eventually(const std::string& command) {
    return waitUntil([&] { return std::system((command + " >/dev/null 2>&1").c_str()) == 0; });
  }

  void start(std::vector<std::string> command) {
    programs_.push_back(std::make_unique<Child>(std::move(command)));
  }

  void startBus(const TemporaryFolder& folder) {
    const std::string address = "unix:path=" + (folder.path / "bus").string();
    const auto configuration = folder.write(
        "bus.conf", "<busconfig><type>session</type><listen>" + address +
                        "</listen><policy context='default'>"
                        "<allow send_destination='*' eavesdrop='true'/><allow eavesdrop='true'/>"
                        "<allow own='*'/></policy></busconfig>");
    start({"dbus-daemon", "--nofork", "--nopidfile", "--print-address",
           "--config-file=" + configuration.string()});
    programs_.back()->line();
    setenv("DBUS_SESSION_BUS_ADDRESS", address.c_str(), 1);
  }

  Windows windows() const {
    std::ifstream file(capture_, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    const auto* samples = reinterpret_cast<const std::int16_t*>(bytes.data());
    const std::size_t count = bytes.size() / 2, each = kRate / kWindowsASecond;
    Windows windows;
    double loudSquares = 0;
    for (std::size_t at = 0; at + each <= count; at += each) {
      double squares = 0;
      for (std::size_t i = at; i < at + each; ++i)
        squares += std::pow(samples[i] / 32768.0, 2) / static_cast<double>(each);
      const bool loud = squares > 1e-4;
      windows.silentAtEnd = loud ? 0 : windows.silentAtEnd + 1;
      windows.loud += loud;
      if (loud) loudSquares += squares;
    }
    if (windows.loud > 0) windows.loudness = std::sqrt(loudSquares / windows.loud);
    return windows;
  }

  std::string capture_;
  std::vector<std::unique_ptr<Child>> programs_;
};
