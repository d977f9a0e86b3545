// The walk of 10,000 sound files in 110 nested folders beside the barest one and two others.
#include <dirent.h>
#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "benchmarks/race.h"
#include "platform/foundation/directory_walk.h"
#include "tests/support/environment.h"

namespace {

constexpr const char* kPath = "/System/Library/Audio/UISounds";
constexpr std::size_t kFiles = 10'000;

void makeSounds(const std::string& root) {
  for (std::size_t i = 0; i < kFiles; ++i) {
    const auto folder = std::filesystem::path(root + kPath) / std::to_string(i / 1000) /
                        std::to_string(i / 100 % 10);
    if (i % 100 == 0) std::filesystem::create_directories(folder);
    std::ofstream(folder / ("sound " + std::to_string(i) + ".caf")) << 'x';
  }
}

std::size_t walk(const foundation::DeviceRoot& root) {
  std::size_t files = 0;
  foundation::walkDirectory(root, {}, kPath,
                            [&](std::string_view, bool isDirectory) { files += !isDirectory; });
  return files;
}

struct Entry {  // as the kernel writes it
  std::uint64_t inode;
  std::int64_t offset;
  std::uint16_t length;
  std::uint8_t type;
  char name[];
};

// As barely as it can be done: the kernel's own entries, 32 KiB at a time, and the kind that they
// report.
std::size_t count(int parent, const char* name) {
  alignas(Entry) char buffer[32'768];
  const int folder = openat(parent, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  std::size_t files = 0;
  for (long got; (got = syscall(SYS_getdents64, folder, buffer, sizeof buffer)) > 0;)
    for (long at = 0; at < got;) {
      const auto* entry = reinterpret_cast<const Entry*>(buffer + at);
      at += entry->length;
      const std::string_view entryName = entry->name;
      if (entry->type != DT_DIR)
        ++files;
      else if (entryName != "." && entryName != "..")
        files += count(folder, entry->name);
    }
  close(folder);
  return files;
}

std::size_t countByLibrary(const std::string& folder) {
  std::size_t files = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
    files += entry.is_regular_file();
  return files;
}

void walkSounds(bench::Race& race) {
  testing_support::TemporaryFolder folder;
  makeSounds(folder.path());
  const foundation::DeviceRoot root(folder.path());
  const std::string sounds = folder.path() + kPath;
  bench::expect(walk(root) == kFiles && count(AT_FDCWD, sounds.c_str()) == kFiles &&
                    countByLibrary(sounds) == kFiles,
                "10,000 files");
  race.add("ours", [&] { (void)walk(root); });
  race.add("std::filesystem", [&] { (void)countByLibrary(sounds); });
  race.add("getdents64", [&] { (void)count(AT_FDCWD, sounds.c_str()); });
  race.run(bench::Clock::Processor, 0);
}

}  // namespace

int main(int count, char** arguments) {
  return bench::runRow(count, arguments, {{"walk", walkSounds}});
}
