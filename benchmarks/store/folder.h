#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

#include "benchmarks/race.h"

namespace bench {

// On a disk, in the folder that the benchmark is run in: /tmp may be in memory.
struct Folder {
  Folder() {
    std::string name = "store-XXXXXX";
    expect(mkdtemp(name.data()), "a folder");
    path = std::filesystem::absolute(name);
  }
  ~Folder() { std::filesystem::remove_all(path); }
  std::string path;
};

}  // namespace bench
