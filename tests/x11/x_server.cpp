#include "x11/x_server.h"

#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>

namespace kiv::test {

namespace {

constexpr int kLongestStartMs = 60'000;
constexpr int kNotInstalled = 127;

[[noreturn]] void BecomeServer(pid_t parent, int numberPipe) {
  prctl(PR_SET_PDEATHSIG, SIGTERM);
  if (getppid() != parent) _exit(1);  // the parent died before it could take this process along
  const std::string number = std::to_string(numberPipe);
  execlp("Xvfb", "Xvfb", "-displayfd", number.c_str(), "-screen", "0", "1600x1200x24", "-nolisten", "tcp",
         static_cast<char*>(nullptr));
  _exit(kNotInstalled);
}

/// The line that the server writes when it takes clients: the number of its display.
std::string ReadNumber(int pipe) {
  std::string number;
  pollfd ready = {pipe, POLLIN, 0};
  char character = 0;
  while (poll(&ready, 1, kLongestStartMs) == 1 && read(pipe, &character, 1) == 1) {
    if (character == '\n') return number;
    number += character;
  }
  return {};
}

}  // namespace

XServer::XServer() {
  int pipes[2];
  if (pipe(pipes) != 0) throw std::runtime_error("No pipe for the X server.");
  const pid_t parent = getpid();
  process_ = fork();
  if (process_ == 0) {
    close(pipes[0]);
    BecomeServer(parent, pipes[1]);
  }
  close(pipes[1]);
  const std::string number = ReadNumber(pipes[0]);
  close(pipes[0]);
  if (!number.empty()) {
    display_ = ':' + number;
    return;
  }
  kill(process_, SIGTERM);
  int status = 0;
  waitpid(process_, &status, 0);
  const bool absent = WIFEXITED(status) && WEXITSTATUS(status) == kNotInstalled;
  throw std::runtime_error(absent ? "Xvfb is not installed; run scripts/setup.sh test."
                                  : "Xvfb does not start.");
}

XServer::~XServer() {
  kill(process_, SIGTERM);
  waitpid(process_, nullptr, 0);
}

}  // namespace kiv::test
