// bench_process QUORVANTIS: `quorvantis get` as a whole process against a bare static program that
// reads the same file: medians of paired runs, and the peak memory of each.
#include <spawn.h>
#include <sys/wait.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

#include "tests/support/environment.h"

extern char** environ;

namespace {

constexpr int kRounds = 401;

struct Run {
  double microseconds;
  bool succeeded;
};

Run run(const std::vector<std::string>& command, posix_spawn_file_actions_t& quiet) {
  std::vector<char*> arguments;
  for (auto& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  auto start = std::chrono::steady_clock::now();
  pid_t child = 0;
  posix_spawn(&child, arguments[0], &quiet, nullptr, arguments.data(), environ);
  int status = 0;
  waitpid(child, &status, 0);
  std::chrono::duration<double, std::micro> spent = std::chrono::steady_clock::now() - start;
  return {spent.count(), WIFEXITED(status) && WEXITSTATUS(status) == 0};
}

double median(std::vector<double> values) {
  std::ranges::sort(values);
  return values[values.size() / 2];
}

long peakKiB(const std::string& tools, const std::vector<std::string>& command) {
  std::string line = tools + "peak";
  for (auto& word : command) line += " '" + word + "'";
  long peak = -1;
  FILE* output = popen(line.c_str(), "r");
  if (!output || std::fscanf(output, "%ld", &peak) != 1) peak = -1;
  if (output) pclose(output);
  return peak;
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 2) return std::fprintf(stderr, "usage: bench_process QUORVANTIS\n"), 2;
  std::string tools = std::filesystem::read_symlink("/proc/self/exe").parent_path().string() + "/";
  const preferences::Bundle none{};
  testing_support::TestDevice device(none);
  const char* domain = "com.zorvek.quorvantis";
  for (int key = 0; key < 200; ++key)
    (void)device.preferences.setAppValue("setting" + std::to_string(key), key, domain);
  (void)device.preferences.setAppValue("wifi", 2, domain);

  posix_spawn_file_actions_t quiet;
  posix_spawn_file_actions_init(&quiet);
  posix_spawn_file_actions_addopen(&quiet, 1, "/dev/null", 1, 0);
  std::string file = device.folder.path() + "/var/mobile/Library/Preferences/" + domain + ".plist";
  std::vector<std::string> bare{tools + "bare_get", file};
  std::vector<std::string> get{arguments[1], "--root", device.folder.path(), "get", "wifi"};

  std::vector<double> bareTimes, getTimes, ratios;
  for (int round = 0; round < kRounds; ++round) {
    Run one = run(bare, quiet), other = run(get, quiet);
    if (!one.succeeded || !other.succeeded) return std::fprintf(stderr, "a run failed\n"), 1;
    bareTimes.push_back(one.microseconds);
    getTimes.push_back(other.microseconds);
    ratios.push_back(other.microseconds / one.microseconds);
  }
  std::printf("read one setting of 200, whole process, median of %d pairs\n", kRounds);
  std::printf("  bare static program  %8.0f us  %6ld KiB\n", median(bareTimes),
              peakKiB(tools, bare));
  std::printf("  quorvantis get       %8.0f us  %6ld KiB\n", median(getTimes), peakKiB(tools, get));
  std::printf("  ratio                %8.2f\n", median(ratios));
}
