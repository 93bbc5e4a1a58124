#include "store/times.h"

#include <ctime>

namespace kiv::store {

namespace {

constexpr const char* kStored = "%Y-%m-%dT%H:%M:%SZ";
constexpr const char* kShown = "%Y-%m-%d %H:%M";

std::string Written(const std::tm& time, const char* pattern) {
  char text[64];
  return std::string(text, std::strftime(text, sizeof text, pattern, &time));
}

std::tm Utc(std::time_t moment) {
  std::tm time{};
  gmtime_r(&moment, &time);
  return time;
}

}  // namespace

std::string UtcNow() {
  return Written(Utc(std::time(nullptr)), kStored);
}

std::string LocalTimeText(const std::string& utc) {
  std::tm read{};
  if (!strptime(utc.c_str(), kStored, &read)) return utc;
  const std::time_t moment = timegm(&read);
  if (Written(Utc(moment), kStored) != utc) return utc;  // such as the 31st of February
  std::tm local{};
  localtime_r(&moment, &local);
  return Written(local, kShown);
}

}  // namespace kiv::store
