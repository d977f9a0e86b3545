#include "tests/platform_plist/temporary.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace plist_test {

TemporaryFolder::TemporaryFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "plist-test-XXXXXX").string();
  if (!mkdtemp(pattern.data())) throw std::runtime_error("no temporary folder");
  path_ = pattern;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

ByteVector readFile(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("can't read " + path.string());
  return {std::istreambuf_iterator<char>(file), {}};
}

void writeBatch(const std::filesystem::path& path, const std::vector<ByteVector>& batch) {
  std::ofstream file(path, std::ios::binary);
  for (const ByteVector& bytes : batch)
    for (const std::uint8_t byte : bigEndian(bytes.size(), 4) + bytes)
      file.put(static_cast<char>(byte));
}

std::vector<ByteVector> readBatch(const std::filesystem::path& path) {
  const ByteVector all = readFile(path);
  std::vector<ByteVector> batch;
  for (std::size_t at = 0; at + 4 <= all.size();) {
    std::size_t size = 0;
    for (int i = 0; i < 4; ++i) size = size << 8 | all[at++];
    if (size > all.size() - at) throw std::runtime_error("a batch that ends early");
    const auto begin = all.begin() + static_cast<std::ptrdiff_t>(at);
    batch.emplace_back(begin, begin + static_cast<std::ptrdiff_t>(size));
    at += size;
  }
  return batch;
}

}  // namespace plist_test
