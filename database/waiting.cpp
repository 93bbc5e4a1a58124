#include "database/waiting.h"

#include <algorithm>

namespace kiv::database {

namespace {

using namespace std::chrono_literals;

constexpr auto kPace = 100ms;

}  // namespace

Waiting::Clock::time_point Waiting::NextQuestion(Clock::time_point since) const {
  return handler_ ? std::max(since, asked_) + kPace : Clock::time_point::max();
}

bool Waiting::GoesOn(Wait::For what, Clock::time_point since) {
  const Clock::time_point now = Clock::now();
  if (asking_ || now < NextQuestion(since)) return true;
  struct Scope {
    explicit Scope(bool& flag) : asking(flag) { asking = true; }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;
    ~Scope() { asking = false; }
    bool& asking;
  };
  const Scope scope(asking_);
  const WaitHandler handler = handler_;  // which may set another one
  const bool goesOn = handler({what, std::chrono::duration_cast<std::chrono::milliseconds>(now - since)});
  asked_ = Clock::now();
  return goesOn;
}

}  // namespace kiv::database
