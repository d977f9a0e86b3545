#include "tests/platform_plist/samples.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "tests/platform_plist/temporary.h"

namespace plist_test {
namespace {

const std::filesystem::path kFolder = QUORVANTIS_SAMPLES;
constexpr const char* kList = "VERDICTS";
constexpr const char* kExtension = ".plist";

}  // namespace

std::vector<Sample> samplesIn(const std::string& folder) {
  std::vector<Sample> samples;
  std::ifstream list(kFolder / folder / kList);
  for (std::string line; std::getline(list, line);) {
    const std::size_t blank = line.find(' ');
    const std::string name = line.substr(0, blank);
    samples.push_back({name, line.substr(blank + 1), sample(folder + "/" + name)});
  }
  for (const auto& file : std::filesystem::directory_iterator(kFolder / folder)) {
    const std::string name = file.path().stem().string();
    if (name != kList && std::ranges::find(samples, name, &Sample::name) == samples.end())
      throw std::runtime_error("no verdict on " + file.path().string());
  }
  return samples;
}

ByteVector sample(const std::string& name) {
  return readFile(kFolder / (name + kExtension));
}

}  // namespace plist_test
