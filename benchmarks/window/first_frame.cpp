// first_frame [ROUNDS]: from the start of a process to its first frame, without a display, and what
// it holds then: quorvantis-settings on a device of 108 saved profiles against a Qt Quick Controls
// window of thirty switches, in turn. Prints medians, quartiles and the ratio of paired runs, and
// how often each idle window wakes up; first without a session bus, then on one of its own.
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include "benchmarks/saved_profiles.h"
#include "benchmarks/window/shown_process.h"
#include "tests/support/environment.h"

namespace {

using namespace std::chrono_literals;

constexpr auto kSettling = 3s, kIdle = 10s;

using Words = std::vector<std::string>;

// Folders of its own, so that nothing of the caller's is read.
struct Place {
  testing_support::TemporaryFolder device, home;
  Words environment() const {
    Words words{"LC_ALL=C.UTF-8", "HOME=" + home.path(), "XDG_RUNTIME_DIR=" + home.path()};
    for (const char* name : {"CONFIG", "DATA", "CACHE", "STATE"})
      words.push_back(std::string("XDG_") + name + "_HOME=" + home.path() + "/" + name);
    return words;
  }
};

// A session bus as long as this lives. It has no portal.
class Bus {
 public:
  Bus() {
    int out[2];
    if (pipe(out) != 0) return;
    process_ = fork();
    if (process_ == 0) {
      dup2(out[1], STDOUT_FILENO);
      execlp("dbus-daemon", "dbus-daemon", "--session", "--nofork", "--nopidfile",
             "--print-address", nullptr);
      _exit(127);
    }
    close(out[1]);
    char line[512];
    const ssize_t length = read(out[0], line, sizeof line);
    if (length > 0) address_.assign(line, static_cast<std::size_t>(length - 1));
    close(out[0]);
  }
  ~Bus() {
    kill(process_, SIGTERM);
    waitpid(process_, nullptr, 0);
  }
  Bus(const Bus&) = delete;
  Bus& operator=(const Bus&) = delete;

  const std::string& address() const { return address_; }  // empty: there is none

 private:
  pid_t process_ = -1;
  std::string address_;
};

void print(const char* what, const char* unit, std::vector<double> values) {
  std::ranges::sort(values);
  std::printf("  %-32s %7.2f %-3s (%.2f to %.2f; least %.2f)\n", what, values[values.size() / 2],
              unit, values[values.size() / 4], values[values.size() * 3 / 4], values.front());
}

long idleWakeUps(const Words& command, const Words& environment) {
  const bench::ShownProcess shown(command, environment);
  std::this_thread::sleep_for(kSettling);
  const long before = shown.wakeUps();
  std::this_thread::sleep_for(kIdle);
  return shown.wakeUps() - before;
}

void compare(const Words& settings, const Words& switches, const Words& environment, int rounds) {
  std::vector<double> frame[2], processor[2], memory[2], ratios, processorRatios, more;
  for (int round = 0; round <= rounds; ++round) {
    bench::FirstFrame now[2];
    for (int turn = 0; turn < 2; ++turn) {
      const int which = (round + turn) % 2;
      now[which] = bench::ShownProcess(which == 0 ? settings : switches, environment).firstFrame();
    }
    if (round == 0) continue;  // it fills caches
    for (int which = 0; which < 2; ++which) {
      frame[which].push_back(now[which].milliseconds);
      processor[which].push_back(now[which].processor);
      memory[which].push_back(now[which].mebibytes);
    }
    ratios.push_back(now[0].milliseconds / now[1].milliseconds);
    processorRatios.push_back(now[0].processor / now[1].processor);
    more.push_back(now[0].mebibytes - now[1].mebibytes);
  }
  print("first frame, Settings", "ms", frame[0]);
  print("first frame, thirty switches", "ms", frame[1]);
  print("ratio", "", ratios);
  print("processor, Settings", "ms", processor[0]);
  print("processor, thirty switches", "ms", processor[1]);
  print("ratio", "", processorRatios);
  print("PSS, Settings", "MiB", memory[0]);
  print("PSS, thirty switches", "MiB", memory[1]);
  print("difference", "MiB", more);
  const auto seconds = static_cast<long>(kIdle.count());
  std::printf("  wake-ups in %ld s: Settings %ld, thirty switches %ld\n", seconds,
              idleWakeUps(settings, environment), idleWakeUps(switches, environment));
  std::fflush(stdout);
}

}  // namespace

int main(int count, char** arguments) {
  const int rounds = count > 1 ? std::max(1, std::atoi(arguments[1])) : 41;
  const Place place;
  foundation::DeviceRoot root(place.device.path());
  if (!bench::saveProfiles(root)) return std::fprintf(stderr, "no profiles\n"), 1;
  const auto programs = std::filesystem::read_symlink("/proc/self/exe").parent_path();
  const Words settings{programs / "quorvantis-settings", "--root", place.device.path()};
  const Words switches{programs / "thirty_switches"};

  std::printf("%d rounds, without a session bus\n", rounds);
  compare(settings, switches, place.environment(), rounds);
  const Bus bus;
  if (bus.address().empty()) return std::fprintf(stderr, "no session bus\n"), 1;
  Words environment = place.environment();
  environment.push_back("DBUS_SESSION_BUS_ADDRESS=" + bus.address());
  std::printf("%d rounds, with a session bus\n", rounds);
  compare(settings, switches, environment, rounds);
}
