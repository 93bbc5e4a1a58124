#pragma once

#include <cstdlib>
#include <string>

namespace kiv::test {

/// How much longer than usual suites are to try what they try; 0 in everyday runs. scripts/endurance.sh sets
/// it.
inline int Endurance() {
  const char* given = std::getenv("KIV_ENDURANCE");
  return given ? std::stoi(given) : 0;
}

}  // namespace kiv::test
