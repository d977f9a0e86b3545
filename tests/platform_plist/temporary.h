#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "tests/platform_plist/raw_plist.h"

namespace plist_test {

// A folder of its own that is gone when the test is over.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  std::filesystem::path operator/(const std::string& name) const { return path_ / name; }

 private:
  std::filesystem::path path_;
};

// A whole file; the test fails when there is none.
ByteVector readFile(const std::filesystem::path& path);

// Byte strings in one file, each after its length (4 bytes).
void writeBatch(const std::filesystem::path& path, const std::vector<ByteVector>& batch);
std::vector<ByteVector> readBatch(const std::filesystem::path& path);

}  // namespace plist_test
