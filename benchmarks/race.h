#pragma once

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace bench {

// What must be true for a figure to mean anything.
inline void expect(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "not measured: %s\n", what);
  std::exit(1);
}

// The compiler has to assume that somebody looks at it.
inline void keep(const void* result) {
  asm volatile("" : : "g"(result) : "memory");
}

// Processor time leaves out what the rest of the machine does; the wall's clock counts waiting too.
enum class Clock { Processor, Wall };

inline double nanoseconds(Clock clock) {
  timespec now;
  clock_gettime(clock == Clock::Processor ? CLOCK_THREAD_CPUTIME_ID : CLOCK_MONOTONIC, &now);
  return static_cast<double>(now.tv_sec) * 1e9 + static_cast<double>(now.tv_nsec);
}

// One piece of work, done in several ways. Each round takes them in turn, and begins with another
// one, so that whatever else the machine does meets all alike.
class Race {
 public:
  explicit Race(int rounds) : rounds_(rounds) {}

  template <class Work>
  void add(const std::string& name, Work work) {
    ways_.push_back({name, [work](int times) mutable {
                       for (int i = 0; i < times; ++i) work();
                       keep(&work);
                     }});
  }

  // A figure that is counted, not timed.
  void note(const char* name, double value) { notes_.emplace_back(name, value); }

  // Each way is repeated for about `milliseconds` in a round, or once where that is 0. `between` is
  // called before each way's turn, outside of what is timed.
  void run(
      Clock clock = Clock::Processor, double milliseconds = 1,
      const std::function<void()>& between = [] {}) {
    for (Way& way : ways_) {
      between();
      const double first = measure(way, clock, 1);
      if (first >= milliseconds * 1e6) continue;
      const double once = measure(way, clock, 3);
      way.times = std::clamp(static_cast<int>(milliseconds * 1e6 / once), 1, 1'000'000);
    }
    for (std::size_t round = 0; round < static_cast<std::size_t>(rounds_); ++round)
      for (std::size_t turn = 0; turn < ways_.size(); ++turn) {
        Way& way = ways_[(round + turn) % ways_.size()];
        between();
        way.samples.push_back(measure(way, clock, way.times));
      }
  }

  // One line of JSON: nanoseconds of one piece of work, a sample each round.
  void print() const {
    std::printf("{\"samples\": {");
    for (const Way& way : ways_) {
      std::printf("%s\"%s\": [", &way == ways_.data() ? "" : ", ", way.name.c_str());
      for (std::size_t i = 0; i < way.samples.size(); ++i)
        std::printf("%s%.1f", i == 0 ? "" : ", ", way.samples[i]);
      std::printf("]");
    }
    std::printf("}, \"notes\": {");
    for (std::size_t i = 0; i < notes_.size(); ++i)
      std::printf("%s\"%s\": %g", i == 0 ? "" : ", ", notes_[i].first, notes_[i].second);
    std::printf("}}\n");
  }

 private:
  struct Way {
    std::string name;
    std::function<void(int)> run;
    int times = 1;  // in a round
    std::vector<double> samples = {};
  };

  static double measure(const Way& way, Clock clock, int times) {
    const double start = nanoseconds(clock);
    way.run(times);
    return (nanoseconds(clock) - start) / times;
  }

  int rounds_;
  std::vector<Way> ways_;
  std::vector<std::pair<const char*, double>> notes_;
};

struct Row {
  const char* name;
  void (*run)(Race& race);
};

// The main function of a benchmark program: PROGRAM ROW ROUNDS.
inline int runRow(int count, char** arguments, const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    if (count != 3 || std::strcmp(arguments[1], row.name) != 0) continue;
    Race race(std::max(1, std::atoi(arguments[2])));
    row.run(race);
    race.print();
    return 0;
  }
  std::fprintf(stderr, "usage: %s ROW ROUNDS, where ROW is one of", arguments[0]);
  for (const Row& row : rows) std::fprintf(stderr, " %s", row.name);
  std::fprintf(stderr, "\n");
  return 2;
}

}  // namespace bench
