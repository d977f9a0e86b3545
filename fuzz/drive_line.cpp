// Lines of the protocol from any bytes: each is answered with one line, whatever it asks for. A
// page takes milliseconds with sanitizers, so only the first lines of an input are answered.
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "drive/driver.h"

namespace {

constexpr int kMostLines = 4;

// In memory where that is possible: a flush to a disk takes longer than all the rest.
struct Folder {
  std::string path = memoryOrDisk() + "/drive-line-XXXXXX";
  static std::string memoryOrDisk() {
    return access("/dev/shm", W_OK) == 0 ? "/dev/shm" : std::filesystem::temp_directory_path();
  }
  Folder() {
    if (!mkdtemp(path.data())) std::abort();
  }
  ~Folder() { std::filesystem::remove_all(path); }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const Folder folder;
  host::DeviceOptions options;
  options.root = folder.path;
  drive::Driver driver(options, 12, [](const host::Problem&) {});
  std::string_view left(reinterpret_cast<const char*>(bytes), size);
  for (int lines = 0; lines < kMostLines && !left.empty(); ++lines) {
    const std::string_view line = left.substr(0, left.find('\n'));
    left.remove_prefix(std::min(line.size() + 1, left.size()));
    const std::string answer = driver.answer(line);
    if (!drive::Json::accept(answer) || answer.find('\n') != std::string::npos) std::abort();
  }
  return 0;
}
