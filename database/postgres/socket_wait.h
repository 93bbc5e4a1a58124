#pragma once

#include "database/waiting.h"

namespace kiv::database {

/// One wait for a socket.
struct SocketWait {
  Wait::For what;
  Waiting::Clock::time_point since;
  Waiting::Clock::time_point deadline;
};

/// How it ended.
enum class Awaited { Ready, TimedOut, Cancelled };

/// Waits until a socket is ready for some of these events of poll(), or has failed.
Awaited AwaitSocket(int socket, short events, const SocketWait& wait, Waiting& waiting);

}  // namespace kiv::database
