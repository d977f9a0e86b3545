#pragma once

#include <algorithm>
#include <chrono>
#include <vector>

namespace bench {

template <class Work>
double nanosecondsFor(Work work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - start).count();
}

inline double median(std::vector<double> samples) {
  const auto middle = samples.begin() + static_cast<std::ptrdiff_t>(samples.size() / 2);
  std::nth_element(samples.begin(), middle, samples.end());
  return *middle;
}

}  // namespace bench
