#include "database/postgres/cancel.h"

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <limits>
#include <memory>

namespace kiv::database {

namespace {

constexpr unsigned kLongestSeconds = 5;

/// Runs in a process of its own, which has the memory of this one but none of its threads: nothing may be
/// called here but what a signal handler may call, which the library promises of its part.
[[noreturn]] void CancelAndExit(PGcancel* cancel, decltype(&::PQcancel) function) {
  // Whoever waits for the end of this program's files must not wait for this process.
  close_range(0, std::numeric_limits<unsigned>::max(), 0);
  std::signal(SIGALRM, SIG_DFL);
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
  alarm(kLongestSeconds);
  std::array<char, 256> text{};
  function(cancel, text.data(), text.size());
  _exit(0);
}

}  // namespace

void CancelInBackground(const PGconn* connection) {
  // The library's call waits without a limit on a path that is dead.
  const std::unique_ptr<PGcancel, decltype(&::PQfreeCancel)> cancel(
      Pq().PQgetCancel(const_cast<PGconn*>(connection)), Pq().PQfreeCancel);
  if (!cancel) return;
  const auto function = Pq().PQcancel;
  const pid_t child = fork();
  if (child == 0) {
    // The process between ends at once, so that nobody is left to be waited for.
    if (_Fork() == 0) CancelAndExit(cancel.get(), function);
    _exit(0);
  }
  while (child > 0 && waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
  }
}

}  // namespace kiv::database
