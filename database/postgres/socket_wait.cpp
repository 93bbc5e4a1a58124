#include "database/postgres/socket_wait.h"

#include <poll.h>

#include <algorithm>
#include <cerrno>

namespace kiv::database {

namespace {

using Clock = Waiting::Clock;

/// Rounded up, so that a wait does not go round and round just before its end.
int MillisecondsUntil(Clock::time_point time) {
  using namespace std::chrono;
  if (time == Clock::time_point::max()) return -1;
  const auto left = ceil<milliseconds>(time - Clock::now());
  return static_cast<int>(std::clamp<milliseconds::rep>(left.count(), 0, 1'000'000));
}

}  // namespace

Awaited AwaitSocket(int socket, short events, const SocketWait& wait, Waiting& waiting) {
  // Looked at before the handler is asked: while that one takes its time the answer may come.
  while (Clock::now() < wait.deadline) {
    if (!waiting.GoesOn(wait.what, wait.since)) return Awaited::Cancelled;
    pollfd waited = {socket, events, 0};
    const int count =
        poll(&waited, 1, MillisecondsUntil(std::min(wait.deadline, waiting.NextQuestion(wait.since))));
    if (count > 0 || (count < 0 && errno != EINTR)) return Awaited::Ready;
  }
  return Awaited::TimedOut;
}

}  // namespace kiv::database
