#pragma once

#include <chrono>
#include <thread>
#include <vector>

namespace kiv::bench {

/// Passes what comes in at a port of the loopback interface on to another one, the way there with a delay.
class DelayProxy {
 public:
  DelayProxy(int serverPort, std::chrono::microseconds delay);
  DelayProxy(const DelayProxy&) = delete;
  DelayProxy& operator=(const DelayProxy&) = delete;
  /// The connections are cut.
  ~DelayProxy();

  int Port() const { return port_; }

 private:
  void Accept();
  static void Forward(int from, int to, std::chrono::microseconds delay);

  int serverPort_;
  std::chrono::microseconds delay_;
  int listener_ = -1;
  int port_ = 0;
  std::vector<int> sockets_;
  std::vector<std::thread> forwarders_;
  std::thread acceptor_;
};

}  // namespace kiv::bench
