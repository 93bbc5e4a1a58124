#pragma once

#include <cstdint>
#include <ctime>
#include <string>
#include <string_view>

namespace kiv {

/// What stands for the tokens of a data file name pattern.
struct NameTokens {
  std::tm time{};
  std::string user;
  std::int32_t studyId = 0;
};

/// The file name that a pattern such as `h$YY$MM$DD$HH$MI` gives: two digits for each date and time token,
/// the user's name for `$USER`, seven digits for `$ID`. What is no token stays as it is.
std::string ExpandNamePattern(std::string_view pattern, const NameTokens& tokens);

}  // namespace kiv
