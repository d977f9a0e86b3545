// The walk of 10,000 sound files in 110 nested folders beside the barest one, and beside a whole
// find(1). Rounds are interleaved, each in another order; medians are printed.
#include <dirent.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

#include "benchmarks/rules/measure.h"
#include "platform/foundation/directory_walk.h"

namespace {

constexpr int kRounds = 60;
constexpr const char* kPath = "/System/Library/Audio/UISounds";

std::string makeRoot() {
  std::string root = (std::filesystem::temp_directory_path() / "bench-walk-XXXXXX").string();
  mkdtemp(root.data());
  for (int i = 0; i < 10'000; ++i) {
    const auto folder = std::filesystem::path(root + kPath) / std::to_string(i / 1000) /
                        std::to_string(i / 100 % 10);
    std::filesystem::create_directories(folder);
    std::ofstream(folder / ("sound " + std::to_string(i) + ".caf")) << 'x';
  }
  return root;
}

std::size_t walk(const foundation::DeviceRoot& root) {
  std::size_t files = 0;
  foundation::walkDirectory(root, {}, kPath,
                            [&](std::string_view, bool isDirectory) { files += !isDirectory; });
  return files;
}

// As barely as it can be done: readdir, and the kind of entry that it reports.
std::size_t count(int parent, const char* name) {
  DIR* const folder = fdopendir(openat(parent, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  std::size_t files = 0;
  while (const dirent* entry = readdir(folder)) {
    const std::string_view entryName = entry->d_name;
    if (entry->d_type != DT_DIR)
      ++files;
    else if (entryName != "." && entryName != "..")
      files += count(dirfd(folder), entry->d_name);
  }
  closedir(folder);
  return files;
}

void find(std::string folder) {
  char program[] = "find", no[] = "!", type[] = "-type", directory[] = "d";
  char* arguments[] = {program, folder.data(), no, type, directory, nullptr};
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  pid_t child = 0;
  int status = 0;
  if (posix_spawnp(&child, program, &actions, nullptr, arguments, environ) != 0 ||
      waitpid(child, &status, 0) != child || status != 0)
    std::exit((std::fprintf(stderr, "find failed\n"), 1));
  posix_spawn_file_actions_destroy(&actions);
}

}  // namespace

int main() {
  const std::string folder = makeRoot();
  const foundation::DeviceRoot root(folder);
  std::size_t walked = 0, counted = 0;
  const std::array<std::function<void()>, 3> works{
      [&] { walked = walk(root); },
      [&] { counted = count(AT_FDCWD, (folder + kPath).c_str()); },
      [&] { find(folder + kPath); },
  };
  std::array<std::vector<double>, 3> times;
  for (std::size_t round = 0; round < kRounds; ++round)
    for (std::size_t i = 0; i < 3; ++i) {
      const std::size_t which = (round + i) % 3;
      times[which].push_back(bench::nanosecondsFor(works[which]));
    }
  const auto& [own, bare, whole] = times;
  std::filesystem::remove_all(folder);
  if (walked != 10'000 || counted != walked) return 1;
  std::printf("walk            %6.2f ms\n", bench::median(own) / 1e6);
  std::printf("bare readdir    %6.2f ms   walk/bare %.2f\n", bench::median(bare) / 1e6,
              bench::median(own) / bench::median(bare));
  std::printf("find, a process %6.2f ms   walk/find %.2f\n", bench::median(whole) / 1e6,
              bench::median(own) / bench::median(whole));
}
