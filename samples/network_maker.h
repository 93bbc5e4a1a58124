#pragma once

#include <cstdint>
#include <string>

namespace kiv::samples {

/// How large a made network is. The same numbers always make the same files.
struct NetworkSize {
  std::int32_t systems = 3;
  std::int32_t ecps = 12;    ///< over all systems
  std::int32_t cells = 360;  ///< over all ECPs
  std::uint64_t seed = 1;
};

/// Writes the files of a network into a folder, which is made when it is missing. Raises std::runtime_error
/// for a size that no network has, or when a file cannot be written.
void WriteNetwork(const NetworkSize& size, const std::string& folder);

}  // namespace kiv::samples
