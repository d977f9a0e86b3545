#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

// A folder of a test's own, gone with it.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "linux-test-XXXXXX").string();
    path = mkdtemp(name.data());
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  std::filesystem::path write(const std::string& name, const std::string& text) const {
    std::filesystem::create_directories((path / name).parent_path());
    std::ofstream(path / name, std::ios::binary) << text;
    return path / name;
  }

  std::filesystem::path path;
};
