#pragma once

namespace kiv {

/// Sets a flag for as long as it lives; nests.
class FlagGuard {
 public:
  explicit FlagGuard(bool& flag) : flag_(flag), before_(flag) { flag_ = true; }
  FlagGuard(const FlagGuard&) = delete;
  FlagGuard& operator=(const FlagGuard&) = delete;
  ~FlagGuard() { flag_ = before_; }

 private:
  bool& flag_;
  bool before_;
};

}  // namespace kiv
