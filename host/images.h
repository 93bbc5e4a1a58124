#pragma once

#include <cstdint>
#include <memory>

#include "base/image.h"

namespace kiv::host {

/// The host's library of pictures.
class Images {
 public:
  virtual ~Images() = default;

  /// The picture of a number such as image::kSortAscending; null when the host has none.
  virtual std::shared_ptr<const Image> Find(std::int32_t number) const = 0;
};

}  // namespace kiv::host
