#pragma once

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <exception>
#include <functional>
#include <stdexcept>

namespace kiv::test {

/// A process of its own that does some work; with an exception or without, it then ends as if it were killed.
class ChildProcess {
 public:
  static constexpr int kRaised = 99;

  explicit ChildProcess(const std::function<void()>& work) : id_(fork()) {
    if (id_ < 0) throw std::runtime_error("no new process");
    if (id_ > 0) return;
    try {
      work();
      _exit(0);
    } catch (const std::exception& error) {
      std::fprintf(stderr, "In a child process: %s\n", error.what());
    } catch (...) {
      std::fprintf(stderr, "In a child process: an unknown exception\n");
    }
    _exit(kRaised);
  }
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;
  ~ChildProcess() {
    if (id_ <= 0) return;
    Kill();
    Wait();
  }

  void Kill() const { kill(id_, SIGKILL); }

  /// How it ended: its exit code, or minus the signal that killed it.
  int Wait() {
    int status = 0;
    waitpid(id_, &status, 0);
    id_ = 0;
    return WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
  }

 private:
  pid_t id_;
};

}  // namespace kiv::test
