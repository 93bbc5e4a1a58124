#pragma once

#include <algorithm>
#include <chrono>
#include <vector>

namespace kiv::bench {

template <class Action>
double Milliseconds(const Action& action) {
  const auto start = std::chrono::steady_clock::now();
  action();
  const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
  return time.count();
}

inline double Median(std::vector<double> times) {
  std::sort(times.begin(), times.end());
  return times[times.size() / 2];
}

}  // namespace kiv::bench
