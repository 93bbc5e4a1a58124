#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace kiv {

/// A picture that every toolkit can take: rows from the top, each pixel 0xAARRGGBB.
struct Image {
  int width = 0;
  int height = 0;
  std::vector<std::uint32_t> pixels;

  /// Nothing is to be seen where there are too few.
  std::uint32_t At(int x, int y) const {
    const auto place =
        static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x);
    return place < pixels.size() ? pixels[place] : 0;
  }
};

}  // namespace kiv
