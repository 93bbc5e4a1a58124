#pragma once

#include <cstdint>
#include <string>

namespace kiv {

/// The activated features of the switch of one ECP, by their numbers (host/constants.h).
struct FafRow {
  std::int32_t InstanceId = 0;  ///< 0 for no switch
  std::string OmpHostName;
  bool F121 = false;
  bool F161 = false;
  bool F276 = false;
  bool F297 = false;
  bool F368 = false;
  bool F430 = false;
  bool F465 = false;
  bool F545 = false;
  bool F559 = false;
};

}  // namespace kiv
