// Decoding and encoding the archive of a profile: this project, libplist, GNUstep. Each round takes
// all of them in turn and counts processor time, so that whatever else the machine does meets all
// alike; the medians of the rounds are printed, and their ratios.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <vector>

#include "benchmarks/codec/profile.h"
#include "benchmarks/peers/codec.h"
#include "platform/archive/keyed_archive.h"

namespace {

constexpr int kRounds = 201;
constexpr double kRoundNanoseconds = 1e6;

double processorNanoseconds() {
  timespec now;
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e9 + static_cast<double>(now.tv_nsec);
}

void keep(const void* result) {
  asm volatile("" : : "g"(result) : "memory");
}

std::size_t decode(const std::vector<std::uint8_t>& bytes, int times) {
  std::size_t count = 0;
  for (int i = 0; i < times; ++i) {
    const auto root = archive::unarchive(plist::Bytes(bytes));
    keep(&root);
    count = root->dictionary()->size();
  }
  return count;
}

std::size_t lookUp(const std::vector<std::uint8_t>& bytes, int times) {
  static constexpr std::string_view kKeys[] = {"profilepercentage", "profiledescription"};
  std::size_t count = 0;
  for (int i = 0; i < times; ++i) {
    const auto found = archive::lookUp(plist::Bytes(bytes), kKeys);
    keep(&found);
    count = found->values.size();
  }
  return count;
}

std::size_t encode(const plist::Value& profile, int times) {
  std::size_t size = 0;
  for (int i = 0; i < times; ++i) {
    const auto bytes = archive::archive(profile, archive::Mutability::Mutable);
    keep(&bytes);
    size = bytes->size();
  }
  return size;
}

struct Contender {
  const char* name;
  std::size_t (*run)(int times);
  int times = 1;  // in a round
  std::vector<double> nanoseconds = {};

  double measure(int runs) const {
    const double start = processorNanoseconds();
    run(runs);
    return (processorNanoseconds() - start) / runs;
  }

  double median() const {
    auto sorted = nanoseconds;
    std::sort(sorted.begin(), sorted.end());
    return sorted[sorted.size() / 2];
  }
};

void race(const char* title, std::vector<Contender> contenders, double versusLibplist,
          double versusGnustep) {
  for (Contender& each : contenders)
    each.times = std::max(1, static_cast<int>(kRoundNanoseconds / each.measure(50)));
  for (int round = 0; round < kRounds; ++round)
    for (Contender& each : contenders) each.nanoseconds.push_back(each.measure(each.times));
  for (const Contender& each : contenders)
    std::printf("%-7s %-22s %10.0f ns\n", title, each.name, each.median());
  const double ours = contenders[0].median();
  std::printf("%-7s ours / libplist        %10.4f   (aim %.3f)\n", title,
              ours / contenders[1].median(), versusLibplist);
  std::printf("%-7s ours / GNUstep         %10.4f   (aim %.3f)\n", title,
              ours / contenders[2].median(), versusGnustep);
}

void expect(std::size_t found, std::size_t expected, const char* what) {
  if (found == expected) return;
  std::fprintf(stderr, "%s: %zu, not %zu\n", what, found, expected);
  std::exit(1);
}

const plist::Value profile = typicalProfile();
const std::vector<std::uint8_t> bytes = *archive::archive(profile, archive::Mutability::Mutable);

}  // namespace

int main() {
  const std::size_t keys = profile.dictionary()->size();
  expect(decode(bytes, 1), keys, "keys read here");
  expect(libplistDecode(bytes.data(), bytes.size(), 1), keys, "keys read by libplist");
  expect(gnustepDecode(bytes.data(), bytes.size(), 1), keys, "keys read by GNUstep");
  libplistPrepare(bytes.data(), bytes.size());
  gnustepPrepare(bytes.data(), bytes.size());
  std::printf("archive of %zu keys: %zu bytes, by libplist %zu, by GNUstep %zu\n", keys,
              bytes.size(), libplistEncode(1), gnustepEncode(1));

  race("decode",
       {{"ours", [](int times) { return decode(bytes, times); }},
        {"libplist and a walk",
         [](int times) { return libplistDecode(bytes.data(), bytes.size(), times); }},
        {"GNUstep", [](int times) { return gnustepDecode(bytes.data(), bytes.size(), times); }},
        {"ours, two values only", [](int times) { return lookUp(bytes, times); }}},
       0.12, 0.05);
  race("encode",
       {{"ours", [](int times) { return encode(profile, times); }},
        {"libplist and a walk", [](int times) { return libplistEncode(times); }},
        {"GNUstep", [](int times) { return gnustepEncode(times); }}},
       0.09, 0.003);
}
