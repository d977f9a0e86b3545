#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace foundation::test {

namespace fs = std::filesystem;

// A folder of the test's own, with a device root in it that isn't made yet.
class TemporaryRoot {
 public:
  TemporaryRoot() {
    std::string pattern = (fs::temp_directory_path() / "foundation-XXXXXX").string();
    if (!mkdtemp(pattern.data())) std::abort();
    folder_ = pattern;
  }
  TemporaryRoot(const TemporaryRoot&) = delete;
  ~TemporaryRoot() {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
  }

  fs::path outside() const { return folder_; }
  std::string path() const { return folder_ / "root"; }
  // Where a platform path lies on this machine.
  fs::path at(std::string_view platformPath) const { return path() + std::string(platformPath); }

  void write(std::string_view platformPath, std::string_view text) const {
    fs::create_directories(at(platformPath).parent_path());
    std::ofstream(at(platformPath), std::ios::binary) << text;
  }
  std::string contents(std::string_view platformPath) const {
    std::ifstream file(at(platformPath), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  std::vector<std::string> names(std::string_view platformPath) const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(at(platformPath))) {
      names.push_back(entry.path().filename());
    }
    return names;
  }

 private:
  fs::path folder_;
};

inline mode_t modeOf(const fs::path& path) {
  struct stat status {};
  return lstat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
}

inline std::vector<std::uint8_t> bytesOf(std::string_view text) {
  return {text.begin(), text.end()};
}

inline std::string textOf(const auto& bytes) {
  return {bytes.begin(), bytes.end()};
}

// A process of its own that ends with 0 if `work` returns true.
inline pid_t startProcess(const std::function<bool()>& work) {
  const pid_t process = fork();
  if (process == 0) _exit(work() ? 0 : 1);
  return process;
}

inline bool succeeded(pid_t process) {
  int status = 0;
  return waitpid(process, &status, 0) == process && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// As a user whom permissions bind.
inline bool succeedsUnprivileged(const std::function<bool()>& work) {
  return succeeded(startProcess([&] {
    constexpr uid_t kNobody = 65534;
    if (geteuid() == 0 && (setegid(kNobody) != 0 || seteuid(kNobody) != 0)) return false;
    return work();
  }));
}

}  // namespace foundation::test
