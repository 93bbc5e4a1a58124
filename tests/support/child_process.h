#pragma once

#include <signal.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <exception>
#include <functional>
#include <new>
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

/// A value that this process and its children see and change alike, best an atomic one.
template <class Value>
class SharedWithChildren {
 public:
  SharedWithChildren()
      : value_(new (mmap(nullptr, sizeof(Value), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0))
                   Value()) {}
  SharedWithChildren(const SharedWithChildren&) = delete;
  SharedWithChildren& operator=(const SharedWithChildren&) = delete;
  ~SharedWithChildren() { munmap(value_, sizeof(Value)); }

  Value& operator*() const { return *value_; }
  Value* operator->() const { return value_; }

 private:
  Value* value_;
};

}  // namespace kiv::test
